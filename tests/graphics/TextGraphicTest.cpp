#include "GraphicsTestSupport.h"

#include <figrep/TextLabelContainerVisitor.h>
#include <zv2d/Text.h>

#include <numbers>

namespace figrep {

using namespace testing;

namespace {

SmartPtr<TextGraphic> Text(std::string const& text, SmartPtr<figk::Group> const& group = nullptr) {
    return TextGraphic::Create(Lock(), Symbol(text), group);
}

/// The colour that a text names, black when it names none.
Color Named(std::string const& text) {
    Color color = Color::BLACK;
    return Text(text)->GetColorFromText(color) ? color : Color::BLACK;
}

/// The matrix of the label that a wire between two points draws.
DMat33 LabelMatrix(DPoint2D const& from, DPoint2D const& to) {
    Drawing const drawing;
    auto const wire = drawing.LoneWire(from, to);
    auto const label = Text("label", wire->GetTextLabelContainerGroup());
    return label->GetZv2dGraphics()->GetInstances().at(0)->GetMatrix();
}

bool IsTurned(DMat33 const& matrix) {
    DMat33 plain;
    plain.SetTranslation(matrix.GetTranslation());
    return !(matrix == plain);
}

constexpr double OFFSET = 0.8466666539510092;

}  // namespace

TEST(TextGraphic, UpperCaseAndLongerWordsNameNoColour) {
    Color color = Color::BLACK;
    EXPECT_FALSE(Text("RED")->GetColorFromText(color));
    EXPECT_FALSE(Text("redline")->GetColorFromText(color));
    EXPECT_EQ(color, Color::BLACK);
}

TEST(TextGraphic, TheFirstColourWordDecides) {
    EXPECT_EQ(Named("net red"), Color::RED);
    EXPECT_EQ(Named("blue red"), Color::BLUE);
    EXPECT_EQ(Named("  gn  rd "), Color::GREEN);
    EXPECT_EQ(Named("yw"), Color::YELLOW);
    EXPECT_EQ(Named("magenta"), Color::MAGENTA);
    EXPECT_EQ(Named("mt"), Color::MAGENTA);
    EXPECT_EQ(Named("cyan"), Color::CYAN);
    EXPECT_EQ(Named("cn"), Color::CYAN);
}

TEST(TextGraphic, AnEmptyTextNamesNoColour) {
    Color color;
    EXPECT_FALSE(Text("")->GetColorFromText(color));
    EXPECT_FALSE(Text("   ")->GetColorFromText(color));
}

TEST(TextGraphic, ALabelOnAVerticalWireIsTurnedByARightAngle) {
    DMat33 const matrix = LabelMatrix({5, 0}, {5, 10});
    EXPECT_NEAR(matrix(0, 0), 0, 1e-15);
    EXPECT_NEAR(matrix(1, 0), 1, 1e-15);
    EXPECT_EQ(matrix.GetTranslation(), DPoint2D(5 + OFFSET, 5));
}

TEST(TextGraphic, AWireFromTopToBottomReadsTheSameWay) {
    EXPECT_NEAR(LabelMatrix({5, 10}, {5, 0})(1, 0), 1, 1e-12);
}

TEST(TextGraphic, AWireFromRightToLeftCountsAsHorizontal) {
    DMat33 const matrix = LabelMatrix({10, 0}, {0, 0});
    EXPECT_FALSE(IsTurned(matrix));
    EXPECT_EQ(matrix.GetTranslation(), DPoint2D(5, -OFFSET));
}

TEST(TextGraphic, AWireAtASmallAngleCountsAsHorizontal) {
    EXPECT_FALSE(IsTurned(LabelMatrix({0, 0}, {10 * std::cos(0.09), 10 * std::sin(0.09)})));
    EXPECT_TRUE(IsTurned(LabelMatrix({0, 0}, {10 * std::cos(0.11), 10 * std::sin(0.11)})));
}

TEST(TextGraphic, ALabelsBoxFollowsItsCharactersAndNotItsBytes) {
    Drawing const drawing;
    auto const wire = drawing.LoneWire({0, 0}, {10, 0});
    auto const label = Text("\xC3\xA4\xC3\xB6", wire->GetTextLabelContainerGroup());
    auto const instance = label->GetZv2dGraphics()->GetInstances().at(0);
    DBox2D const box = instance->GetDefinition()->GetExtents();
    EXPECT_EQ(box, DBox2D(-2.5399999618530273, 0, 2.5399999618530273, 2.5399999618530273));
}

TEST(TextGraphic, ALabelWhoseOwnerIsNoSegmentHasNoGraphics) {
    Drawing const drawing;
    auto const label = Text("note", drawing.figure->GetTextLabelContainerGroup());
    EXPECT_FALSE(label->GetZv2dGraphics());
    EXPECT_FALSE(Text("free")->GetZv2dGraphics());
}

TEST(TextGraphic, ATextColourOfTheLowestLevelBeatsAnyColour) {
    auto const text = Text("a");
    Set(*text, Setting::TEXT_COLOR, Color::GREEN, figk::Setting::LEVEL_DEFAULT);
    Set(*text, Setting::COLOR, Color::RED, FIGURE_LEVEL);
    Color color;
    EXPECT_TRUE(text->GetColorFromSettings(color));
    EXPECT_EQ(color, Color::GREEN);
}

TEST(TextGraphic, ALineColourCountsOnlyAboveTheColour) {
    auto const text = Text("a");
    Color color;
    EXPECT_FALSE(text->GetColorFromSettings(color));
    Set(*text, Setting::LINE_COLOR, Color::BLUE, figk::Setting::LEVEL_PROFILE);
    EXPECT_TRUE(text->GetColorFromSettings(color));
    EXPECT_EQ(color, Color::BLUE);
    Set(*text, Setting::COLOR, Color::RED, figk::Setting::LEVEL_PROFILE);
    EXPECT_TRUE(text->GetColorFromSettings(color));
    EXPECT_EQ(color, Color::RED);
    Set(*text, Setting::LINE_COLOR, Color::BLUE, FIGURE_LEVEL);
    EXPECT_TRUE(text->GetColorFromSettings(color));
    EXPECT_EQ(color, Color::BLUE);
}

TEST(TextGraphic, ATextOnTheFigureIsNamedByItsText) {
    Drawing const drawing;
    EXPECT_EQ(Text("note", drawing.figure->GetTextLabelContainerGroup())->GetName(), "note");
    auto const wire = drawing.LoneWire({0, 0}, {10, 0});
    EXPECT_EQ(Text("label", wire->GetTextLabelContainerGroup())->GetName(), "");
}

TEST(TextGraphic, WithoutAKernelRecordItHasNoId) {
    EXPECT_TRUE(Text("a")->GetId().IsEmpty());
}

TEST(TextGraphic, AReadyInstanceSuppliesTheText) {
    SmartPtr<zv2d::Definition> const definition(new zv2d::Definition);
    definition->Add(new zv2d::Text(DPoint2D(), L"ready", false, zv2d::Text::BOTTOM_LEFT, false));
    SmartPtr<zv2d::Instance> const instance(new zv2d::Instance(definition));
    auto const text = TextGraphic::Create(Lock(), instance, nullptr);
    EXPECT_EQ(text->GetText().GetString(), "ready");
    EXPECT_TRUE(text->GetZv2dGraphics());
}

// Containers.

TEST(TextLabelContainer, MakesItsGroupWhenFirstAskedForIt) {
    Drawing const drawing;
    auto const wire = drawing.LoneWire({0, 0}, {10, 0});
    EXPECT_FALSE(wire->HasTextLabels());
    auto const group = wire->GetTextLabelContainerGroup();
    ASSERT_TRUE(group);
    EXPECT_EQ(group, wire->GetTextLabelContainerGroup());
    EXPECT_FALSE(wire->HasTextLabels());
    Text("a", group);
    EXPECT_TRUE(wire->HasTextLabels());
    wire->ClearTextContainer();
    EXPECT_FALSE(wire->HasTextLabels());
}

TEST(TextLabelContainer, TransformsReachTheLabels) {
    Drawing const drawing;
    auto const wire = drawing.LoneWire({0, 0}, {10, 0});
    auto const label = LineGraphic(wire->GetTextLabelContainerGroup(), {0, 0}, {2, 1});
    wire->MoveText(1, 1);
    EXPECT_EQ(label->GetExtents(), DBox2D(1, 1, 3, 2));
    wire->MirrorText({0, 0}, false);
    EXPECT_EQ(label->GetExtents(), DBox2D(-3, 1, -1, 2));
    wire->SetTextHighlight(true);
    EXPECT_TRUE(label->GetHighlight());
    wire->SetTextVisibility(false);
    EXPECT_FALSE(label->GetVisible());
}

TEST(TextLabelContainer, ALabelInheritsFromTheItemThatHoldsIt) {
    Drawing const drawing;
    auto const wire = drawing.LoneWire({0, 0}, {10, 0});
    auto const label = Text("a", wire->GetTextLabelContainerGroup());
    Set(*wire, Setting::COLOR, Color::MAGENTA);
    Color color;
    EXPECT_TRUE(label->GetColorFromSettings(color));
    EXPECT_EQ(color, Color::MAGENTA);
}

TEST(TextLabelContainer, AGroupThatOutlivesItsContainerForgetsIt) {
    SmartPtr<TextLabelContainerGroup> group;
    {
        Drawing const drawing;
        group = drawing.figure->GetTextLabelContainerGroup();
    }
    EXPECT_FALSE(group->GetTextLabelContainer());
    EXPECT_FALSE(Text("a", group)->GetZv2dGraphics());
}

TEST(TextLabelContainer, AddingNullDoesNothing) {
    Drawing const drawing;
    drawing.figure->Add(nullptr);
    EXPECT_FALSE(drawing.figure->HasTextLabels());
}

// Sorting what a group holds.

namespace {

struct Sorted {
    std::size_t texts;
    std::size_t others;
};

Sorted Sort(GraphicGroup& group) {
    TextLabelContainerVisitor visitor;
    group.Accept(visitor);
    return {visitor.GetTextItems().size(), visitor.GetMiscItems().size()};
}

}  // namespace

TEST(TextLabelContainerVisitor, AGroupWithATextAndAPictureIsOneOtherItem) {
    auto const group = FreeGroup();
    Text("a", group);
    LineGraphic(group);
    LineGraphic(group);
    Sorted const sorted = Sort(*group);
    EXPECT_EQ(sorted.texts, 0U);
    EXPECT_EQ(sorted.others, 1U);
}

TEST(TextLabelContainerVisitor, AGroupWithTextsAloneIsOneText) {
    auto const group = FreeGroup();
    Text("a", group);
    Text("b", group);
    Sorted const sorted = Sort(*group);
    EXPECT_EQ(sorted.texts, 1U);
    EXPECT_EQ(sorted.others, 0U);
}

TEST(TextLabelContainerVisitor, AGroupOfPicturesAloneIsNotToldAtAll) {
    auto const group = FreeGroup();
    LineGraphic(group);
    Sorted const sorted = Sort(*group);
    EXPECT_EQ(sorted.texts, 0U);
    EXPECT_EQ(sorted.others, 0U);
}

TEST(TextLabelContainerVisitor, WhatStandsInALabelGroupItselfIsToldOneByOne) {
    Drawing const drawing;
    auto const labels = drawing.figure->GetTextLabelContainerGroup();
    Text("a", labels);
    Text("b", labels);
    LineGraphic(labels);
    SmartPtr<GraphicGroup> const nested(new GraphicGroup(labels));
    Text("c", nested);
    Sorted const sorted = Sort(*labels);
    EXPECT_EQ(sorted.texts, 3U);
    EXPECT_EQ(sorted.others, 1U);
}

}  // namespace figrep
