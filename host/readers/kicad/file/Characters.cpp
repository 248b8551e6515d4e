#include <readers/kicad/file/Characters.h>

#include <cstdint>
#include <cstring>

namespace fighost::kicad {

namespace {

constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

bool IsContinuation(std::string_view text, std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

bool IsCleanAscii(unsigned char c) {
    return c >= 0x20 ? c != 0x7F : c == '\t' || c == '\n' || c == '\r';
}

/// Length of the clean character at `at`; 0 when the byte there is bad.
std::size_t CharacterLength(std::string_view text, std::size_t at) {
    auto const lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80) return IsCleanAscii(lead) ? 1 : 0;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    std::size_t const length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    for (std::size_t i = 1; i < length; ++i) {
        if (!IsContinuation(text, at + i)) return 0;
    }
    auto const second = static_cast<unsigned char>(text[at + 1]);
    if (lead == 0xE0 && second < 0xA0) return 0;
    if (lead == 0xED && second > 0x9F) return 0;  // halves of surrogate pairs
    if (lead == 0xF0 && second < 0x90) return 0;
    if (lead == 0xF4 && second > 0x8F) return 0;
    if (lead == 0xEF && second == 0xBF && static_cast<unsigned char>(text[at + 2]) >= 0xBE) {
        return 0;  // U+FFFE and U+FFFF are no characters
    }
    return length;
}

/// True when eight bytes are all ASCII from space to '~', the case that decides the speed.
bool AreEightPlain(char const* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    constexpr std::uint64_t HIGH = 0x8080808080808080u;
    constexpr std::uint64_t ONES = 0x0101010101010101u;
    if (word & HIGH) return false;
    std::uint64_t const belowSpace = (word - ONES * 0x20) & HIGH;
    std::uint64_t const isDelete = (word + ONES) & HIGH;
    return (belowSpace | isDelete) == 0;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

char SimpleEscape(char c) {
    switch (c) {
        case 'n':
            return '\n';
        case 't':
            return '\t';
        case 'r':
            return '\r';
        case 'a':
            return '\a';
        case 'b':
            return '\b';
        case 'f':
            return '\f';
        case 'v':
            return '\v';
        default:
            return c;
    }
}

/// Reads up to `most` digits of `base` behind `at`; answers the byte and moves `at` to the last
/// one.
char NumberEscape(std::string_view raw, std::size_t& at, unsigned base, unsigned most) {
    unsigned value = 0;
    for (unsigned i = 0; i < most && at + 1 < raw.size(); ++i) {
        int const digit = HexDigit(raw[at + 1]);
        if (digit < 0 || static_cast<unsigned>(digit) >= base) break;
        value = value * base + static_cast<unsigned>(digit);
        ++at;
    }
    return static_cast<char>(static_cast<unsigned char>(value));
}

}  // namespace

std::size_t FindBadCharacter(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        if (at + 8 <= text.size() && AreEightPlain(text.data() + at)) {
            at += 8;
            continue;
        }
        std::size_t const length = CharacterLength(text, at);
        if (length == 0) return at;
        at += length;
    }
    return std::string::npos;
}

std::string ReplaceBadCharacters(std::string_view text) {
    std::string clean;
    clean.reserve(text.size());
    while (!text.empty()) {
        std::size_t const bad = FindBadCharacter(text);
        clean += text.substr(0, bad);
        if (bad == std::string::npos) break;
        clean += REPLACEMENT;
        text.remove_prefix(bad + 1);
    }
    return clean;
}

std::string WorkOutEscapes(std::string_view raw) {
    std::string text;
    text.reserve(raw.size());
    for (std::size_t at = 0; at < raw.size(); ++at) {
        if (raw[at] != '\\' || at + 1 == raw.size()) {
            text += raw[at];
            continue;
        }
        char const c = raw[++at];
        if (c == 'x') {
            text += NumberEscape(raw, at, 16, 2);
        } else if (c >= '0' && c <= '7') {
            --at;
            text += NumberEscape(raw, at, 8, 3);
        } else {
            text += SimpleEscape(c);
        }
    }
    return FindBadCharacter(text) == std::string::npos ? text : ReplaceBadCharacters(text);
}

}  // namespace fighost::kicad
