// Visitors are public: a host may hand them whatever its pointers hold.
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/DebugConnectivityVisitor.h>
#include <figrep/DebugSettingsVisitor.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemsVisitor.h>
#include <figrep/FindFigurePortVisitor.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/GetFigureContentVisitor.h>
#include <figrep/GetHiddenContentVisitor.h>
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
#include <figrep/TidyJunctionsVisitor.h>
#include <figrep/TitleBlock.h>
#include <figrep/UnroutedConnection.h>
#include <gtest/gtest.h>

#include <sstream>

namespace figrep {
namespace {

template <class... Items>
void ShowNullItems(AbstractFigureVisitor& visitor) {
    (visitor.Visit(SmartPtr<Items>()), ...);
}

void ShowNulls(AbstractFigureVisitor& visitor) {
    visitor.StartGroupVisit(nullptr);
    ShowNullItems<Figure, BlockInstance, CableInstance, ConnectorInstance, ConnectorInstanceNode,
                  Format, GenericGraphic, HighwayNode, HighwaySegment, JunctionNode, Miscellaneous,
                  NetSegment, PickGraphicProxy, Port, PortNode, SubHighway, SubNet, TableInstance,
                  TextGraphic, TitleBlock, UnroutedConnection>(visitor);
    visitor.VisitTextLabelContainer(nullptr);
    visitor.EndGroupVisit(nullptr);
}

using Items = std::vector<SmartPtr<AbstractFigureItem>>;

TEST(NullVisits, NothingIsCollected) {
    Items items;
    FigureItemsVisitor all(items);
    all.SetCollectPorts(true);
    ShowNulls(all);
    all.SetCollectSubItems(false);
    ShowNulls(all);
    EXPECT_TRUE(items.empty());

    GetFigureContentVisitor content;
    ShowNulls(content);
    content.TakeFigureContent(items);
    EXPECT_TRUE(items.empty());

    GetHiddenContentVisitor hidden;
    ShowNulls(hidden);
    hidden.TakeHiddenContent(items);
    EXPECT_TRUE(items.empty());
}

TEST(NullVisits, NoPortIsFound) {
    FindFigurePortVisitor visitor;
    visitor.SetFigureName(Symbol("F"));
    ShowNulls(visitor);
    EXPECT_FALSE(visitor.Find({}, Symbol("p")));
}

TEST(NullVisits, NothingIsWritten) {
    std::ostringstream out;
    DebugConnectivityVisitor connectivity(out);
    ShowNulls(connectivity);
    connectivity.SetSubNet({});
    ShowNulls(connectivity);
    DebugSettingsVisitor settings(out);
    ShowNulls(settings);
    EXPECT_EQ(out.str(), "");
}

TEST(NullVisits, NothingIsTidied) {
    TidyJunctionsVisitor visitor;
    ShowNulls(visitor);
    visitor.Tidy();
}

}  // namespace
}  // namespace figrep
