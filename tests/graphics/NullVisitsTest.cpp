// Visitors are public: a host may hand them whatever its pointers hold.
#include "GraphicsTestSupport.h"

#include <figrep/ArrowPatternGenerator.h>
#include <figrep/CalcFigureExtentsVisitor.h>
#include <figrep/CrossingPointsVisitor.h>
#include <figrep/SegmentGraphicsGenerator.h>
#include <figrep/TextLabelContainerVisitor.h>
#include <support/NullVisits.h>

namespace figrep {

using namespace testing;

using test::ShowNullItems;
using test::ShowNulls;

TEST(NullVisits, ExtentsStayAsTheyAre) {
    Drawing const drawing;
    LineGraphic(drawing.figure->GetTextLabelContainerGroup(), {0, 0}, {5, 5});
    CalcFigureExtentsVisitor visitor;
    drawing.figure->Accept(visitor);
    ShowNullItems<SubNet, GenericGraphic, TextGraphic>(visitor);
    EXPECT_EQ(visitor.GetFigureExtents(), DBox2D(0, 0, 5, 5));
    auto const bus = Drawing::Bus(drawing.Highway(), {0, 0}, {1, 0});
    EXPECT_TRUE(visitor.StartGroupVisit(bus)) << "a net that isn't there has no walk of its own";
    EXPECT_FALSE(visitor.Visit(SmartPtr<Figure>()));
}

TEST(NullVisits, NoArrowsAndNoCrossingsComeOfThem) {
    Drawing const drawing;
    auto const wire = drawing.LoneWire({0, 0}, {10, 0});
    ArrowPatternGenerator arrows;
    CrossingPointsVisitor crossings(drawing.figure.Get());
    ShowNulls(arrows);
    ShowNulls(crossings);
    EXPECT_FALSE(wire->HasArrows());
    EXPECT_TRUE(CrossingsOf(*wire).empty());
}

TEST(NullVisits, NoPicturesComeOfThem) {
    Drawing const drawing;
    auto const net = drawing.Net();
    SegmentGraphicsGenerator pictures(drawing.figure, true);
    ShowNulls(pictures);
    EXPECT_FALSE(pictures.Visit(SmartPtr<Figure>()));
    EXPECT_TRUE(pictures.Visit(net));
    ShowNullItems<NetSegment, UnroutedConnection>(pictures);
    pictures.VisitComplete(net);
    EXPECT_TRUE(net->IsEmpty());
}

TEST(NullVisits, ListsOfLabelsHoldNone) {
    TextLabelContainerVisitor labels;
    ShowNulls(labels);
    EXPECT_TRUE(labels.GetTextItems().empty());
    EXPECT_TRUE(labels.GetMiscItems().empty());
}

}  // namespace figrep
