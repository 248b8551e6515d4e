#include "GraphicsTestSupport.h"

#include <figrep/Format.h>
#include <zv2d/Texture.h>

#include <limits>

namespace figrep {

using namespace testing;

namespace {

/// Writes down the order in which a walk meets groups and graphics.
class Recorder : public AbstractFigureVisitor {
public:
    explicit Recorder(bool enter = true) : enter_(enter) {}

    bool StartGroupVisit(SmartPtr<figk::Group> const&) override {
        lines += "(";
        return enter_;
    }
    bool EndGroupVisit(SmartPtr<figk::Group> const&) override {
        lines += ")";
        return true;
    }
    bool Visit(SmartPtr<GenericGraphic> const&) override {
        lines += "g";
        return true;
    }
    bool Visit(SmartPtr<TextGraphic> const&) override {
        lines += "t";
        return true;
    }
    using AbstractFigureVisitor::Visit;

    std::string lines;

private:
    bool enter_;
};

ConstSmartPtr<zv2d::Texture> Hatching() {
    return new zv2d::Texture(Symbol("hatching"));
}

void SetTexture(SettingList& list, int level) {
    Set<ConstSmartPtr<zv2d::Texture>>(list, Setting::TEXTURE, Hatching(), level);
}

}  // namespace

TEST(GraphicGroup, ANestedGroupPassesAHighlightToMembersAtAllDepths) {
    auto const outer = FreeGroup();
    SmartPtr<GraphicGroup> const middle(new GraphicGroup(outer));
    SmartPtr<GraphicGroup> const inner(new GraphicGroup(middle));
    auto const shallow = LineGraphic(outer);
    auto const deep = LineGraphic(inner);
    outer->SetMemberHighlight(true);
    EXPECT_TRUE(shallow->GetHighlight());
    EXPECT_TRUE(deep->GetHighlight());
    outer->SetMemberVisibility(false);
    EXPECT_FALSE(deep->GetVisible());
}

TEST(GraphicGroup, MovingAGroupEmptiesItsExtentsAndThoseOfTheGroupsAbove) {
    auto const outer = FreeGroup();
    SmartPtr<GraphicGroup> const inner(new GraphicGroup(outer));
    LineGraphic(inner, {0, 0}, {2, 1});
    EXPECT_EQ(outer->GetMemberExtents(), DBox2D(0, 0, 2, 1));
    inner->MoveGraphics(10, 0);
    EXPECT_EQ(inner->GetMemberExtents(), DBox2D(10, 0, 12, 1));
    EXPECT_EQ(outer->GetMemberExtents(), DBox2D(10, 0, 12, 1));
}

TEST(GraphicGroup, ExtentsFollowMembersThatComeGoOrAreTransformedAlone) {
    auto const group = FreeGroup();
    auto const first = LineGraphic(group, {0, 0}, {1, 0});
    EXPECT_EQ(group->GetMemberExtents(), DBox2D(0, 0, 1, 0));
    auto const second = LineGraphic(group, {5, 0}, {6, 0});
    EXPECT_EQ(group->GetMemberExtents(), DBox2D(0, 0, 6, 0));
    second->MoveItem(1, 0);
    EXPECT_EQ(group->GetMemberExtents(), DBox2D(0, 0, 7, 0));
    EXPECT_TRUE(group->Erase(second));
    EXPECT_EQ(group->GetMemberExtents(), DBox2D(0, 0, 1, 0));
    group->Clear();
    EXPECT_EQ(group->GetMemberExtents(), DBox2D::EMPTY);
}

TEST(GraphicGroup, InsertingAPresentMemberDoesNothing) {
    auto const group = FreeGroup();
    auto const graphic = LineGraphic(group);
    group->Insert(graphic);
    EXPECT_EQ(MembersOf<GenericGraphic>(*group).size(), 1U);
}

TEST(GraphicGroup, InsertingAMemberOfAnotherGroupMovesIt) {
    auto const from = FreeGroup();
    auto const to = FreeGroup();
    auto const graphic = LineGraphic(from);
    EXPECT_FALSE(from->GetMemberExtents().IsEmpty());
    to->Insert(graphic);
    EXPECT_TRUE(from->IsEmpty());
    EXPECT_EQ(graphic->GetOwner(), to);
    EXPECT_TRUE(from->GetMemberExtents().IsEmpty());
    EXPECT_FALSE(to->GetMemberExtents().IsEmpty());
}

TEST(GraphicGroup, AMemberOutlivesItsGroup) {
    SmartPtr<GenericGraphic> graphic;
    {
        auto const group = FreeGroup();
        graphic = LineGraphic(group);
    }
    EXPECT_FALSE(graphic->GetOwner());
    graphic->SetHighlight(true);
    EXPECT_FALSE(graphic->GetHighlight());
}

TEST(GraphicGroup, IsVisitedBetweenStartAndEndAlsoWhenItIsNotEntered) {
    auto const outer = FreeGroup();
    LineGraphic(outer);
    SmartPtr<GraphicGroup> const inner(new GraphicGroup(outer));
    LineGraphic(inner);
    Recorder all;
    outer->Accept(all);
    EXPECT_EQ(all.lines, "(g(g))");
    Recorder none(false);
    outer->Accept(none);
    EXPECT_EQ(none.lines, "()");
}

TEST(GraphicGroup, SettingFromContentNeverComesFromTheExcludedMember) {
    auto const group = FreeGroup();
    auto const asking = LineGraphic(group);
    auto const other = LineGraphic(group);
    Set(*asking, Setting::COLOR, Color::RED);
    unsigned depth = 0;
    EXPECT_FALSE(group->GetSettingFromContent(asking, Setting::COLOR, depth));
    Set(*other, Setting::COLOR, Color::BLUE);
    auto const found = group->GetSettingFromContent(asking, Setting::COLOR, depth);
    ASSERT_TRUE(found);
    auto const value = du::DynamicCast<figk::SettingValue<Color>>(found->GetBaseValue());
    EXPECT_EQ(value->value, Color::BLUE);
}

TEST(GraphicGroup, AGraphicInheritsFromTheItemWhoseGroupItStandsIn) {
    Drawing const drawing;
    auto const wire = drawing.LoneWire({0, 0}, {10, 0});
    SmartPtr<GraphicGroup> const inner(new GraphicGroup(wire));
    auto const graphic = LineGraphic(inner);
    Set(*wire->GetSubNet(), Setting::COLOR, Color::GREEN);
    Color color;
    EXPECT_TRUE(graphic->GetColorSetting(Setting::COLOR, color));
    EXPECT_EQ(color, Color::GREEN);
}

TEST(GraphicGroup, AFreeTextTakesTheLookOfItsNeighbours) {
    Drawing const drawing;
    SmartPtr<GraphicGroup> const group(
        new GraphicGroup(drawing.figure->GetTextLabelContainerGroup()));
    auto const neighbour = LineGraphic(group);
    Set(*neighbour, Setting::COLOR, Color::CYAN);
    auto const text = TextGraphic::Create(Lock(), Symbol("note"), group);
    Color color;
    EXPECT_TRUE(text->GetColorSetting(Setting::COLOR, color));
    EXPECT_EQ(color, Color::CYAN);
}

// Generic graphics.

TEST(GenericGraphic, BlackLinesByDefaultLeaveTheChoiceToTheColour) {
    auto const graphic = LineGraphic(nullptr);
    Set(*graphic, Setting::LINE_COLOR, Color::BLACK, figk::Setting::LEVEL_DEFAULT);
    Set(*graphic, Setting::COLOR, Color::RED);
    Color color;
    EXPECT_TRUE(graphic->GetColorFromSettings(color));
    EXPECT_EQ(color, Color::RED);
}

TEST(GenericGraphic, BlackLinesByDefaultWithoutAColourAnswerTrueAndLeaveItUntouched) {
    auto const graphic = LineGraphic(nullptr);
    Set(*graphic, Setting::LINE_COLOR, Color::BLACK, figk::Setting::LEVEL_BASE);
    Color color = Color::MAGENTA;
    EXPECT_TRUE(graphic->GetColorFromSettings(color));
    EXPECT_EQ(color, Color::MAGENTA);
}

TEST(GenericGraphic, BlackLinesOfAProfileAreBlack) {
    auto const graphic = LineGraphic(nullptr);
    Set(*graphic, Setting::LINE_COLOR, Color::BLACK, figk::Setting::LEVEL_PROFILE);
    Set(*graphic, Setting::COLOR, Color::RED);
    Color color;
    EXPECT_TRUE(graphic->GetColorFromSettings(color));
    EXPECT_EQ(color, Color::BLACK);
}

TEST(GenericGraphic, ATextureOfAHigherLevelThanTheLineStyleShowsOnAWire) {
    Drawing const drawing;
    auto const wire = drawing.LoneWire({0, 0}, {10, 0});
    auto const graphic = LineGraphic(wire);
    SetTexture(*graphic, FIGURE_LEVEL);
    Set(*graphic, Setting::LINE_STYLE, figk::LineStyleAttr(), figk::Setting::LEVEL_PROFILE);
    graphic->UpdateRenderInfoBase();
    EXPECT_TRUE(graphic->GetRenderInfo().GetTexture());
}

TEST(GenericGraphic, ALineStyleOfAHigherLevelThanTheTextureHidesIt) {
    Drawing const drawing;
    auto const wire = drawing.LoneWire({0, 0}, {10, 0});
    auto const graphic = LineGraphic(wire);
    SetTexture(*graphic, figk::Setting::LEVEL_PROFILE);
    Set(*graphic, Setting::LINE_STYLE, figk::LineStyleAttr(), FIGURE_LEVEL);
    graphic->UpdateRenderInfoBase();
    EXPECT_FALSE(graphic->GetRenderInfo().GetTexture());
}

TEST(GenericGraphic, ATextureCountsOnWiresOnly) {
    auto const graphic = LineGraphic(nullptr);
    SetTexture(*graphic, FIGURE_LEVEL);
    graphic->UpdateRenderInfoBase();
    EXPECT_FALSE(graphic->GetRenderInfo().GetTexture());
}

TEST(GenericGraphic, IsNamedByTheFirstTextBesideItInASubGroup) {
    auto const outer = FreeGroup();
    SmartPtr<GraphicGroup> const inner(new GraphicGroup(outer));
    auto const graphic = LineGraphic(inner);
    SmartPtr<GraphicGroup> const below(new GraphicGroup(inner));
    TextGraphic::Create(Lock(), Symbol("deep"), below);
    TextGraphic::Create(Lock(), Symbol("near"), inner);
    EXPECT_EQ(graphic->GetName(), "near");
}

TEST(GenericGraphic, InTheHeadGroupItKeepsItsOwnName) {
    auto const outer = FreeGroup();
    SmartPtr<figk::GenericGraphic> const record(new FakeGraphic(nullptr, "own"));
    auto const graphic = GenericGraphic::Create(Lock(), record, outer);
    TextGraphic::Create(Lock(), Symbol("near"), outer);
    EXPECT_EQ(graphic->GetName(), "own");
}

TEST(GenericGraphic, OnlyGraphicsOfAFormatArePickedExactly) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    auto const frame = LineGraphic(format, {0, 0}, {10, 10});
    EXPECT_FALSE(frame->FineOverlapCheck(DPoint2D(0, 10)));
    EXPECT_TRUE(frame->FineOverlapCheck(DPoint2D(5, 5)));
    EXPECT_FALSE(frame->FineContentCheck(DBox2D(0, 0, 5, 5)));
    auto const other = LineGraphic(FreeGroup(), {0, 0}, {10, 10});
    EXPECT_TRUE(other->FineOverlapCheck(DPoint2D(0, 10)));
    EXPECT_TRUE(other->FineContentCheck(DBox2D(0, 0, 5, 5)));
}

TEST(GenericGraphic, ABoxIsDrawnAsItsOutline) {
    auto const graphic = GenericGraphic::Create(Lock(), DBox2D(1, 2, 5, 8), nullptr);
    EXPECT_EQ(graphic->GetExtents(), DBox2D(1, 2, 5, 8));
}

// Pick proxies.

TEST(PickGraphicProxy, MirroringAboutXFiveTurnsTwoIntoEight) {
    auto const proxy = PickGraphicProxy::Create(Lock(), nullptr, {2, 1}, {4, 3});
    proxy->MirrorItem({5, 0}, false);
    EXPECT_EQ(proxy->GetStart(), DPoint2D(8, 1));
    EXPECT_EQ(proxy->GetEnd(), DPoint2D(6, 3));
}

TEST(PickGraphicProxy, MovesScalesAndTurnsItsEnds) {
    auto const proxy = PickGraphicProxy::Create(Lock(), nullptr, {2, 1}, {4, 3});
    proxy->MoveItem(1, -1);
    EXPECT_EQ(proxy->GetExtents(), DBox2D(3, 0, 5, 2));
    proxy->ScaleItem({3, 0}, 2);
    EXPECT_EQ(proxy->GetExtents(), DBox2D(3, 0, 7, 4));
    proxy->RotateItem({3, 0}, 3.141592653589793);
    EXPECT_NEAR(proxy->GetEnd().x, -1, 1e-12);
    EXPECT_NEAR(proxy->GetEnd().y, -4, 1e-12);
}

TEST(PickGraphicProxy, ScalingByNothingLeavesItAsItIs) {
    auto const proxy = PickGraphicProxy::Create(Lock(), nullptr, {2, 1}, {4, 3});
    proxy->ScaleItem({3, 0}, 0);
    proxy->ScaleItem({3, 0}, std::numeric_limits<double>::infinity());
    proxy->ScaleItem({3, 0}, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(proxy->GetExtents(), DBox2D(2, 1, 4, 3));
}

TEST(PickGraphicProxy, AllShareOneIdAndHaveNoLooks) {
    auto const proxy = PickGraphicProxy::Create(Lock(), nullptr, {2, 1}, {4, 3});
    EXPECT_EQ(proxy->GetId().GetString(), "PickGraphicProxy");
    EXPECT_EQ(proxy->GetTypeName(), "PickGRaphicProxy");
    proxy->UpdateRenderInfoBase();
    EXPECT_FALSE(proxy->GetRenderInfo().GetZv2dGraphics());
}

TEST(PickGraphicProxy, AWindowTakesItWhenItTakesTheOwner) {
    Drawing const drawing;
    auto const net = drawing.Net();
    auto const wire = Drawing::Wire(net, {0, 0}, {10, 0});
    Drawing::Wire(net, {10, 0}, {10, 10}, wire);
    auto const proxy = PickGraphicProxy::Create(Lock(), wire, {0, 0}, {10, 0});
    EXPECT_FALSE(proxy->FineContentCheck(DBox2D(-1, -1, 11, 1)));
    EXPECT_TRUE(proxy->FineContentCheck(DBox2D(-1, -1, 11, 11)));
    auto const free = PickGraphicProxy::Create(Lock(), nullptr, {0, 0}, {10, 0});
    EXPECT_TRUE(free->FineContentCheck(DBox2D::EMPTY));
}

}  // namespace figrep
