#include <session/nets/SheetLinks.h>

#include <algorithm>

#include <figk/Sheet.h>
#include <figkernel/SheetPortNode.h>
#include <figrep/Figure.h>
#include <figrep/FigurePortNodeDetail.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <figrep/SubNet.h>

namespace fighost {

namespace {

constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);

/// The id of the sheet into which the node leads, from either side; empty for none.
std::string SheetInside(figrep::PortNode const& node) {
    auto const record = du::DynamicCast<figkernel::SheetPortNode>(node.GetKernelPortNode());
    figrep::SmartPtr<figk::Sheet> const sheet = record ? record->GetSheetInside() : nullptr;
    return sheet ? sheet->GetId().GetString() : std::string();
}

}  // namespace

SheetLinks::SheetLinks(std::vector<SessionSheet const*> const& sheets) : sheets_(sheets) {
    for (std::size_t i = 0; i < sheets.size(); ++i)
        places_[sheets[i]->id] = i;
}

std::size_t SheetLinks::PlaceOf(std::string const& id) const {
    auto const place = places_.find(id);
    return place == places_.end() ? NOWHERE : place->second;
}

std::size_t SheetLinks::PlaceOfFigure(figrep::PortNode const& node) const {
    figrep::SmartPtr<figrep::Figure> const figure = node.GetFigure();
    auto const own = std::find_if(sheets_.begin(), sheets_.end(), [&](SessionSheet const* sheet) {
        return sheet->figure == figure;
    });
    return own == sheets_.end() ? NOWHERE : static_cast<std::size_t>(own - sheets_.begin());
}

std::string SheetLinks::Next(figrep::SmartPtr<figrep::PortNode> const& node) const {
    std::size_t const own = node ? PlaceOfFigure(*node) : NOWHERE;
    if (own == NOWHERE) return {};
    std::string const inside = SheetInside(*node);
    bool const entered = inside == sheets_[own]->id;
    std::size_t place = PlaceOf(entered ? sheets_[own]->parent : inside);
    if (place == NOWHERE) place = PlaceBehind(node, own);
    return place == NOWHERE ? std::string() : sheets_[place]->id;
}

std::size_t SheetLinks::PlaceBehind(figrep::SmartPtr<figrep::PortNode> const& node,
                                    std::size_t own) const {
    std::size_t const count = sheets_.size();
    std::vector<figrep::FigurePortNodeDetail> details;
    figrep::SchematicRepresentation::GetSingleton()->GetFiguresForPortNode(node, nullptr, details);
    std::size_t nearest = count;  // in steps forward
    for (figrep::FigurePortNodeDetail const& detail : details) {
        std::size_t const place = PlaceOf(detail.GetFigureName().GetString());
        if (place == NOWHERE || place == own) continue;
        nearest = std::min(nearest, (place + count - own) % count);
    }
    return nearest == count ? NOWHERE : (own + nearest) % count;
}

std::size_t SheetLinks::DepthOf(SessionSheet const& sheet) const {
    std::size_t depth = 0;
    for (std::size_t place = PlaceOf(sheet.parent); place != NOWHERE;
         place = PlaceOf(sheets_[place]->parent))
        ++depth;
    return depth;
}

}  // namespace fighost
