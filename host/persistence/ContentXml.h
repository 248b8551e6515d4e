// Content elements as XML.
//
// A property is an element named after its type (text, bool, int, double, point), a child is an
// element "content"; both say in an attribute what they are called, so any name can be written.
// Order and repeated keys are kept and numbers come back exactly. An id can carry the name that its
// item had when the file was written: for people only, who can't know ids.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <readers/Findings.h>
#include <zvk/SerializedContentElement.h>

namespace fighost {

/// The names that items had, by id.
using KnownNames = std::map<std::string, std::string>;

struct XmlLimits {
    std::size_t depth = 64;  ///< of nested content
};

/// Exactly one of content and error is set.
struct ContentFromXml {
    std::unique_ptr<zvk::SerializedContentElement> content;
    KnownNames names;
    std::optional<Finding> error;
};

/// The element with all that it holds, under the root element `root`.
std::string ContentToXml(zvk::SerializedContentElement const& content, std::string const& root,
                         KnownNames const& names);

/// Reads what `ContentToXml` wrote. `file` is for messages. Anything that isn't well-formed,
/// another root, an unknown type and a value that isn't of its type end the reading; nothing is
/// guessed.
ContentFromXml ContentOfXml(std::string_view xml, std::string const& root, std::string const& file,
                            XmlLimits const& limits = {});

/// Appends all that `from` holds to `to`.
void CopyContent(zvk::SerializedContentElement const& from, zvk::SerializedContentElement& to);

}  // namespace fighost
