// Saved files with parts of which this program knows nothing.
#pragma once

#include <sstream>
#include <string>

namespace fighost::testing {

/// The XML of saved figures with a property and a child that nobody knows behind every line, as far
/// as they aren't nested deeper than `deepest` elements. In the form in which files are written.
inline std::string WithUnknownParts(std::string const& xml, std::size_t deepest) {
    std::istringstream in(xml);
    std::string out;
    std::size_t number = 0;
    std::size_t depth = 0;  // the elements that are open behind a line
    for (std::string line; std::getline(in, line);) {
        out += line + "\n";
        if (line.rfind("<?xml", 0) == 0) continue;
        bool const ends = line.find("</") != std::string::npos;
        bool const isWhole = line.find("/>") != std::string::npos;
        if (ends) --depth;
        if (!ends && !isWhole) ++depth;
        if (depth == 0 || depth > deepest) continue;
        std::string const indent(2 * depth, ' ');
        std::string const key = "unknown" + std::to_string(++number);
        out += indent + "<text key=\"" + key + "\" value=\"kept\" />\n";
        out += indent + "<content key=\"" + key + "\">\n" + indent + "  <double key=\"" + key +
               "\" value=\"0.1\" />\n" + indent + "</content>\n";
    }
    return out;
}

}  // namespace fighost::testing
