#include "GraphicsTestSupport.h"

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Format.h>
#include <figrep/TitleBlock.h>
#include <support/LockUse.h>

#include <limits>

namespace figrep {

using namespace testing;

namespace {

/// A frame of 100 by 50 that names a cell by its coordinates.
class FakeFormat : public figk::Format {
public:
    Symbol const& GetId() const override { return id_; }
    std::string const& GetName() const override { return name_; }
    double GetWidth() const override { return 100; }
    double GetHeight() const override { return 50; }
    void CalculateGridLocation(dg::DPoint2D const& point, Symbol& x, Symbol& y) const override {
        x = Symbol(std::to_string(static_cast<int>(point.x)));
        y = Symbol(std::to_string(static_cast<int>(point.y)));
    }
    SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return nullptr; }

private:
    Symbol id_{"frame"};
    std::string name_;
};

std::pair<std::string, std::string> CellOf(Format const& format, DPoint2D const& point) {
    Symbol x;
    Symbol y;
    format.CalculateGridLocation(point, x, y);
    return {x.GetString(), y.GetString()};
}

using Cell = std::pair<std::string, std::string>;

/// Writes down what a walk of a format comes by.
class Steps : public AbstractFigureVisitor {
public:
    explicit Steps(bool enter) : enter_(enter) {}

    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<Format> const&) override { return Step("format", enter_); }
    bool Visit(SmartPtr<TitleBlock> const&) override { return Step("title block", false); }
    bool Visit(SmartPtr<GenericGraphic> const&) override { return Step("graphic", true); }
    bool VisitTextLabelContainer(SmartPtr<TextLabelContainer> const&) override {
        return Step("labels", true);
    }
    bool Visit(SmartPtr<TextGraphic> const&) override { return Step("text", true); }

    std::vector<std::string> names;

private:
    bool Step(char const* name, bool enter) {
        names.emplace_back(name);
        return enter;
    }

    bool enter_;
};

std::vector<std::string> StepsThrough(Format& format, bool enter) {
    Steps steps(enter);
    format.Accept(steps);
    return steps.names;
}

using Transform = void (*)(Format&);

}  // namespace

TEST(Format, AfterAMoveGridReferencesAreStillTheKernels) {
    SmartPtr<Format> const format(new Format(Lock(), new FakeFormat));
    EXPECT_EQ(CellOf(*format, {10, 5}), Cell("10", "5"));
    format->MoveItem(10, 5);
    EXPECT_EQ(format->GetPosition(), DPoint2D(10, 5));
    EXPECT_EQ(CellOf(*format, {10, 5}), Cell("0", "0"));
    EXPECT_EQ(format->GetWidth(), 100);
    EXPECT_EQ(format->GetHeight(), 50);
}

TEST(Format, WithoutAKernelRecordItHasNoSizeAndABadId) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    EXPECT_EQ(format->GetWidth(), 0);
    EXPECT_EQ(CellOf(*format, {1, 1}), Cell("", ""));
    EXPECT_EQ(format->GetId().GetString(), "ERROR - BAD ID");
}

TEST(Format, ShowingTheGridTwiceAddsItOnce) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    auto const grid = FreeGroup();
    format->SetGridLines(grid);
    format->SetShowGrid(true);
    format->SetShowGrid(true);
    EXPECT_EQ(MembersOf<GraphicGroup>(*format).size(), 1U);
    EXPECT_TRUE(format->GetShowGrid());
    format->SetShowGrid(false);
    EXPECT_TRUE(format->IsEmpty());
    EXPECT_FALSE(format->GetShowGrid());
}

TEST(Format, AGridWithoutLinesIsShownAsSoonAsItHasThem) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    format->SetShowGrid(true);
    EXPECT_TRUE(format->IsEmpty());
    auto const grid = FreeGroup();
    format->SetGridLines(grid);
    EXPECT_EQ(MembersOf<GraphicGroup>(*format), (std::vector<SmartPtr<GraphicGroup>>{grid}));
    format->SetGridLines(nullptr);
    EXPECT_TRUE(format->IsEmpty());
}

TEST(Format, OtherGridLinesTakeThePlaceOfThoseShown) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    auto const first = FreeGroup();
    auto const second = FreeGroup();
    format->SetGridLines(first);
    format->SetShowGrid(true);
    format->SetGridLines(second);
    auto const members = MembersOf<GraphicGroup>(*format);
    ASSERT_EQ(members.size(), 1U);
    EXPECT_EQ(members[0], second);
}

TEST(Format, TheFiguresSettingShowsTheGrid) {
    Drawing const drawing;
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    drawing.figure->Receive(format);
    drawing.figure->SetFormatGridOn(true);
    format->SetGridLines(FreeGroup());
    EXPECT_EQ(MembersOf<GraphicGroup>(*format).size(), 1U);
    drawing.figure->SetFormatGridOn(false);
    EXPECT_TRUE(format->IsEmpty());
}

TEST(Format, AMoveCarriesHiddenGridLinesAlong) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    auto const grid = FreeGroup();
    LineGraphic(grid, {0, 0}, {1, 0});
    format->SetGridLines(grid);
    format->MoveItem(10, 0);
    EXPECT_EQ(grid->GetMemberExtents(), DBox2D(10, 0, 11, 0));
    format->SetShowGrid(true);
    format->MoveItem(10, 0);
    EXPECT_EQ(grid->GetMemberExtents(), DBox2D(20, 0, 21, 0));
}

TEST(Format, GridLinesMovedWhileHiddenAreInTheRightPlaceWhenShown) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    LineGraphic(format, {0, 0}, {10, 0});
    auto const grid = FreeGroup();
    LineGraphic(grid, {0, 1}, {1, 1});
    format->SetGridLines(grid);
    format->MoveItem(10, 0);
    format->SetShowGrid(true);
    format->SetShowGrid(false);
    format->MoveItem(0, 5);
    format->SetShowGrid(true);
    EXPECT_EQ(format->GetMemberExtents(), DBox2D(10, 5, 20, 6));
}

TEST(Format, OnlyMovesReachTheTitleBlockAndHiddenGridLines) {
    Transform const transforms[] = {
        [](Format& format) {
            format.RotateItem({0, 0}, 1.0);
        },
        [](Format& format) {
            format.ScaleItem({0, 0}, 3.0);
        },
        [](Format& format) {
            format.MirrorItem({0, 0}, false);
        },
    };
    for (Transform const transform : transforms) {
        SmartPtr<Format> const format(new Format(Lock(), nullptr));
        SmartPtr<TitleBlock> const block(new TitleBlock(Lock(), nullptr, nullptr));
        LineGraphic(block, {5, 5}, {6, 6});
        format->Add(block);
        auto const grid = FreeGroup();
        LineGraphic(grid, {1, 2}, {3, 4});
        format->SetGridLines(grid);
        transform(*format);
        EXPECT_EQ(block->GetMemberExtents(), DBox2D(5, 5, 6, 6));
        EXPECT_EQ(grid->GetMemberExtents(), DBox2D(1, 2, 3, 4));
        EXPECT_EQ(format->GetPosition(), DPoint2D(0, 0));
    }
}

TEST(Format, EveryTransformReachesItsTexts) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    auto const label = LineGraphic(format->GetTextLabelContainerGroup(), {1, 1}, {2, 1});
    format->MoveItem(1, 1);
    EXPECT_EQ(label->GetExtents(), DBox2D(2, 2, 3, 2));
    format->ScaleItem({0, 0}, 2);
    EXPECT_EQ(label->GetExtents(), DBox2D(4, 4, 6, 4));
    format->MirrorItem({0, 0}, false);
    EXPECT_EQ(label->GetExtents(), DBox2D(-6, 4, -4, 4));
    format->MirrorItem({0, 0}, true);
    EXPECT_EQ(label->GetExtents(), DBox2D(-6, -4, -4, -4));
    format->RotateItem({0, 0}, dg::TWO_PI / 2);
    DBox2D const turned = label->GetExtents();
    EXPECT_NEAR(turned[0], 4, 1e-9);
    EXPECT_NEAR(turned[1], 4, 1e-9);
}

TEST(Format, TurningItLeavesItsPosition) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    auto const frame = LineGraphic(format, {0, 0}, {10, 0});
    format->MoveItem(10, 5);
    format->RotateItem({0, 0}, 1.0);
    format->MirrorItem({0, 0}, true);
    EXPECT_EQ(format->GetPosition(), DPoint2D(10, 5));
    EXPECT_NE(frame->GetExtents(), DBox2D(10, 5, 20, 5));
}

TEST(Format, AMoveByNothingChangesNothingAndAFactorOfOneStillRuns) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    SmartPtr<figk::GenericGraphic> const kernelFrame(new FakeGraphic(
        SmartPtr<figk::Zv2dGraphics>(new figk::Zv2dGraphics(Lock(), Line({0, 0}, {1, 0})))));
    auto const frame = GenericGraphic::Create(Lock(), kernelFrame, format);
    auto const picture = frame->GetZv2dGraphics();
    format->MoveItem(0, 0);
    format->RotateItem({0, 0}, 0);
    format->ScaleItem({0, 0}, 0);
    format->ScaleItem({0, 0}, std::numeric_limits<double>::infinity());
    EXPECT_EQ(frame->GetZv2dGraphics(), picture);
    format->ScaleItem({0, 0}, 1);
    EXPECT_NE(frame->GetZv2dGraphics(), picture);
}

TEST(Format, AMoveByNothingTakesNoLock) {
    using test::LockUse;
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    auto const use = [](auto const& work) { return test::LockUseOf(work); };
    EXPECT_EQ(use([&] { format->MoveItem(0, 0); }), LockUse::NONE);
    EXPECT_EQ(use([&] { format->RotateItem({1, 1}, 0); }), LockUse::NONE);
    EXPECT_EQ(use([&] { format->ScaleItem({1, 1}, 0); }), LockUse::NONE);
    EXPECT_EQ(use([&] { format->MoveItem(0, 1); }), LockUse::WRITES);
    EXPECT_EQ(use([&] { format->RotateItem({1, 1}, 1); }), LockUse::WRITES);
    EXPECT_EQ(use([&] { format->ScaleItem({1, 1}, 1); }), LockUse::WRITES);
    EXPECT_EQ(use([&] { format->MirrorItem({1, 1}, false); }), LockUse::WRITES);
}

TEST(Format, SettersTakeTheLockForWritingAndGettersForReading) {
    using test::LockUse;
    SmartPtr<Format> const format(new Format(Lock(), new FakeFormat));
    std::function<void()> const setters[] = {
        [&] { format->SetTitleBlock(nullptr); }, [&] { format->SetGridLines(nullptr); },
        [&] { format->SetShowGrid(true); }, [&] { format->SetVisibility(true); },
        [&] { format->Add(SmartPtr<TitleBlock>()); }};
    for (std::size_t i = 0; i < std::size(setters); ++i)
        EXPECT_EQ(test::LockUseOf(setters[i]), LockUse::WRITES) << i;
    std::function<void()> const getters[] = {
        [&] { format->GetTitleBlock(); }, [&] { format->GetShowGrid(); },
        [&] { format->GetVisibility(); }, [&] { format->GetPosition(); },
        [&] { format->GetWidth(); },      [&] { format->GetHeight(); },
        [&] { CellOf(*format, {1, 1}); }};
    for (std::size_t i = 0; i < std::size(getters); ++i)
        EXPECT_EQ(test::LockUseOf(getters[i]), LockUse::READS) << i;
}

TEST(Format, AWalkComesByItsGraphicsItsTextsAndItsTitleBlock) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    LineGraphic(format);
    TextGraphic::Create(Lock(), Symbol("a"), format->GetTextLabelContainerGroup());
    format->Add(SmartPtr<TitleBlock>(new TitleBlock(Lock(), nullptr, nullptr)));
    EXPECT_EQ(StepsThrough(*format, true),
              (std::vector<std::string>{"format", "graphic", "labels", "text", "title block"}));
    EXPECT_EQ(StepsThrough(*format, false), (std::vector<std::string>{"format"}));
}

TEST(Format, InheritsTheSettingsOfItsFigure) {
    Drawing const drawing;
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    Color color;
    EXPECT_FALSE(format->GetColorSetting(Setting::COLOR, color));
    drawing.figure->Receive(format);
    Set(*drawing.figure, Setting::COLOR, Color::CYAN);
    unsigned depth = 0;
    EXPECT_TRUE(format->GetSetting(Setting::COLOR, depth));
    EXPECT_EQ(depth, 1U);
}

TEST(Format, ItsVisibilityDoesNotGoThroughTheGroup) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    auto const frame = LineGraphic(format);
    format->SetVisibility(false);
    EXPECT_FALSE(format->GetVisibility());
    EXPECT_TRUE(frame->GetVisible());
    format->SetVisibility(true);
    EXPECT_TRUE(format->GetVisibility());
}

TEST(Format, OutlivesItsTitleBlockAndTheOtherWayRound) {
    SmartPtr<TitleBlock> const block(new TitleBlock(Lock(), nullptr, nullptr));
    {
        SmartPtr<Format> const format(new Format(Lock(), nullptr));
        format->Add(block);
        EXPECT_EQ(block->GetFormat(), format);
        EXPECT_EQ(format->GetTitleBlock(), block);
    }
    EXPECT_FALSE(block->GetFormat());
    SmartPtr<Format> const other(new Format(Lock(), nullptr));
    other->Add(block);
    other->SetTitleBlock(nullptr);
    EXPECT_FALSE(other->GetTitleBlock());
}

TEST(Format, ATitleBlockThatIsOnlySetIsNotToldItsFormat) {
    SmartPtr<TitleBlock> const block(new TitleBlock(Lock(), nullptr, nullptr));
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    format->SetTitleBlock(block);
    EXPECT_EQ(format->GetTitleBlock(), block);
    EXPECT_FALSE(block->GetFormat());
    format->Add(block);
    EXPECT_EQ(block->GetFormat(), format);
}

TEST(Format, ATitleBlockThatAnotherReplacesLeavesItsFormat) {
    SmartPtr<TitleBlock> const first(new TitleBlock(Lock(), nullptr, nullptr));
    SmartPtr<TitleBlock> const second(new TitleBlock(Lock(), nullptr, nullptr));
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    format->Add(first);
    format->Add(second);
    EXPECT_FALSE(first->GetFormat());
    EXPECT_EQ(second->GetFormat(), format);
    format->Add(SmartPtr<TitleBlock>());
    EXPECT_FALSE(format->GetTitleBlock());
    EXPECT_FALSE(second->GetFormat());
}

TEST(Format, ATitleBlockThatWentToAnotherFormatStaysThereWhenTheFirstGoes) {
    SmartPtr<TitleBlock> const block(new TitleBlock(Lock(), nullptr, nullptr));
    SmartPtr<Format> const later(new Format(Lock(), nullptr));
    {
        SmartPtr<Format> const earlier(new Format(Lock(), nullptr));
        earlier->Add(block);
        later->Add(block);
    }
    EXPECT_EQ(block->GetFormat(), later);
}

TEST(Format, OutlivesItsFigure) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    SmartPtr<TitleBlock> const block(new TitleBlock(Lock(), nullptr, nullptr));
    {
        Drawing const drawing;
        drawing.figure->Receive(format);
        drawing.figure->Receive(block);
        EXPECT_EQ(block->GetFigure(), drawing.figure);
    }
    EXPECT_FALSE(format->GetFigure());
    EXPECT_FALSE(block->GetFigure());
    format->MoveItem(1, 1);
    format->SetGridLines(FreeGroup());
}

}  // namespace figrep
