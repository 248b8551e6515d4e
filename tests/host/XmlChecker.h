// Checks that a document is well-formed XML, and counts what it holds.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace fighost::test {

struct XmlElement {
    std::string name;
    std::map<std::string, std::string> attributes;  ///< with entities resolved
    std::string text;                               ///< its own and that of its children
    std::size_t depth = 0;
};

/// The elements in document order, or the first mistake.
struct XmlDocument {
    std::vector<XmlElement> elements;
    std::string mistake;  ///< empty for a well-formed document

    std::vector<XmlElement> Named(std::string_view name) const;
    /// Whether every `id` occurs once.
    bool HasUniqueIds() const;
};

XmlDocument CheckXml(std::string_view text);

}  // namespace fighost::test
