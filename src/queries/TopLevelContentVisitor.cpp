#include <figrep/TopLevelContentVisitor.h>

#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TitleBlock.h>

#include "graphics/FigureGroups.h"

namespace figrep {

TopLevelContentVisitor::TopLevelContentVisitor() = default;
TopLevelContentVisitor::TopLevelContentVisitor(TopLevelContentVisitor const&) = default;
TopLevelContentVisitor& TopLevelContentVisitor::operator=(TopLevelContentVisitor const&) = default;
TopLevelContentVisitor::~TopLevelContentVisitor() = default;

bool TopLevelContentVisitor::Collect(SmartPtr<AbstractFigureItem> const& item) {
    if (item && IsWanted(*item)) items_.push_back(item);
    return false;
}

bool TopLevelContentVisitor::StartGroupVisit(SmartPtr<figk::Group> const& group) {
    return static_cast<bool>(FigureOfLabels(group));
}

bool TopLevelContentVisitor::Visit(SmartPtr<TitleBlock> const& item) {
    return Collect(item);
}

bool TopLevelContentVisitor::Visit(SmartPtr<TextGraphic> const& item) {
    return Collect(item);
}

bool TopLevelContentVisitor::Visit(SmartPtr<TableInstance> const& item) {
    return Collect(item);
}

bool TopLevelContentVisitor::Visit(SmartPtr<SubNet> const& item) {
    return Collect(item);
}

bool TopLevelContentVisitor::Visit(SmartPtr<SubHighway> const& item) {
    return Collect(item);
}

bool TopLevelContentVisitor::Visit(SmartPtr<PortNode> const& item) {
    return Collect(item);
}

bool TopLevelContentVisitor::Visit(SmartPtr<Port> const& item) {
    if (!item) return false;
    for (auto const& node : item->GetPortNodes())
        node->Accept(*this);
    return false;
}

bool TopLevelContentVisitor::Visit(SmartPtr<GenericGraphic> const& item) {
    return Collect(item);
}

bool TopLevelContentVisitor::Visit(SmartPtr<Format> const& item) {
    return Collect(item);
}

bool TopLevelContentVisitor::Visit(SmartPtr<CableInstance> const& item) {
    return Collect(item);
}

bool TopLevelContentVisitor::Visit(SmartPtr<BlockInstance> const& item) {
    return Collect(item);
}

}  // namespace figrep
