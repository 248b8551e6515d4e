#include "GraphicsTestSupport.h"

#include <figrep/CalcFigureExtentsVisitor.h>

namespace figrep {

using namespace testing;

TEST(FigureExtents, AnEmptyFiguresExtentsAreEmpty) {
    Drawing const drawing;
    EXPECT_EQ(drawing.figure->GetExtents(), DBox2D::EMPTY);
    LineGraphic(drawing.figure->GetTextLabelContainerGroup(), {0, 0}, {5, 5});
    EXPECT_EQ(drawing.figure->GetExtents(), DBox2D(0, 0, 5, 5));
}

TEST(FigureExtents, ASecondCallDoesNotWalkTheFigureAgain) {
    Drawing const drawing;
    LineGraphic(drawing.figure->GetTextLabelContainerGroup(), {0, 0}, {5, 5});
    EXPECT_EQ(drawing.figure->GetExtents(), DBox2D(0, 0, 5, 5));
    LineGraphic(drawing.figure->GetTextLabelContainerGroup(), {0, 0}, {9, 9});
    EXPECT_EQ(drawing.figure->GetExtents(), DBox2D(0, 0, 5, 5));
    drawing.figure->SetExtents(DBox2D::EMPTY);
    EXPECT_EQ(drawing.figure->GetExtents(), DBox2D(0, 0, 9, 9));
}

TEST(FigureExtents, AskingDrawsPendingWiresFirst) {
    Drawing const drawing;
    drawing.LoneWire({-3, 2}, {10, 2});
    EXPECT_EQ(drawing.figure->GetExtents(), DBox2D(-3, 2, 10, 2));
}

TEST(FigureExtents, PickProxiesCountForNothing) {
    Drawing const drawing;
    PickGraphicProxy::Create(Lock(), drawing.figure->GetTextLabelContainerGroup(), {0, 0},
                             {50, 50});
    EXPECT_EQ(drawing.figure->GetExtents(), DBox2D::EMPTY);
}

TEST(FigureExtents, AHighwayMetOnANetsWalkIsNotEntered) {
    Drawing const drawing;
    auto const bus = Drawing::Bus(drawing.Highway(), {0, 0}, {10, 0});
    auto const net = drawing.Net();
    CalcFigureExtentsVisitor visitor;
    EXPECT_TRUE(visitor.StartGroupVisit(bus));
    EXPECT_TRUE(visitor.Visit(net));
    EXPECT_FALSE(visitor.StartGroupVisit(bus));
    EXPECT_TRUE(visitor.StartGroupVisit(FreeGroup()));
    visitor.VisitComplete(net);
    EXPECT_TRUE(visitor.StartGroupVisit(bus));
}

TEST(FigureExtents, HiddenGraphicsCount) {
    Drawing const drawing;
    auto const graphic = LineGraphic(drawing.figure->GetTextLabelContainerGroup(), {0, 0}, {5, 5});
    graphic->SetMemberVisibility(false);
    EXPECT_EQ(drawing.figure->GetExtents(), DBox2D(0, 0, 5, 5));
}

}  // namespace figrep
