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

    /// The id of the sheet of the document to which a port's node leads; empty for none and for
    /// null. From the block of a sheet that is the sheet itself, and from there the sheet with the
    /// block. Any other port, and those whose sheet isn't in the document, lead to the next sheet
    /// that shows a port of that name on the same net, the first again behind the last.
    /// Cost: linear in the places where such ports show.
    std::string Next(figrep::SmartPtr<figrep::PortNode> const& node) const;

    /// How many sheets of the document lie above this one in the tree of sheets, without a gap.
    std::size_t DepthOf(SessionSheet const& sheet) const;

private:
    std::size_t PlaceOf(std::string const& id) const;
    std::size_t PlaceOfFigure(figrep::PortNode const& node) const;
    std::size_t PlaceBehind(figrep::SmartPtr<figrep::PortNode> const& node, std::size_t own) const;

    std::vector<SessionSheet const*> sheets_;
    std::unordered_map<std::string, std::size_t> places_;  // by id
};

}  // namespace fighost
