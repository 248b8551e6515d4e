#include <du/Utf8.h>

#include <cstddef>
#include <cstdint>

namespace du {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

bool IsScalarValue(char32_t c) {
    return c < 0xD800 || (c > 0xDFFF && c <= 0x10FFFF);
}

/// The code point at `at` and how many bytes it takes; one byte of nonsense is a replacement.
char32_t Decode(std::string_view text, size_t at, size_t& length) {
    length = 1;
    auto const lead = static_cast<uint8_t>(text[at]);
    if (lead < 0x80) return lead;
    size_t const count = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || at + count > text.size()) return REPLACEMENT;
    char32_t value = lead & (0x7Fu >> count);
    for (size_t i = 1; i < count; ++i) {
        auto const next = static_cast<uint8_t>(text[at + i]);
        if ((next & 0xC0) != 0x80) return REPLACEMENT;
        value = value << 6 | (next & 0x3Fu);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (value < smallest[count] || !IsScalarValue(value)) return REPLACEMENT;
    length = count;
    return value;
}

void Encode(char32_t c, std::string& out) {
    auto const tail = [&](int shift) { out += static_cast<char>(0x80 | (c >> shift & 0x3F)); };
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | c >> 6);
        tail(0);
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | c >> 12);
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | c >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace

std::wstring Utf8ToWideStr(std::string_view text) {
    static_assert(sizeof(wchar_t) >= 4, "one wide character holds one code point");
    std::wstring result;
    result.reserve(text.size());
    for (size_t at = 0, length = 0; at < text.size(); at += length) {
        result += static_cast<wchar_t>(Decode(text, at, length));
    }
    return result;
}

std::string WideStrToUtf8(std::wstring_view text) {
    std::string result;
    result.reserve(text.size());
    for (wchar_t const wide : text) {
        auto const c = static_cast<char32_t>(wide);
        Encode(IsScalarValue(c) ? c : REPLACEMENT, result);
    }
    return result;
}

}  // namespace du
