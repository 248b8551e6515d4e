#include "GraphicsTestSupport.h"

#include <figrep/CalcFigureExtentsVisitor.h>
#include <figrep/Format.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockGraphicsGenerator.h>
#include <figrep/TitleBlockTextSection.h>
#include <figrep/TokenInterpreter.h>
#include <zvk/Depiction.h>
#include <zvkapp/OrbitApp.h>

#include <map>

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

using Segment_s = figk::TitleBlockTextSection::TextSegment_s;

Segment_s Token(int type, std::string const& token, std::string const& text) {
    Segment_s segment;
    segment.type = type;
    segment.token = token;
    segment.text = text;
    return segment;
}

class FakeSection : public figk::TitleBlockTextSection {
public:
    FakeSection(unsigned id, std::vector<Segment_s> text) : id_(id), text_(std::move(text)) {}

    unsigned GetId() const override { return id_; }
    void GetText(std::vector<Segment_s>& segments) const override {
        segments.insert(segments.end(), text_.begin(), text_.end());
    }
    Alignment GetAlignment() const override { return ALIGN_RIGHT; }
    bool GetBold() const override { return true; }
    bool GetItalic() const override { return true; }
    bool GetUnderline() const override { return true; }
    bool GetStrikeOut() const override { return true; }
    dg::Color GetFontColor() const override { return Color::BLUE; }
    double GetFontSize() const override { return 2.5; }
    double GetSpacing() const override { return 3.5; }

private:
    unsigned id_;
    std::vector<Segment_s> text_;
};

class FakeTitleBlock : public figk::TitleBlock {
public:
    Symbol const& GetId() const override { return id_; }
    std::string const& GetName() const override { return name_; }
    SmartPtr<figk::Group> GetTextLabelContainerGroup() const override { return nullptr; }
    Corner GetCorner() const override { return CORNER_TOP_RIGHT; }
    double GetOffsetX() const override { return 1; }
    double GetOffsetY() const override { return 2; }
    double GetMargin() const override { return 3; }
    double GetMinWidth() const override { return 4; }
    double GetMinHeight() const override { return 5; }
    dg::Color GetLineColor() const override { return Color::GREEN; }
    double GetLineWeight() const override { return 6; }
    dg::Color GetBackgroundColor() const override { return Color::YELLOW; }
    void GetTextSections(
        std::vector<SmartPtr<figk::TitleBlockTextSection>>& sections) const override {
        sections.insert(sections.end(), all.begin(), all.end());
    }
    SmartPtr<figk::TitleBlockTextSection> GetTextSection(unsigned int id) const override {
        for (auto const& section : all) {
            if (section->GetId() == id) return section;
        }
        return nullptr;
    }

    std::vector<SmartPtr<figk::TitleBlockTextSection>> all;

private:
    Symbol id_{"title"};
    std::string name_;
};

class FakeLayout : public TitleBlockGraphicsGenerator {
public:
    void GenerateGraphics(SmartPtr<TitleBlock> const& titleBlock) override {
        ++graphics;
        LineGraphic(titleBlock, {0, 0}, {10, 5});
    }
    void GenerateExtents(SmartPtr<TitleBlock> const& titleBlock) override {
        ++extents;
        titleBlock->SetExtents(DBox2D(0, 0, 10, 5));
    }

    int graphics = 0;
    int extents = 0;
};

class FakeInterpreter : public TokenInterpreter {
public:
    bool Interpret(SmartPtr<Figure> const&, std::string const& token,
                   std::string& result) override {
        asked.push_back(token);
        if (token == "unknown") return false;
        result = "<" + token + ">";
        return true;
    }

    std::vector<std::string> asked;
};

/// A figure with a format and a title block of one section.
class TitleBlockTest : public ::testing::Test {
protected:
    void SetUp() override {
        record = new FakeTitleBlock;
        record->all.push_back(
            new FakeSection(7, {Token(1, "date", "raw"), Token(2, "date", "plain"),
                                Token(3, "", "empty"), Token(3, "unknown", "kept")}));
        format = new Format(Lock(), new FakeFormat);
        block = new TitleBlock(Lock(), record, nullptr);
        layout = new FakeLayout;
        interpreter = new FakeInterpreter;
        drawing.figure->SetTitleBlockGraphicsGenerator(layout);
        drawing.figure->Receive(format);
        drawing.figure->Receive(block);
        TitleBlockTextSection::SetTokenInterpreter(interpreter);
    }
    void TearDown() override {
        TitleBlockTextSection::SetTokenInterpreter(nullptr);
        zvk::depiction::SetRunningDepict(false);
        zvkapp::depiction::OrbitApp::SetOrbitApp(nullptr);
    }

    std::vector<std::string> Texts() const {
        std::vector<Segment_s> segments;
        block->GetTextSections().at(0)->GetText(segments);
        std::vector<std::string> texts;
        for (auto const& segment : segments)
            texts.push_back(segment.text);
        return texts;
    }

    Drawing drawing;
    SmartPtr<FakeTitleBlock> record;
    SmartPtr<Format> format;
    SmartPtr<TitleBlock> block;
    SmartPtr<FakeLayout> layout;
    SmartPtr<FakeInterpreter> interpreter;
};

using Strings = std::vector<std::string>;
Strings const RAW{"raw", "plain", "empty", "kept"};
Strings const FILLED{"<date>", "plain", "empty", "kept"};

std::pair<std::string, std::string> CellOf(Format const& format, DPoint2D const& point) {
    Symbol x;
    Symbol y;
    format.CalculateGridLocation(point, x, y);
    return {x.GetString(), y.GetString()};
}

using Cell = std::pair<std::string, std::string>;

}  // namespace

// Format.

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
    format->SetShowGrid(false);
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

TEST(Format, ItsVisibilityDoesNotGoThroughTheGroup) {
    SmartPtr<Format> const format(new Format(Lock(), nullptr));
    auto const frame = LineGraphic(format);
    format->SetVisibility(false);
    EXPECT_FALSE(format->GetVisibility());
    EXPECT_TRUE(frame->GetVisible());
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

// Title block.

TEST_F(TitleBlockTest, TakesItsParametersFromTheKernel) {
    EXPECT_EQ(block->GetCorner(), figk::TitleBlock::CORNER_TOP_RIGHT);
    EXPECT_EQ(block->GetOffsetX(), 1);
    EXPECT_EQ(block->GetOffsetY(), 2);
    EXPECT_EQ(block->GetMargin(), 3);
    EXPECT_EQ(block->GetMinWidth(), 4);
    EXPECT_EQ(block->GetMinHeight(), 5);
    EXPECT_EQ(block->GetLineWeight(), 6);
    EXPECT_EQ(block->GetLineColor(), Color::GREEN);
    EXPECT_EQ(block->GetBackgroundColor(), Color::YELLOW);
    EXPECT_EQ(block->GetWidthParam(), 0);
    EXPECT_EQ(block->GetId().GetString(), "title");
    auto const section = block->GetTextSections().at(0);
    EXPECT_EQ(section->GetId(), 7U);
    EXPECT_EQ(section->GetAlignment(), figk::TitleBlockTextSection::ALIGN_RIGHT);
    EXPECT_TRUE(section->GetBold() && section->GetItalic());
    EXPECT_TRUE(section->GetUnderline() && section->GetStrikeOut());
    EXPECT_EQ(section->GetFontColor(), Color::BLUE);
    EXPECT_EQ(section->GetFontSize(), 2.5);
    EXPECT_EQ(section->GetSpacing(), 3.5);
}

TEST_F(TitleBlockTest, WithoutAGeneratorItsExtentsStayEmpty) {
    block->SetGraphicsGenerator(nullptr);
    EXPECT_EQ(block->GetExtents(), DBox2D::EMPTY);
    block->UpdateGraphics();
    EXPECT_TRUE(block->IsEmpty());
}

TEST_F(TitleBlockTest, IsLaidOutWhenItsExtentsOrGraphicsAreAskedFor) {
    EXPECT_EQ(block->GetExtents(), DBox2D(0, 0, 10, 5));
    EXPECT_EQ(block->GetExtents(), DBox2D(0, 0, 10, 5));
    EXPECT_EQ(layout->extents, 1);
    block->UpdateGraphics();
    block->UpdateGraphics();
    EXPECT_EQ(layout->graphics, 1);
}

TEST_F(TitleBlockTest, AChangedParameterThrowsTheLayoutAway) {
    block->UpdateGraphics();
    block->GetExtents();
    block->SetOffsetX(20);
    EXPECT_TRUE(block->IsEmpty());
    EXPECT_EQ(block->GetOffsetX(), 20);
    block->UpdateGraphics();
    EXPECT_EQ(layout->graphics, 2);
    block->SetCorner(figk::TitleBlock::CORNER_BOTTOM_LEFT);
    block->SetOffsetY(3);
    block->SetWidthParam(80);
    EXPECT_TRUE(block->IsEmpty());
    block->GetExtents();
    EXPECT_EQ(layout->extents, 2);
    EXPECT_EQ(block->GetWidthParam(), 80);
}

TEST_F(TitleBlockTest, AWalkOfTheFigureLaysItOut) {
    CalcFigureExtentsVisitor visitor;
    drawing.figure->Accept(visitor);
    EXPECT_EQ(layout->graphics, 1);
    EXPECT_EQ(visitor.GetFigureExtents(), DBox2D(0, 0, 10, 5));
}

TEST_F(TitleBlockTest, AMoveCarriesItsBoxAndPictureAlong) {
    block->UpdateGraphics();
    block->GetExtents();
    format->MoveItem(100, 0);
    EXPECT_EQ(block->GetExtents(), DBox2D(100, 0, 110, 5));
    EXPECT_EQ(block->GetMemberExtents(), DBox2D(100, 0, 110, 5));
    EXPECT_EQ(layout->extents, 1);
}

TEST_F(TitleBlockTest, ItsTextsFollowItsPreselectHighlight) {
    auto const label =
        TextGraphic::Create(Lock(), Symbol("a"), block->GetTextLabelContainerGroup());
    block->SetPreselectHighlight(true);
    EXPECT_TRUE(label->GetPreselectHighlight());
}

TEST_F(TitleBlockTest, TokensAreInterpretedOnceUntilMarkedOutOfDate) {
    EXPECT_EQ(Texts(), FILLED);
    EXPECT_EQ(Texts(), FILLED);
    EXPECT_EQ(interpreter->asked, (Strings{"date", "unknown"}));
    block->GetTextSections().at(0)->SetTextTokensOutOfDate();
    Texts();
    EXPECT_EQ(interpreter->asked.size(), 4U);
}

TEST_F(TitleBlockTest, OnlyTokensOfTheTokenTypesAreSentToTheInterpreter) {
    Texts();
    EXPECT_EQ(interpreter->asked, (Strings{"date", "unknown"}));
}

TEST_F(TitleBlockTest, WithoutAnInterpreterTheFlagIsClearedAndTheTextStaysRaw) {
    TitleBlockTextSection::SetTokenInterpreter(nullptr);
    EXPECT_EQ(Texts(), RAW);
    TitleBlockTextSection::SetTokenInterpreter(interpreter);
    EXPECT_EQ(Texts(), RAW);
    EXPECT_TRUE(interpreter->asked.empty());
}

TEST_F(TitleBlockTest, InTheAuthoringApplicationTokensStayRawOutsideOfBatchPublication) {
    zvk::depiction::SetRunningDepict(true);
    SmartPtr<zvkapp::depiction::OrbitApp> const app(new zvkapp::depiction::OrbitApp);
    zvkapp::depiction::OrbitApp::SetOrbitApp(app);
    EXPECT_EQ(Texts(), RAW);
    block->GetTextSections().at(0)->SetTextTokensOutOfDate();
    app->SetPublishBatchMode(4);
    EXPECT_EQ(Texts(), FILLED);
}

TEST_F(TitleBlockTest, ASectionFromContentFindsItsKernelSectionByNumber) {
    SmartPtr<TitleBlockTextSection> const known(new TitleBlockTextSection(7, {}));
    EXPECT_EQ(known->GetFontSize(), 0);
    EXPECT_TRUE(known->Verify(record));
    EXPECT_EQ(known->GetFontSize(), 2.5);
    EXPECT_TRUE(known->Verify(nullptr));
}

TEST_F(TitleBlockTest, ASectionThatTheKernelNoLongerHasIsNotVerified) {
    SmartPtr<TitleBlockTextSection> const lost(new TitleBlockTextSection(8, {}));
    EXPECT_FALSE(lost->Verify(record));
    EXPECT_FALSE(lost->Verify(nullptr));
}

TEST_F(TitleBlockTest, NewSectionsKnowTheirTitleBlock) {
    SmartPtr<TitleBlockTextSection> const section(
        new TitleBlockTextSection(1, {Token(1, "date", "raw")}));
    block->SetTextSections({section, nullptr});
    EXPECT_EQ(block->GetTextSections().size(), 1U);
    EXPECT_EQ(Texts(), (Strings{"<date>"}));
}

TEST_F(TitleBlockTest, ACopyHasSectionsOfItsOwn) {
    SmartPtr<TitleBlock> const copy(new TitleBlock(*block));
    copy->GetTextSections().at(0)->SetText({}, false);
    copy->SetOffsetX(99);
    EXPECT_EQ(Texts(), FILLED);
    EXPECT_EQ(block->GetOffsetX(), 1);
    EXPECT_EQ(copy->GetId(), block->GetId());
    EXPECT_FALSE(copy->GetFormat());
}

TEST_F(TitleBlockTest, InheritsSettingsFromItsFormat) {
    Set(*format, Setting::COLOR, Color::CYAN);
    Color color;
    EXPECT_TRUE(block->GetColorSetting(Setting::COLOR, color));
    EXPECT_EQ(color, Color::CYAN);
}

// Extents of a figure.

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
