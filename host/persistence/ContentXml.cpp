#include <persistence/ContentXml.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <sstream>
#include <vector>

#include <zvk/SerializedContentVisitor.h>
#include <pugixml.hpp>

namespace fighost {

namespace {

using du::Symbol;
using zvk::SerializedContentElement;

constexpr char const* CHILD = "content";
constexpr char const* KEY = "key";
constexpr char const* VALUE = "value";
constexpr char const* HEX = "hex";  // a text that XML can't hold, byte by byte
constexpr char const* ITEM_NAME = "name";

// Text that can stand in XML.

// The length of the well-formed UTF-8 character at the start of `text`, or 0.
std::size_t CharacterLength(std::string_view text) {
    auto const byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
    };
    auto const trails = [&](std::size_t count) {
        for (std::size_t i = 1; i <= count; ++i) {
            if ((byte(i) & 0xC0u) != 0x80u) return false;
        }
        return true;
    };
    if (byte(0) < 0x80u) return 1;
    if (byte(0) >= 0xC2u && byte(0) < 0xE0u) return trails(1) ? 2 : 0;
    if (byte(0) >= 0xE0u && byte(0) < 0xF0u) {
        bool const overlong = byte(0) == 0xE0u && byte(1) < 0xA0u;
        bool const surrogate = byte(0) == 0xEDu && byte(1) >= 0xA0u;
        bool const noCharacter = byte(0) == 0xEFu && byte(1) == 0xBFu && byte(2) >= 0xBEu;
        return trails(2) && !overlong && !surrogate && !noCharacter ? 3 : 0;
    }
    if (byte(0) < 0xF0u || byte(0) > 0xF4u || !trails(3)) return 0;
    bool const outside =
        (byte(0) == 0xF0u && byte(1) < 0x90u) || (byte(0) == 0xF4u && byte(1) >= 0x90u);
    return outside ? 0 : 4;
}

bool FitsXml(std::string_view text) {
    while (!text.empty()) {
        auto const first = static_cast<unsigned char>(text[0]);
        bool const control = first < 0x20 && first != '\t' && first != '\n' && first != '\r';
        std::size_t const length = control ? 0 : CharacterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string ToHex(std::string_view text) {
    constexpr char DIGITS[] = "0123456789abcdef";
    std::string hex;
    for (char const c : text) {
        auto const byte = static_cast<unsigned char>(c);
        hex += DIGITS[byte >> 4];
        hex += DIGITS[byte & 15];
    }
    return hex;
}

bool FromHex(std::string_view hex, std::string& text) {
    if (hex.size() % 2 != 0) return false;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        unsigned byte = 0;
        auto const end = std::from_chars(hex.data() + i, hex.data() + i + 2, byte, 16);
        if (end.ec != std::errc() || end.ptr != hex.data() + i + 2) return false;
        text += static_cast<char>(byte);
    }
    return true;
}

std::string Number(double value) {
    char text[32];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

template <class Value>
bool ParseNumber(char const* text, Value& value) {
    char const* const end = text + std::strlen(text);
    auto const parsed = std::from_chars(text, end, value);
    return parsed.ec == std::errc() && parsed.ptr == end && text != end;
}

// Writing.

void SetText(pugi::xml_node node, char const* plain, std::string const& text) {
    if (FitsXml(text)) {
        node.append_attribute(plain) = text.c_str();
    } else {
        node.append_attribute((std::string(plain) + "-" + HEX).c_str()) = ToHex(text).c_str();
    }
}

class XmlBuilder : public zvk::SerializedContentVisitor {
public:
    XmlBuilder(pugi::xml_node root, KnownNames const& names) : node_(root), names_(names) {}

    bool StartElement(Symbol const& name) override {
        node_ = node_.append_child(CHILD);
        SetText(node_, KEY, name.GetString());
        return true;
    }
    void EndElement(Symbol const&) override { node_ = node_.parent(); }

    void Visit(Symbol const& key, Symbol const& value) override {
        auto const node = Add("text", key);
        SetText(node, VALUE, value.GetString());
        auto const name = names_.find(value.GetString());
        if (name != names_.end() && FitsXml(name->second)) {
            auto named = node;
            named.append_attribute(ITEM_NAME) = name->second.c_str();
        }
    }
    void Visit(Symbol const& key, bool value) override {
        Add("bool", key).append_attribute(VALUE) = value ? "true" : "false";
    }
    void Visit(Symbol const& key, int value) override {
        Add("int", key).append_attribute(VALUE) = std::to_string(value).c_str();
    }
    void Visit(Symbol const& key, double value) override {
        Add("double", key).append_attribute(VALUE) = Number(value).c_str();
    }
    void Visit(Symbol const& key, dg::DPoint3D const& value) override {
        auto node = Add("point", key);
        node.append_attribute("x") = Number(value.x).c_str();
        node.append_attribute("y") = Number(value.y).c_str();
        node.append_attribute("z") = Number(value.z).c_str();
    }

private:
    pugi::xml_node Add(char const* type, Symbol const& key) {
        auto node = node_.append_child(type);
        SetText(node, KEY, key.GetString());
        return node;
    }

    pugi::xml_node node_;
    KnownNames const& names_;
};

// Reading.

/// Appends the properties and children of one XML element after the other, and says which one it
/// couldn't understand.
class XmlReader {
public:
    XmlReader(XmlLimits const& limits, KnownNames& names) : limits_(limits), names_(names) {}

    bool Read(pugi::xml_node root, SerializedContentElement& content) {
        struct Level {
            pugi::xml_node next;
            SerializedContentElement* element;
        };
        std::vector<Level> levels{{root.first_child(), &content}};
        while (!levels.empty()) {
            pugi::xml_node const node = levels.back().next;
            if (!node) {
                levels.pop_back();
                continue;
            }
            levels.back().next = node.next_sibling();
            if (node.type() == pugi::node_comment) continue;
            if (std::strcmp(node.name(), CHILD) != 0) {
                if (!ReadProperty(node, *levels.back().element)) return false;
                continue;
            }
            std::string key;
            if (!GetText(node, KEY, key)) return Fail(node, "content without a key");
            if (levels.size() >= limits_.depth) return Fail(node, "content is nested too deeply");
            levels.push_back(
                {node.first_child(), levels.back().element->StartContent(Symbol(key))});
        }
        return true;
    }

    std::ptrdiff_t GetOffset() const { return offset_; }
    std::string const& GetSentence() const { return sentence_; }

private:
    bool Fail(pugi::xml_node node, std::string const& sentence) {
        offset_ = node.offset_debug();
        sentence_ = sentence;
        return false;
    }

    static bool GetText(pugi::xml_node node, char const* plain, std::string& text) {
        if (auto const attribute = node.attribute(plain)) {
            text = attribute.value();
            return true;
        }
        auto const hex = node.attribute((std::string(plain) + "-" + HEX).c_str());
        return hex && FromHex(hex.value(), text);
    }

    bool ReadProperty(pugi::xml_node node, SerializedContentElement& element) {
        std::string key;
        std::string const type = node.name();
        if (type.empty()) return Fail(node, "text between the elements");
        if (!GetText(node, KEY, key)) return Fail(node, "a property without a key");
        Symbol const symbol(key);
        if (type == "text") return ReadTextValue(node, symbol, element);
        if (type == "point") return ReadPoint(node, symbol, element);
        char const* const value = node.attribute(VALUE).value();
        int whole = 0;
        double real = 0;
        if (type == "bool" &&
            (std::strcmp(value, "true") == 0 || std::strcmp(value, "false") == 0)) {
            element.AddProperty(symbol, value[0] == 't');
        } else if (type == "int" && ParseNumber(value, whole)) {
            element.AddProperty(symbol, whole);
        } else if (type == "double" && ParseNumber(value, real)) {
            element.AddProperty(symbol, real);
        } else {
            return Fail(node, "'" + key + "' holds no value of the type '" + type + "'");
        }
        return true;
    }

    bool ReadTextValue(pugi::xml_node node, Symbol const& key, SerializedContentElement& element) {
        std::string text;
        if (!GetText(node, VALUE, text)) return Fail(node, "a text without a value");
        element.AddProperty(key, Symbol(text));
        if (auto const name = node.attribute(ITEM_NAME)) names_[text] = name.value();
        return true;
    }

    bool ReadPoint(pugi::xml_node node, Symbol const& key, SerializedContentElement& element) {
        dg::DPoint3D point;
        if (!ParseNumber(node.attribute("x").value(), point.x) ||
            !ParseNumber(node.attribute("y").value(), point.y) ||
            !ParseNumber(node.attribute("z").value(), point.z)) {
            return Fail(node, "'" + key.GetString() + "' is a point without three numbers");
        }
        element.AddProperty(key, point);
        return true;
    }

    XmlLimits limits_;
    KnownNames& names_;
    std::ptrdiff_t offset_ = 0;
    std::string sentence_;
};

Finding FindingAt(std::string_view xml, std::ptrdiff_t offset, std::string const& file,
                  std::string sentence) {
    std::size_t const end =
        std::min(static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0)), xml.size());
    std::string_view const before = xml.substr(0, end);
    Finding finding;
    finding.place.file = file;
    finding.place.line =
        1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    std::size_t const lineStart = before.rfind('\n');
    finding.place.column = lineStart == std::string_view::npos ? end + 1 : end - lineStart;
    finding.sentence = std::move(sentence);
    return finding;
}

/// Writes what it is shown into an element.
class Copier : public zvk::SerializedContentVisitor {
public:
    explicit Copier(SerializedContentElement& to) : way_{&to} {}

    bool StartElement(Symbol const& name) override {
        way_.push_back(way_.back()->StartContent(name));
        return true;
    }
    void EndElement(Symbol const&) override { way_.pop_back(); }
    void Visit(Symbol const& key, Symbol const& value) override { Add(key, value); }
    void Visit(Symbol const& key, bool value) override { Add(key, value); }
    void Visit(Symbol const& key, int value) override { Add(key, value); }
    void Visit(Symbol const& key, double value) override { Add(key, value); }
    void Visit(Symbol const& key, dg::DPoint3D const& value) override { Add(key, value); }

private:
    template <class Value>
    void Add(Symbol const& key, Value const& value) {
        way_.back()->AddProperty(key, value);
    }

    std::vector<SerializedContentElement*> way_;
};

}  // namespace

std::string ContentToXml(SerializedContentElement const& content, std::string const& root,
                         KnownNames const& names) {
    pugi::xml_document document;
    auto declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "UTF-8";
    XmlBuilder builder(document.append_child(root.c_str()), names);
    content.VisitAll(builder);
    std::ostringstream text;
    document.save(text, "  ", pugi::format_default, pugi::encoding_utf8);
    return text.str();
}

ContentFromXml ContentOfXml(std::string_view xml, std::string const& root, std::string const& file,
                            XmlLimits const& limits) {
    ContentFromXml result;
    pugi::xml_document document;
    auto const parsed =
        document.load_buffer(xml.data(), xml.size(), pugi::parse_default, pugi::encoding_utf8);
    if (parsed.status == pugi::status_no_document_element) {
        result.error = FindingAt(xml, 0, file, "this is another kind of file: it holds no XML");
        return result;
    }
    if (!parsed) {
        result.error = FindingAt(xml, parsed.offset, file,
                                 std::string("this is no whole XML file: ") + parsed.description());
        return result;
    }
    auto const top = document.document_element();
    if (top.name() != root) {
        result.error = FindingAt(xml, top.offset_debug(), file,
                                 "this is another kind of file: it holds '" +
                                     std::string(top.name()) + "' and not '" + root + "'");
        return result;
    }
    auto content = std::make_unique<SerializedContentElement>(Symbol(root));
    XmlReader reader(limits, result.names);
    if (reader.Read(top, *content)) {
        result.content = std::move(content);
    } else {
        result.error = FindingAt(xml, reader.GetOffset(), file, reader.GetSentence());
    }
    return result;
}

void CopyContent(SerializedContentElement const& from, SerializedContentElement& to) {
    Copier copier(to);
    from.VisitAll(copier);
}

}  // namespace fighost
