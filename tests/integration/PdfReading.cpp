#include <integration/PdfReading.h>

#include <host/cli/RunProgram.h>

#include <pugixml.hpp>

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace fighost::test {

namespace {

/// What a program of the machine prints; empty when it fails.
std::string OutputOf(std::string const& command) {
    TemporaryFolder folder;
    std::string const all = command + " >'" + folder.Path("out") + "' 2>/dev/null";
    return std::system(all.c_str()) == 0 ? ReadFile(folder.Path("out")) : std::string();
}

std::string TextOf(pugi::xml_node const& node) {
    std::string text;
    for (pugi::xml_node const child : node.children())
        text += child.type() == pugi::node_pcdata ? child.value() : TextOf(child);
    return text;
}

/// The number behind the last '#', as in "out.html#3".
unsigned PageOf(std::string const& address) {
    auto const hash = address.rfind('#');
    return hash == std::string::npos
               ? 0
               : static_cast<unsigned>(std::strtoul(address.c_str() + hash + 1, nullptr, 10));
}

void ReadLinks(pugi::xml_node const& page, std::vector<PdfLink>& links) {
    for (pugi::xpath_node const& found : page.select_nodes(".//a")) {
        pugi::xml_node const node = found.node();
        links.push_back({TextOf(node), PageOf(node.attribute("href").value())});
    }
}

void ReadOutline(pugi::xml_node const& outline, std::size_t depth, std::vector<PdfEntry>& entries) {
    for (pugi::xml_node const node : outline.children()) {
        if (std::string_view(node.name()) == "outline") {
            ReadOutline(node, depth + 1, entries);
        } else if (std::string_view(node.name()) == "item") {
            entries.push_back({TextOf(node), node.attribute("page").as_uint(), depth});
        }
    }
}

/// Cairo leaves the objects of links uncompressed.
std::size_t CountLinks(std::string const& bytes) {
    std::string const mark = "/Subtype /Link";
    std::size_t count = 0;
    for (auto at = bytes.find(mark); at != std::string::npos; at = bytes.find(mark, at + 1))
        ++count;
    return count;
}

/// Pages end in form feeds.
void ReadTexts(std::string const& texts, std::vector<PdfPage>& pages) {
    std::istringstream stream(texts);
    for (PdfPage& page : pages)
        std::getline(stream, page.text, '\f');
}

}  // namespace

PdfReading ReadPdf(std::string const& path) {
    PdfReading reading;
    pugi::xml_document document;
    auto const parsed = document.load_string(
        OutputOf("pdftohtml -xml -i -stdout '" + path + "'").c_str(), pugi::parse_full);
    if (!parsed) {
        reading.problem =
            "pdftohtml (poppler-utils) gives nothing to read: " + std::string(parsed.description());
        return reading;
    }
    for (pugi::xml_node const page : document.child("pdf2xml").children("page")) {
        constexpr double MM_PER_DOT = 25.4 / 72 / 1.5;  // the tool enlarges by half
        reading.pages.emplace_back();
        reading.pages.back().width = page.attribute("width").as_double() * MM_PER_DOT;
        reading.pages.back().height = page.attribute("height").as_double() * MM_PER_DOT;
        ReadLinks(page, reading.pages.back().links);
    }
    ReadOutline(document.child("pdf2xml").child("outline"), 0, reading.outline);
    reading.linkCount = CountLinks(ReadFile(path));
    ReadTexts(OutputOf("pdftotext -raw '" + path + "' -"), reading.pages);
    return reading;
}

std::string WithoutSpaces(std::string const& text) {
    std::string result;
    std::copy_if(text.begin(), text.end(), std::back_inserter(result),
                 [](unsigned char c) { return c > ' '; });
    return result;
}

}  // namespace fighost::test
