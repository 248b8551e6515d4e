// What a host may hand to visitors: whatever its pointers hold.
#pragma once

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
#include <figrep/TitleBlock.h>
#include <figrep/UnroutedConnection.h>

namespace figrep::test {

template <class... Items>
void ShowNullItems(AbstractFigureVisitor& visitor) {
    (visitor.Visit(SmartPtr<Items>()), ...);
}

/// A null of each kind of item and group.
inline void ShowNulls(AbstractFigureVisitor& visitor) {
    visitor.StartGroupVisit(nullptr);
    ShowNullItems<Figure, BlockInstance, CableInstance, ConnectorInstance, ConnectorInstanceNode,
                  Format, GenericGraphic, HighwayNode, HighwaySegment, JunctionNode, Miscellaneous,
                  NetSegment, PickGraphicProxy, Port, PortNode, SubHighway, SubNet, TableInstance,
                  TextGraphic, TitleBlock, UnroutedConnection>(visitor);
    visitor.VisitTextLabelContainer(nullptr);
    visitor.VisitComplete(SmartPtr<SubNet>());
    visitor.VisitComplete(SmartPtr<SubHighway>());
    visitor.VisitComplete(SmartPtr<Figure>());
    visitor.EndGroupVisit(nullptr);
}

}  // namespace figrep::test
