#include "GraphicsTestSupport.h"

#include <figrep/ArrowInfo.h>
#include <figrep/ArrowPatternGenerator.h>
#include <figrep/JunctionNode.h>

#include <limits>

namespace figrep {

using namespace testing;

namespace {

using Style = figk::ArrowStyle;

Style StyleOf(Style::PatternType pattern, double spacing = 0.0) {
    return Style(pattern, spacing, Line({-1, 0}, {1, 0})->GetDefinition(), nullptr, false);
}

Points ArrowsOf(Segment const& segment) {
    Points points;
    for (ArrowInfo const& arrow : segment.GetArrows())
        points.push_back(arrow.GetPosition());
    return points;
}

class ArrowTest : public ::testing::Test {
protected:
    void SetUp() override {
        net = drawing.Net();
        generator = new ArrowPatternGenerator;
    }

    void SetStyle(Style const& style) const { Set(*net, Setting::ARROW_STYLE, style); }
    void Run() const { net->Accept(*generator); }

    Drawing drawing;
    SmartPtr<SubNet> net;
    SmartPtr<ArrowPatternGenerator> generator;
};

}  // namespace

TEST_F(ArrowTest, ASubNetWithoutAStyleIsNotWalkedAndGetsNoArrows) {
    auto const wire = Drawing::Wire(net, {0, 0}, {10, 0});
    EXPECT_FALSE(generator->Visit(net));
    Run();
    EXPECT_FALSE(wire->HasArrows());
}

TEST_F(ArrowTest, ASecondPassWithTheSameStyleLeavesTheSubNetAlone) {
    auto const wire = Drawing::Wire(net, {0, 0}, {10, 0});
    SetStyle(StyleOf(Style::PATTERN_SPACED, 4));
    Run();
    EXPECT_FALSE(generator->Visit(net));
    Run();
    EXPECT_EQ(wire->GetArrows().size(), 2U);
}

TEST_F(ArrowTest, AChangedStyleAddsItsArrowsOnEveryPassUntilRemoved) {
    auto const wire = Drawing::Wire(net, {0, 0}, {10, 0});
    SetStyle(StyleOf(Style::PATTERN_SPACED, 4));
    Run();
    SetStyle(StyleOf(Style::PATTERN_SPACED, 5));
    Run();
    EXPECT_EQ(wire->GetArrows().size(), 4U);
    Run();
    EXPECT_EQ(wire->GetArrows().size(), 6U);
    generator->Remove(net);
    Run();
    EXPECT_EQ(wire->GetArrows().size(), 8U);
    Run();
    EXPECT_EQ(wire->GetArrows().size(), 8U);
}

TEST_F(ArrowTest, SpacedArrowsStandAtEverySpacingFromTheStart) {
    auto const wire = Drawing::Wire(net, {0, 0}, {10, 0});
    auto const shortWire = Drawing::Wire(net, {10, 0}, {13, 0}, wire);
    SetStyle(StyleOf(Style::PATTERN_SPACED, 4));
    Run();
    EXPECT_EQ(ArrowsOf(*wire), (Points{{4, 0}, {8, 0}}));
    EXPECT_FALSE(shortWire->HasArrows());
}

TEST_F(ArrowTest, ASpacingOfZeroGivesNone) {
    auto const wire = Drawing::Wire(net, {0, 0}, {10, 0});
    SetStyle(StyleOf(Style::PATTERN_SPACED, 0));
    Run();
    EXPECT_FALSE(wire->HasArrows());
}

TEST_F(ArrowTest, AHairsBreadthOfSpacingGivesNoMoreThanTheLimit) {
    auto const wire = Drawing::Wire(net, {0, 0}, {10, 0});
    SetStyle(StyleOf(Style::PATTERN_SPACED, std::numeric_limits<double>::min()));
    Run();
    EXPECT_EQ(wire->GetArrows().size(), ArrowPatternGenerator::MAX_ARROWS_PER_SEGMENT);
}

TEST_F(ArrowTest, ArrowsPointAlongTheEndsOfTheirWire) {
    auto const wire = Drawing::Wire(net, {0, 0}, {0, 10});
    SetStyle(StyleOf(Style::PATTERN_FRACTION, 0.5));
    Run();
    ASSERT_EQ(wire->GetArrows().size(), 1U);
    EXPECT_DOUBLE_EQ(wire->GetArrows()[0].GetAngle(), 1.5707963267948966);
}

TEST_F(ArrowTest, AnEndArrowStandsOnlyWhereNoWireFollows) {
    auto const head = Drawing::Wire(net, {0, 0}, {10, 0});
    auto const left = Drawing::Wire(net, {10, 0}, {10, 10}, head);
    auto const right = Drawing::Wire(net, {10, 0}, {20, 0}, head);
    SetStyle(StyleOf(Style::PATTERN_END));
    Run();
    EXPECT_FALSE(head->HasArrows());
    EXPECT_EQ(ArrowsOf(*left), (Points{{10, 10}}));
    EXPECT_EQ(ArrowsOf(*right), (Points{{20, 0}}));
}

TEST_F(ArrowTest, AnEndArrowLooksThroughJunctions) {
    auto const head = Drawing::Wire(net, {0, 0}, {10, 0});
    SmartPtr<JunctionNode> const junction(new JunctionNode(Lock(), head));
    auto const next = Drawing::Wire(net, {10, 0}, {20, 0}, junction);
    SetStyle(StyleOf(Style::PATTERN_END));
    Run();
    EXPECT_FALSE(head->HasArrows());
    EXPECT_TRUE(next->HasArrows());
}

TEST_F(ArrowTest, TheCentreOfTwoEqualWiresIsTheFarOnesFirstEnd) {
    auto const head = Drawing::Wire(net, {0, 0}, {10, 0});
    auto const leaf = Drawing::Wire(net, {10, 0}, {20, 0}, head);
    SetStyle(StyleOf(Style::PATTERN_CENTRE));
    Run();
    EXPECT_FALSE(leaf->HasArrows());
    EXPECT_EQ(ArrowsOf(*head), (Points{{10, 0}}));
}

TEST_F(ArrowTest, TheCentreLiesHalfwayFromLeafToHead) {
    auto const head = Drawing::Wire(net, {0, 0}, {0, 4});
    auto const leaf = Drawing::Wire(net, {0, 4}, {10, 4}, head);
    SetStyle(StyleOf(Style::PATTERN_CENTRE));
    Run();
    EXPECT_FALSE(head->HasArrows());
    // 7 of 14 from the leaf's first end, as far as the walk overshoots.
    EXPECT_EQ(ArrowsOf(*leaf), (Points{{3, 4}}));
}

TEST_F(ArrowTest, AFractionOfOneHalfStandsInTheMiddleOfEveryWire) {
    auto const head = Drawing::Wire(net, {0, 0}, {10, 0});
    auto const next = Drawing::Wire(net, {10, 0}, {10, 20}, head);
    SetStyle(StyleOf(Style::PATTERN_FRACTION, 0.5));
    Run();
    EXPECT_EQ(ArrowsOf(*head), (Points{{5, 0}}));
    EXPECT_EQ(ArrowsOf(*next), (Points{{10, 10}}));
}

TEST_F(ArrowTest, TheStartNodeBecomesTheHead) {
    auto const head = Drawing::Wire(net, {0, 0}, {10, 0});
    auto const leaf = Drawing::Wire(net, {10, 0}, {20, 0}, head);
    net->SetStartNode(leaf);
    SetStyle(StyleOf(Style::PATTERN_END));
    Run();
    EXPECT_EQ(net->GetHead(), leaf);
    EXPECT_EQ(ArrowsOf(*head), (Points{{10, 0}}));
}

TEST_F(ArrowTest, AStartSegmentWhoseFirstEndIsAheadStartsAtTheHead) {
    auto const head = Drawing::Wire(net, {0, 0}, {10, 0});
    auto const leaf = Drawing::Wire(net, {10, 0}, {20, 0}, head);
    net->SetStartSegment(leaf);
    SetStyle(StyleOf(Style::PATTERN_END));
    Run();
    EXPECT_EQ(net->GetHead(), head);
}

TEST_F(ArrowTest, AStartSegmentWhoseSecondEndIsAheadStartsAtItsLeaf) {
    auto const head = Drawing::Wire(net, {0, 0}, {10, 0});
    auto const middle = Drawing::Wire(net, {20, 0}, {10, 0}, head);
    auto const leaf = Drawing::Wire(net, {30, 0}, {20, 0}, middle);
    net->SetStartSegment(middle);
    SetStyle(StyleOf(Style::PATTERN_END));
    Run();
    EXPECT_EQ(net->GetHead(), leaf);
}

TEST_F(ArrowTest, AStartSegmentTouchedAtItsSecondEndAloneIsNotTurnedBackAndForth) {
    auto const head = Drawing::Wire(net, {0, 0}, {10, 0});
    auto const middle = Drawing::Wire(net, {15, 0}, {10, 0}, head);
    Drawing::Wire(net, {10, 0}, {10, 10}, middle);
    net->SetStartSegment(middle);
    SetStyle(StyleOf(Style::PATTERN_END));
    Run();
    EXPECT_EQ(net->GetHead(), head);
}

TEST_F(ArrowTest, HighwaysHaveNoArrows) {
    auto const highway = drawing.Highway();
    auto const bus = Drawing::Bus(highway, {0, 0}, {10, 0});
    Set(*highway, Setting::ARROW_STYLE, StyleOf(Style::PATTERN_SPACED, 1));
    EXPECT_FALSE(generator->Visit(highway));
    highway->Accept(*generator);
    EXPECT_FALSE(bus->HasArrows());
}

TEST_F(ArrowTest, AFigureMovesArrowsWithTheirWire) {
    auto const wire = Drawing::Wire(net, {0, 0}, {10, 0});
    SetStyle(StyleOf(Style::PATTERN_SPACED, 4));
    drawing.Draw();
    EXPECT_EQ(ArrowsOf(*wire), (Points{{4, 0}, {8, 0}}));
    wire->MoveItem(0, 5);
    drawing.figure->UpdateContent();
    EXPECT_EQ(ArrowsOf(*wire), (Points{{4, 5}, {8, 5}}));
}

TEST_F(ArrowTest, AFigureReplacesTheArrowsOfAnotherStyle) {
    auto const wire = Drawing::Wire(net, {0, 0}, {10, 0});
    SetStyle(StyleOf(Style::PATTERN_SPACED, 4));
    drawing.Draw();
    SetStyle(StyleOf(Style::PATTERN_END));
    drawing.Draw();
    drawing.Draw();
    EXPECT_EQ(ArrowsOf(*wire), (Points{{10, 0}}));
    net->RemoveSetting(Setting::ARROW_STYLE, FIGURE_LEVEL);
    drawing.Draw();
    EXPECT_FALSE(wire->HasArrows());
}

TEST_F(ArrowTest, NullIsForgottenWithoutHarm) {
    generator->Remove(nullptr);
    generator->ForgetChanged();
    generator->Reset();
    EXPECT_FALSE(generator->Visit(net));
}

}  // namespace figrep
