#include "operations/GroupContent.h"

#include <figrep/BaseGraphic.h>
#include <figrep/Figure.h>
#include <figrep/GraphicGroup.h>

#include "graphics/FigureGroups.h"

namespace figrep {

SmartPtr<GraphicGroup> GroupOnFigure(Figure const& figure,
                                     SmartPtr<AbstractFigureItem> const& item) {
    auto const graphic = du::DynamicCast<BaseGraphic>(item);
    if (!graphic || FigureOfLabels(graphic->GetHeadGroup()).Get() != &figure) return {};
    return GroupOnFigure(*graphic);
}

void AppendContent(GraphicGroup const& group, std::vector<SmartPtr<AbstractFigureItem>>& items) {
    for (SmartPtr<GraphicGroupMember> const& member : group) {
        if (auto const item = du::DynamicCast<AbstractFigureItem>(member)) items.push_back(item);
    }
}

}  // namespace figrep
