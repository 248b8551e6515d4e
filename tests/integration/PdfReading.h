// PDF documents as a reader that isn't ours sees them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace fighost::test {

/// A text, or a part of one, that leads to a page. Pages count from 1; 0 is a link that leads
/// nowhere.
struct PdfLink {
    std::string text;
    unsigned page = 0;
};

struct PdfEntry {
    std::string title;
    unsigned page = 0;
    std::size_t depth = 0;
};

struct PdfPage {
    double width = 0;  ///< in millimetres
    double height = 0;
    std::vector<PdfLink> links;
    std::string text;
};

struct PdfReading {
    std::vector<PdfPage> pages;
    std::vector<PdfEntry> outline;
    std::size_t linkCount = 0;  ///< places to click, over all pages
    std::string problem;        ///< empty when the document could be read
};

/// Reads the file with the Poppler tools. Without them that is a problem, and tests fail.
PdfReading ReadPdf(std::string const& path);

/// `text` without any white space.
std::string WithoutSpaces(std::string const& text);

}  // namespace fighost::test
