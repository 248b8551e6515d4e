// Where ports lead, from sheet to sheet.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include <session/Session.h>

namespace fighost {

/// Answers for the sheets of one document where a port goes on among them.
class SheetLinks {
public:
    /// The order of `sheets` is that of the document. They must outlive this object.
    explicit SheetLinks(std::vector<SessionSheet const*> const& sheets);

    /// The id of the next sheet behind the node's own, the first again after the last, that shows
    /// the node's port too; empty when no other sheet of the document does, and for null.
    /// Cost: linear in the places where the port shows.
    std::string Next(figrep::SmartPtr<figrep::PortNode> const& node) const;

    /// How deep a sheet with this path lies below the root, "/".
    static std::size_t DepthOf(SessionSheet const& sheet);

private:
    std::vector<SessionSheet const*> sheets_;
    std::unordered_map<std::string, std::size_t> places_;  // by id
};

}  // namespace fighost
