#include <painters/XmlWriter.h>

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace fighost {

namespace {

constexpr double NUMBER_GRID = 1e4;  // steps in one unit
constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

struct Decoded {
    char32_t codePoint = 0;
    std::size_t length = 0;  // 0: not UTF-8
};

std::size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

Decoded Decode(std::string_view text) {
    auto const lead = static_cast<unsigned char>(text[0]);
    std::size_t const length = SequenceLength(lead);
    if (length == 0 || length > text.size()) return {};
    if (length == 1) return {lead, 1};
    char32_t c = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        auto const next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80) return {};
        c = (c << 6) | (next & 0x3Fu);
    }
    constexpr char32_t SMALLEST[] = {0, 0, 0x80, 0x800, 0x10000};
    bool const surrogate = c >= 0xD800 && c < 0xE000;
    if (c < SMALLEST[length] || surrogate || c > 0x10FFFF) return {};
    return {c, length};
}

bool IsAllowed(char32_t c) {
    if (c < 0x20) return c == 0x9 || c == 0xA || c == 0xD;
    return !(c >= 0x7F && c < 0xA0) && c != 0xFFFE && c != 0xFFFF;
}

std::string_view Entity(char32_t c, bool attribute) {
    switch (c) {
        case U'&':
            return "&amp;";
        case U'<':
            return "&lt;";
        case U'>':
            return "&gt;";
        case U'"':
            return attribute ? "&quot;" : "";
        case U'\n':
            return attribute ? "&#10;" : "";
        case U'\t':
            return attribute ? "&#9;" : "";
        case U'\r':
            return "&#13;";
        default:
            return "";
    }
}

}  // namespace

XmlWriter::XmlWriter() : out_("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n") {}

void XmlWriter::CloseTag() {
    if (!inTag_) return;
    out_ += '>';
    inTag_ = false;
}

void XmlWriter::Open(std::string_view name, bool isText) {
    bool const inText = !open_.empty() && open_.back().isText;
    bool const first = inTag_;
    CloseTag();
    if (first && !inText) out_ += '\n';
    out_ += '<';
    out_ += name;
    open_.push_back({std::string(name), isText || inText});
    inTag_ = true;
}

void XmlWriter::Start(std::string_view name) {
    Open(name, false);
}

void XmlWriter::StartText(std::string_view name) {
    Open(name, true);
}

void XmlWriter::Attribute(std::string_view name, std::string_view value) {
    if (!inTag_) return;
    out_ += ' ';
    out_ += name;
    out_ += "=\"";
    AppendEscaped(value, true);
    out_ += '"';
}

void XmlWriter::Attribute(std::string_view name, double value) {
    if (!inTag_) return;
    out_ += ' ';
    out_ += name;
    out_ += "=\"";
    AppendNumber(out_, value);
    out_ += '"';
}

void XmlWriter::Text(std::string_view text) {
    if (open_.empty()) return;
    CloseTag();
    AppendEscaped(text, false);
}

void XmlWriter::End() {
    if (open_.empty()) return;
    if (inTag_) {
        out_ += "/>";
        inTag_ = false;
    } else {
        out_ += "</" + open_.back().name + ">";
    }
    open_.pop_back();
    bool const inText = !open_.empty() && open_.back().isText;
    if (!inText) out_ += '\n';
}

std::string XmlWriter::Take() {
    while (!open_.empty())
        End();
    return std::move(out_);
}

void XmlWriter::AppendNumber(std::string& out, double value) {
    double rounded = std::round(value * NUMBER_GRID) / NUMBER_GRID;
    if (!std::isfinite(rounded)) rounded = std::isfinite(value) ? value : 0;
    if (rounded == 0) rounded = 0;  // drops the sign of a negative zero
    char buffer[400];               // the longest double in fixed notation has 309 digits
    auto const result =
        std::to_chars(buffer, buffer + sizeof buffer, rounded, std::chars_format::fixed);
    out.append(buffer, result.ptr);
}

void XmlWriter::AppendEscaped(std::string_view text, bool attribute) {
    while (!text.empty()) {
        Decoded const decoded = Decode(text);
        if (decoded.length == 0) {
            out_ += REPLACEMENT;
            text.remove_prefix(1);
            continue;
        }
        std::string_view const bytes = text.substr(0, decoded.length);
        text.remove_prefix(decoded.length);
        if (!IsAllowed(decoded.codePoint)) continue;
        std::string_view const entity = Entity(decoded.codePoint, attribute);
        out_ += entity.empty() ? bytes : entity;
    }
}

}  // namespace fighost
