#include <figrep/FigureItemsVisitor.h>

#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/GenericGraphic.h>
#include <figrep/Miscellaneous.h>
#include <figrep/Port.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>

namespace figrep {

FigureItemsVisitor::FigureItemsVisitor(Items& items) : items_(items) {}
FigureItemsVisitor::~FigureItemsVisitor() = default;

bool FigureItemsVisitor::Visit(SmartPtr<BlockInstance> const& item) {
    if (item && (collectSubItems_ || !item->GetParent())) items_.push_back(item);
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<CableInstance> const& item) {
    if (item && (collectSubItems_ || !item->GetParent())) items_.push_back(item);
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<SubNet> const& item) {
    if (item && (collectSubItems_ || !item->GetCable())) items_.push_back(item);
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<SubHighway> const& item) {
    if (item) items_.push_back(item);
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<TableInstance> const& item) {
    if (item) items_.push_back(item);
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<Miscellaneous> const& item) {
    if (item) items_.push_back(item);
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<Port> const& item) {
    if (item && collectPorts_) items_.push_back(item);
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<TextGraphic> const& item) {
    if (item) items_.push_back(item);
    return true;
}

bool FigureItemsVisitor::Visit(SmartPtr<GenericGraphic> const& item) {
    if (item) items_.push_back(item);
    return true;
}

bool FigureItemsVisitor::Visit(SmartPtr<ConnectorInstance> const&) {
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<Format> const&) {
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<HighwaySegment> const&) {
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<NetSegment> const&) {
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<PortNode> const&) {
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<TitleBlock> const&) {
    return false;
}

bool FigureItemsVisitor::Visit(SmartPtr<UnroutedConnection> const&) {
    return false;
}

bool FigureItemsVisitor::VisitTextLabelContainer(SmartPtr<TextLabelContainer> const& container) {
    return container && container->GetTextOwnerId().IsEmpty();
}

}  // namespace figrep
