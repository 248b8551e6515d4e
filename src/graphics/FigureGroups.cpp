#include "graphics/FigureGroups.h"

#include <figrep/Figure.h>
#include <figrep/GraphicGroup.h>
#include <figrep/TextLabelContainerGroup.h>

namespace figrep {

SmartPtr<Figure> FigureOfLabels(SmartPtr<figk::Group> const& group) {
    auto const labels = du::DynamicCast<TextLabelContainerGroup>(group);
    return labels ? du::DynamicCast<Figure>(labels->GetTextLabelContainer()) : SmartPtr<Figure>();
}

SmartPtr<GraphicGroup> GroupOnFigure(GraphicGroupMember const& graphic) {
    auto const owner = graphic.GetOwner();
    auto const head = graphic.GetHeadGroup();
    bool const shared = owner && SmartPtr<figk::Group>(owner) != head;
    return shared && FigureOfLabels(head) ? owner : SmartPtr<GraphicGroup>();
}

}  // namespace figrep
