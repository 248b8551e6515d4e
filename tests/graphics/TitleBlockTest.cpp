#include "GraphicsTestSupport.h"

#include <figrep/CalcFigureExtentsVisitor.h>
#include <figrep/Format.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockGraphicsGenerator.h>
#include <figrep/TitleBlockTextSection.h>
#include <figrep/TokenInterpreter.h>
#include <figrep/TokenObserver.h>
#include <support/LockUse.h>
#include <zvk/Depiction.h>
#include <zvkapp/OrbitApp.h>

#include <functional>

namespace figrep {

using namespace testing;

namespace {

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
    bool Interpret(SmartPtr<Figure> const& of, std::string const& token,
                   std::string& result) override {
        figure = of;
        asked.push_back(token);
        if (token == "unknown") return false;
        result = "<" + token + ">";
        return true;
    }

    SmartPtr<Figure> figure;
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
        format = new Format(Lock(), nullptr);
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

/// A layout that has nothing to show.
class EmptyLayout : public TitleBlockGraphicsGenerator {
public:
    void GenerateGraphics(SmartPtr<TitleBlock> const&) override { ++asked; }
    void GenerateExtents(SmartPtr<TitleBlock> const&) override {}

    int asked = 0;
};

/// Says when it goes.
class WatchedObserver : public TokenObserver {
public:
    explicit WatchedObserver(bool& gone) : gone_(gone) {}
    ~WatchedObserver() override { gone_ = true; }

private:
    bool& gone_;
};

using Strings = std::vector<std::string>;
Strings const RAW{"raw", "plain", "empty", "kept"};
Strings const FILLED{"<date>", "plain", "empty", "kept"};

}  // namespace

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

TEST_F(TitleBlockTest, EveryChangedParameterThrowsTheLayoutAway) {
    std::function<void()> const changes[] = {
        [&] { block->SetOffsetX(20); },
        [&] { block->SetOffsetY(3); },
        [&] { block->SetCorner(figk::TitleBlock::CORNER_BOTTOM_LEFT); },
        [&] { block->SetWidthParam(80); },
        [&] { block->SetTextSections(block->GetTextSections()); },
    };
    int layouts = 0;
    for (auto const& change : changes) {
        block->UpdateGraphics();
        block->GetExtents();
        TextGraphic::Create(Lock(), Symbol("a"), block->GetTextLabelContainerGroup());
        Texts();
        ++layouts;
        EXPECT_EQ(layout->graphics, layouts);
        EXPECT_EQ(layout->extents, layouts);
        EXPECT_EQ(interpreter->asked.size(), 2U * static_cast<unsigned>(layouts));
        change();
        EXPECT_TRUE(block->IsEmpty()) << layouts;
        EXPECT_FALSE(block->HasTextLabels()) << layouts;
    }
    EXPECT_EQ(block->GetOffsetX(), 20);
    EXPECT_EQ(block->GetOffsetY(), 3);
    EXPECT_EQ(block->GetCorner(), figk::TitleBlock::CORNER_BOTTOM_LEFT);
    EXPECT_EQ(block->GetWidthParam(), 80);
}

TEST_F(TitleBlockTest, ALayoutThatDrawsNothingIsAskedEachTime) {
    SmartPtr<EmptyLayout> const nothing(new EmptyLayout);
    block->SetGraphicsGenerator(nothing);
    block->UpdateGraphics();
    block->UpdateGraphics();
    EXPECT_EQ(nothing->asked, 2);
    EXPECT_EQ(block->GetExtents(), DBox2D::EMPTY);
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

TEST_F(TitleBlockTest, MovedAloneItCarriesItsTextsAlong) {
    block->UpdateGraphics();
    block->GetExtents();
    auto const label = LineGraphic(block->GetTextLabelContainerGroup(), {1, 1}, {2, 2});
    block->MoveItem(0, 0);
    block->MoveItem(5, -1);
    EXPECT_EQ(block->GetExtents(), DBox2D(5, -1, 15, 4));
    EXPECT_EQ(block->GetMemberExtents(), DBox2D(5, -1, 15, 4));
    EXPECT_EQ(label->GetExtents(), DBox2D(6, 0, 7, 1));
    EXPECT_EQ(format->GetPosition(), DPoint2D(0, 0));
}

TEST_F(TitleBlockTest, ItOnlyMoves) {
    block->UpdateGraphics();
    block->RotateItem({0, 0}, 1);
    block->ScaleItem({0, 0}, 2);
    block->MirrorItem({0, 0}, false);
    EXPECT_EQ(block->GetMemberExtents(), DBox2D(0, 0, 10, 5));
}

TEST_F(TitleBlockTest, ItKeepsTheObserverOfItsTokens) {
    bool gone = false;
    SmartPtr<TitleBlock> watched(new TitleBlock(Lock(), record, new WatchedObserver(gone)));
    EXPECT_FALSE(gone);
    watched.Reset();
    EXPECT_TRUE(gone);
}

TEST_F(TitleBlockTest, WithoutAKernelRecordItStartsAtZero) {
    SmartPtr<TitleBlock> const bare(new TitleBlock(nullptr, nullptr, nullptr));
    EXPECT_EQ(bare->GetId().GetString(), "ERROR - BAD ID");
    EXPECT_EQ(bare->GetCorner(), figk::TitleBlock::CORNER_BOTTOM_LEFT);
    EXPECT_EQ(bare->GetOffsetX() + bare->GetOffsetY() + bare->GetWidthParam(), 0);
    EXPECT_EQ(bare->GetMargin() + bare->GetMinWidth() + bare->GetMinHeight(), 0);
    EXPECT_EQ(bare->GetLineWeight(), 0);
    EXPECT_TRUE(bare->GetTextSections().empty());
    bare->SetOffsetX(1);
    bare->MoveItem(1, 1);
    EXPECT_EQ(bare->GetExtents(), DBox2D::EMPTY);
}

TEST_F(TitleBlockTest, ItsTextsFollowItsPreselectHighlight) {
    block->UpdateGraphics();
    auto const label =
        TextGraphic::Create(Lock(), Symbol("a"), block->GetTextLabelContainerGroup());
    block->SetPreselectHighlight(true);
    EXPECT_TRUE(label->GetPreselectHighlight());
    EXPECT_TRUE(MembersOf<GenericGraphic>(*block).at(0)->GetPreselectHighlight());
    block->SetPreselectHighlight(false);
    EXPECT_FALSE(label->GetPreselectHighlight());
}

TEST_F(TitleBlockTest, TokensAreInterpretedOnceUntilMarkedOutOfDate) {
    EXPECT_EQ(Texts(), FILLED);
    EXPECT_EQ(Texts(), FILLED);
    EXPECT_EQ(interpreter->asked, (Strings{"date", "unknown"}));
    block->GetTextSections().at(0)->SetTextTokensOutOfDate();
    Texts();
    EXPECT_EQ(interpreter->asked.size(), 4U);
}

TEST_F(TitleBlockTest, TheInterpreterIsToldWhichFigureTheTokensAreOf) {
    Texts();
    EXPECT_EQ(interpreter->figure, drawing.figure);
    interpreter->figure.Reset();
}

TEST_F(TitleBlockTest, ANewSectionThatIsUpToDateIsNotInterpreted) {
    SmartPtr<TitleBlockTextSection> const section(new TitleBlockTextSection(1, {}));
    section->SetText({Token(1, "date", "today")}, false);
    block->SetTextSections({section});
    EXPECT_EQ(Texts(), Strings{"today"});
    block->SetOffsetX(2);
    EXPECT_EQ(Texts(), Strings{"<date>"}) << "until the layout is thrown away";
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
    for (int const mode : {0, 1, 3, 5}) {
        app->SetPublishBatchMode(mode);
        block->GetTextSections().at(0)->SetTextTokensOutOfDate();
        EXPECT_EQ(Texts(), RAW) << mode;
    }
    app->SetPublishBatchMode(4);
    EXPECT_EQ(Texts(), RAW) << "raw tokens count as interpreted";
    block->GetTextSections().at(0)->SetTextTokensOutOfDate();
    EXPECT_EQ(Texts(), FILLED);
}

TEST_F(TitleBlockTest, TheAuthoringApplicationWithoutAPublisherFillsTokensIn) {
    zvk::depiction::SetRunningDepict(true);
    EXPECT_EQ(Texts(), FILLED);
}

TEST_F(TitleBlockTest, TokensOfBothTokenTypesAreFilledInAndOthersNever) {
    auto const section = block->GetTextSections().at(0);
    section->SetText({Token(0, "a", "0"), Token(1, "b", "1"), Token(2, "c", "2"),
                      Token(3, "d", "3"), Token(4, "e", "4"), Token(1, "", "5")},
                     true);
    EXPECT_EQ(Texts(), (Strings{"0", "<b>", "2", "<d>", "4", "5"}));
    EXPECT_EQ(interpreter->asked, (Strings{"b", "d"}));
}

TEST_F(TitleBlockTest, TextPutInAsUpToDateIsNotInterpreted) {
    auto const section = block->GetTextSections().at(0);
    section->SetText({Token(1, "date", "today")}, false);
    EXPECT_EQ(Texts(), Strings{"today"});
    section->SetText({Token(1, "date", "today")}, true);
    EXPECT_EQ(Texts(), Strings{"<date>"});
}

TEST_F(TitleBlockTest, ASectionsTextComesBehindWhatIsThere) {
    std::vector<Segment_s> segments{Token(0, "", "first")};
    block->GetTextSections().at(0)->GetText(segments);
    ASSERT_EQ(segments.size(), 5U);
    EXPECT_EQ(segments.front().text, "first");
    EXPECT_EQ(segments.at(1).text, "<date>");
}

TEST_F(TitleBlockTest, ASectionOutsideOfATitleBlockKeepsItsTokensForLater) {
    SmartPtr<TitleBlockTextSection> const section(
        new TitleBlockTextSection(1, {Token(1, "date", "raw")}));
    std::vector<Segment_s> segments;
    section->GetText(segments);
    EXPECT_EQ(segments.at(0).text, "raw");
    block->SetTextSections({section});
    EXPECT_EQ(Texts(), Strings{"<date>"});
}

TEST_F(TitleBlockTest, WithoutAFigureTokensStayRawAndCountAsInterpreted) {
    SmartPtr<TitleBlock> const alone(new TitleBlock(Lock(), record, nullptr));
    std::vector<Segment_s> segments;
    alone->GetTextSections().at(0)->GetText(segments);
    EXPECT_EQ(segments.at(0).text, "raw");
    format->Add(alone);
    alone->GetTextSections().at(0)->GetText(segments);
    EXPECT_EQ(segments.at(4).text, "raw");
    EXPECT_TRUE(interpreter->asked.empty());
}

TEST_F(TitleBlockTest, ASectionThatWentToAnotherTitleBlockStaysThereWhenTheFirstGoes) {
    SmartPtr<TitleBlock> earlier(new TitleBlock(Lock(), nullptr, nullptr));
    SmartPtr<TitleBlockTextSection> const section(
        new TitleBlockTextSection(1, {Token(1, "date", "raw")}));
    earlier->SetTextSections({section});
    block->SetTextSections({section});
    earlier.Reset();
    EXPECT_EQ(Texts(), Strings{"<date>"});
}

TEST_F(TitleBlockTest, ASectionOutlivesItsTitleBlock) {
    SmartPtr<TitleBlock> alone(new TitleBlock(Lock(), record, nullptr));
    auto const section = alone->GetTextSections().at(0);
    alone.Reset();
    std::vector<Segment_s> segments;
    section->GetText(segments);
    EXPECT_EQ(segments.at(0).text, "raw");
}

TEST_F(TitleBlockTest, ASectionFromContentFindsItsKernelSectionByNumber) {
    SmartPtr<TitleBlockTextSection> const known(new TitleBlockTextSection(7, {}));
    EXPECT_EQ(known->GetFontSize(), 0);
    EXPECT_TRUE(known->Verify(record));
    EXPECT_EQ(known->GetFontSize(), 2.5);
    EXPECT_TRUE(known->Verify(nullptr));
    EXPECT_EQ(known->GetKernelTitleBlockTextSection(), record->all.at(0));
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
    format->RemoveSetting(Setting::COLOR, FIGURE_LEVEL);
    Set(*drawing.figure, Setting::COLOR, Color::MAGENTA);
    unsigned depth = 0;
    EXPECT_TRUE(block->GetSetting(Setting::COLOR, depth));
    EXPECT_EQ(depth, 2U);
}

TEST_F(TitleBlockTest, SettersTakeTheLockForWritingAndGettersOfParametersForReading) {
    using test::LockUse;
    std::function<void()> const setters[] = {
        [&] { block->SetOffsetX(1); },
        [&] { block->SetOffsetY(1); },
        [&] { block->SetCorner(figk::TitleBlock::CORNER_TOP_LEFT); },
        [&] { block->SetWidthParam(1); },
        [&] { block->SetTextSections({}); },
        [&] { block->SetFormat(nullptr); },
        [&] { block->SetGraphicsGenerator(nullptr); },
        [&] { block->SetExtents(DBox2D::EMPTY); },
        [&] { block->ClearTextAndGraphics(); },
        [&] { block->MoveItem(1, 0); }};
    for (std::size_t i = 0; i < std::size(setters); ++i)
        EXPECT_EQ(test::LockUseOf(setters[i]), LockUse::WRITES) << i;
    std::function<void()> const getters[] = {
        [&] { block->GetBackgroundColor(); }, [&] { block->GetLineColor(); },
        [&] { block->GetLineWeight(); },      [&] { block->GetMargin(); },
        [&] { block->GetMinHeight(); },       [&] { block->GetMinWidth(); },
        [&] { block->GetCorner(); },          [&] { block->GetOffsetX(); },
        [&] { block->GetOffsetY(); },         [&] { block->GetWidthParam(); },
        [&] { block->GetTextSections(); },    [&] { block->GetFormat(); }};
    for (std::size_t i = 0; i < std::size(getters); ++i)
        EXPECT_EQ(test::LockUseOf(getters[i]), LockUse::READS) << i;
    EXPECT_EQ(test::LockUseOf([&] { block->MoveItem(0, 0); }), LockUse::NONE);
}

TEST_F(TitleBlockTest, ASectionIsChangedUnderTheLockForWritingAndReadUnderItForReading) {
    using test::LockUse;
    SmartPtr<TitleBlockTextSection> const section(new TitleBlockTextSection(7, {}));
    std::function<void()> const setters[] = {[&] { section->SetTextTokensOutOfDate(); },
                                             [&] { section->SetTitleBlock(nullptr); },
                                             [&] { section->LeaveTitleBlock(nullptr); },
                                             [&] { section->SetText({}, true); },
                                             [&] { section->Verify(record); },
                                             [&] {
                                                 std::vector<Segment_s> segments;
                                                 section->GetText(segments);
                                             }};
    for (std::size_t i = 0; i < std::size(setters); ++i)
        EXPECT_EQ(test::LockUseOf(setters[i]), LockUse::WRITES) << i;
    std::function<void()> const getters[] = {[&] { section->GetAlignment(); },
                                             [&] { section->GetBold(); },
                                             [&] { section->GetItalic(); },
                                             [&] { section->GetUnderline(); },
                                             [&] { section->GetStrikeOut(); },
                                             [&] { section->GetFontColor(); },
                                             [&] { section->GetFontSize(); },
                                             [&] { section->GetSpacing(); },
                                             [&] { section->GetKernelTitleBlockTextSection(); }};
    for (std::size_t i = 0; i < std::size(getters); ++i)
        EXPECT_EQ(test::LockUseOf(getters[i]), LockUse::READS) << i;
}

}  // namespace figrep
