#include <figk/AbstractVisitor.h>

#include <figk/BlockInstance.h>
#include <figk/CableInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/ConnectorInstanceNode.h>
#include <figk/Design.h>
#include <figk/Format.h>
#include <figk/GenericGraphic.h>
#include <figk/Highway.h>
#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/JunctionNode.h>
#include <figk/Miscellaneous.h>
#include <figk/Net.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figk/TableInstance.h>
#include <figk/TextGraphic.h>
#include <figk/TitleBlock.h>

namespace figk {

AbstractVisitor::AbstractVisitor() = default;
AbstractVisitor::AbstractVisitor(AbstractVisitor const&) = default;
AbstractVisitor::~AbstractVisitor() = default;

bool AbstractVisitor::EndGroupVisit(SmartPtr<Group> const&) {
    return true;
}
bool AbstractVisitor::StartGroupVisit(SmartPtr<Group> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<TitleBlock> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<TextGraphic> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<TableInstance> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<SubNet> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<SubHighway> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<Sheet> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<SchematicKernel> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<PortNode> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<Port> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<NetSegment> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<Net> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<Miscellaneous> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<HighwaySegment> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<HighwayNode> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<JunctionNode> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<Highway> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<GenericGraphic> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<Format> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<Design> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<ConnectorInstanceNode> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<ConnectorInstance> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<CableInstance> const&) {
    return true;
}
bool AbstractVisitor::Visit(SmartPtr<BlockInstance> const&) {
    return true;
}
bool AbstractVisitor::VisitTextLabelContainer(SmartPtr<TextLabelContainer> const&) {
    return true;
}

}  // namespace figk
