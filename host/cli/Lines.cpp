#include <cli/Lines.h>

namespace fighost {

std::string OneLine(std::string text) {
    for (char& c : text) {
        if (static_cast<unsigned char>(c) < 0x20) c = ' ';
    }
    return text;
}

std::string Line(std::vector<std::string> const& columns) {
    std::string line;
    for (std::string const& column : columns) {
        if (&column != &columns.front()) line += '\t';
        line += OneLine(column);
    }
    return line + "\n";
}

}  // namespace fighost
