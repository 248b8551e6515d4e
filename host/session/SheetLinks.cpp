#include <session/SheetLinks.h>

#include <algorithm>

#include <figrep/Figure.h>
#include <figrep/FigurePortNodeDetail.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <figrep/SubNet.h>

namespace fighost {

SheetLinks::SheetLinks(std::vector<SessionSheet const*> const& sheets) : sheets_(sheets) {
    for (std::size_t i = 0; i < sheets.size(); ++i)
        places_[sheets[i]->id] = i;
}

std::string SheetLinks::Next(figrep::SmartPtr<figrep::PortNode> const& node) const {
    if (!node) return {};
    figrep::SmartPtr<figrep::Figure> const figure = node->GetFigure();
    std::size_t const count = sheets_.size();
    std::size_t own = 0;
    while (own < count && !(sheets_[own]->figure == figure))
        ++own;
    if (own == count) return {};
    std::vector<figrep::FigurePortNodeDetail> details;
    figrep::SchematicRepresentation::GetSingleton()->GetFiguresForPortNode(node, nullptr, details);
    std::size_t nearest = count;  // in steps forward
    for (figrep::FigurePortNodeDetail const& detail : details) {
        auto const place = places_.find(detail.GetFigureName().GetString());
        if (place == places_.end() || place->second == own) continue;
        nearest = std::min(nearest, (place->second + count - own) % count);
    }
    return nearest == count ? std::string() : sheets_[(own + nearest) % count]->id;
}

std::size_t SheetLinks::DepthOf(SessionSheet const& sheet) {
    auto const bars = std::count(sheet.path.begin(), sheet.path.end(), '/');
    return bars > 0 ? static_cast<std::size_t>(bars) - 1 : 0;
}

}  // namespace fighost
