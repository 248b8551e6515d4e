#include <session/SheetFileName.h>

#include <cstddef>

namespace fighost {

namespace {

constexpr std::size_t MAXIMUM_LENGTH = 120;  // in bytes; file systems allow 255 for the whole name

bool IsSafe(unsigned char c) {
    bool const letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c >= 0x80;
    return letter || (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '_';
}

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::string Safe(std::string_view name) {
    std::string safe;
    for (char c : name)
        safe += IsSafe(static_cast<unsigned char>(c)) ? c : '_';
    if (safe.size() > MAXIMUM_LENGTH) {
        std::size_t end = MAXIMUM_LENGTH;
        while (end > 0 && IsContinuation(safe[end]))
            --end;
        safe.resize(end);
    }
    // A leading dot would hide the file, or climb to another folder.
    if (!safe.empty() && safe[0] == '.') safe[0] = '_';
    return safe.empty() ? "sheet" : safe;
}

std::string Lower(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

}  // namespace

std::string SheetFileNames::Next(std::string_view sheetName) {
    std::string const safe = Safe(sheetName);
    std::string name = safe;
    for (unsigned number = 2; !used_.insert(Lower(name)).second; ++number) {
        name = safe + "-" + std::to_string(number);
    }
    return name;
}

std::string FillPattern(std::string_view pattern, std::string_view sheetName) {
    std::string filled;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        bool const placeholder = pattern.substr(i, 2) == "%s";
        if (placeholder) {
            filled += sheetName;
            ++i;
        } else {
            filled += pattern[i];
        }
    }
    return filled;
}

}  // namespace fighost
