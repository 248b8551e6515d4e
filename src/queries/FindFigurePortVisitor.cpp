#include <figrep/FindFigurePortVisitor.h>

#include <figk/PortNode.h>
#include <figrep/Figure.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <figrep/SubNet.h>

#include <algorithm>

namespace figrep {

FindFigurePortVisitor::FindFigurePortVisitor() = default;
FindFigurePortVisitor::FindFigurePortVisitor(FindFigurePortVisitor const&) = default;
FindFigurePortVisitor& FindFigurePortVisitor::operator=(FindFigurePortVisitor const&) = default;
FindFigurePortVisitor::~FindFigurePortVisitor() = default;

SmartPtr<AbstractFigureItem> const& FindFigurePortVisitor::Find(SmartPtr<Figure> const& figure,
                                                                Symbol const& id) {
    format_ = figure ? figure->GetFormat() : SmartPtr<Format>();
    target_ = id;
    foundItem_.Reset();
    if (figure) figure->Accept(*this);
    return foundItem_;
}

SmartPtr<SubNet> FindFigurePortVisitor::FindSubNetOnPortNode(SmartPtr<PortNode> const& portNode,
                                                             std::string const& name) {
    if (!portNode) return {};
    auto const port = portNode->GetPort();
    if (!port || !port->OnHighwayNotNet()) return portNode->GetSubNet();
    auto const subNets = portNode->GetHighwaySubNets();
    auto const found = std::find_if(subNets.begin(), subNets.end(), [&](auto const& subNet) {
        return subNet && subNet->GetName() == name;
    });
    return found == subNets.end() ? SmartPtr<SubNet>() : *found;
}

bool FindFigurePortVisitor::Visit(SmartPtr<SubNet> const&) {
    onHighway_ = false;
    return true;
}

bool FindFigurePortVisitor::Visit(SmartPtr<SubHighway> const&) {
    onHighway_ = true;
    return true;
}

bool FindFigurePortVisitor::Visit(SmartPtr<PortNode> const& node) {
    auto const port = node ? node->GetPort() : SmartPtr<Port>();
    if (port && (onHighway_ || !port->OnHighwayNotNet())) LookAt(*node, *port);
    return !foundItem_;
}

void FindFigurePortVisitor::LookAt(PortNode& node, Port const& port) {
    auto const record = node.GetKernelPortNode();
    if (!record) return;
    Symbol const id = record->GetId();
    if (node.IsVisible() && !target_.IsEmpty() && id == target_) foundItem_ = &node;
    if (!figureName_.IsEmpty()) AddToRepresentation(node, port, id);
}

void FindFigurePortVisitor::AddToRepresentation(PortNode& node, Port const& port,
                                                Symbol const& kernelId) const {
    Symbol column;
    Symbol row;
    if (format_) format_->CalculateGridLocation(node.GetPosition(), column, row);
    SchematicRepresentation::GetSingleton()->PortAddFigureDetail(port.GetId(), figureName_,
                                                                 kernelId, &node, column, row);
}

bool FindFigurePortVisitor::Visit(SmartPtr<BlockInstance> const&) {
    return false;
}

bool FindFigurePortVisitor::Visit(SmartPtr<CableInstance> const&) {
    return false;
}

bool FindFigurePortVisitor::Visit(SmartPtr<ConnectorInstance> const&) {
    return false;
}

bool FindFigurePortVisitor::Visit(SmartPtr<Format> const&) {
    return false;
}

bool FindFigurePortVisitor::Visit(SmartPtr<GenericGraphic> const&) {
    return false;
}

bool FindFigurePortVisitor::Visit(SmartPtr<Miscellaneous> const&) {
    return false;
}

bool FindFigurePortVisitor::Visit(SmartPtr<TextGraphic> const&) {
    return false;
}

bool FindFigurePortVisitor::Visit(SmartPtr<TitleBlock> const&) {
    return false;
}

}  // namespace figrep
