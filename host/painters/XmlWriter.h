// Writes well-formed XML, whatever it is given.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fighost {

/// An XML document written from front to back.
///
/// Element and attribute names come from the program and are taken as they are; values and text
/// may be anything: bytes that aren't UTF-8 become U+FFFD, characters that XML doesn't allow are
/// left out, the rest is escaped. Numbers are the shortest text that reads back as the value
/// rounded to 1e-4; zero has no sign, and what isn't finite is written as 0. The same calls give
/// the same bytes.
class XmlWriter {
public:
    XmlWriter();

    void Start(std::string_view name);
    /// Starts an element whose white space shows: nothing is put between its children.
    void StartText(std::string_view name);
    /// For the element started last, before its content.
    void Attribute(std::string_view name, std::string_view value);
    void Attribute(std::string_view name, double value);
    void Text(std::string_view text);
    void End();

    /// Ends all open elements and hands the document over.
    std::string Take();

    static void AppendNumber(std::string& out, double value);

private:
    struct Element {
        std::string name;
        bool isText = false;
    };

    void Open(std::string_view name, bool isText);
    void CloseTag();
    void AppendEscaped(std::string_view text, bool attribute);

    std::string out_;
    std::vector<Element> open_;
    bool inTag_ = false;
};

}  // namespace fighost
