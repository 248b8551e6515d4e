#include <figrep/AbstractFigureVisitor.h>

#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/JunctionNode.h>
#include <figrep/Miscellaneous.h>
#include <figrep/NetSegment.h>
#include <figrep/PickGraphicProxy.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainer.h>
#include <figrep/TitleBlock.h>
#include <figrep/UnroutedConnection.h>

namespace figrep {

AbstractFigureVisitor::AbstractFigureVisitor() = default;
AbstractFigureVisitor::AbstractFigureVisitor(AbstractFigureVisitor const&) = default;
AbstractFigureVisitor& AbstractFigureVisitor::operator=(AbstractFigureVisitor const&) = default;
AbstractFigureVisitor::~AbstractFigureVisitor() = default;

bool AbstractFigureVisitor::StartGroupVisit(SmartPtr<figk::Group> const&) {
    return true;
}
bool AbstractFigureVisitor::EndGroupVisit(SmartPtr<figk::Group> const&) {
    return true;
}

bool AbstractFigureVisitor::Visit(SmartPtr<UnroutedConnection> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<TitleBlock> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<TextGraphic> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<TableInstance> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<SubNet> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<SubHighway> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<PortNode> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<Port> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<PickGraphicProxy> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<NetSegment> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<Miscellaneous> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<HighwaySegment> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<HighwayNode> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<JunctionNode> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<GenericGraphic> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<Format> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<Figure> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<ConnectorInstanceNode> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<ConnectorInstance> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<CableInstance> const&) {
    return true;
}
bool AbstractFigureVisitor::Visit(SmartPtr<BlockInstance> const&) {
    return true;
}

void AbstractFigureVisitor::VisitComplete(SmartPtr<TitleBlock> const&) {}
void AbstractFigureVisitor::VisitComplete(SmartPtr<SubNet> const&) {}
void AbstractFigureVisitor::VisitComplete(SmartPtr<SubHighway> const&) {}
void AbstractFigureVisitor::VisitComplete(SmartPtr<Figure> const&) {}
void AbstractFigureVisitor::VisitComplete(SmartPtr<ConnectorInstance> const&) {}

bool AbstractFigureVisitor::VisitTextLabelContainer(SmartPtr<TextLabelContainer> const&) {
    return true;
}

}  // namespace figrep
