#include <figrep/PublishTitleBlockDelta.h>

#include <figk/Format.h>
#include <figk/TitleBlock.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockGraphicsGenerator.h>
#include <figrep/TitleBlockTextSection.h>
#include <zvk/Depiction.h>
#include <zvkapp/OrbitApp.h>

#include "DeltaTestSupport.h"

namespace figrep::testing {
namespace {

using Text = std::vector<TitleBlockTextSection::TextSegment>;
using Sections = PublishTitleBlockDelta::Sections;
using zvkapp::depiction::OrbitApp;

Text TextOf(Strings const& texts) {
    Text text;
    for (auto const& each : texts)
        text.push_back({2, "token", false, each});
    return text;
}

Sections SectionsOf(std::vector<Strings> const& texts) {
    Sections sections;
    for (auto const& each : texts)
        sections.push_back(new TitleBlockTextSection(0, TextOf(each)));
    return sections;
}

/// A figure whose title block says "one", "two" in a section and "three" in another.
class PublishTitleBlockDeltaTest : public ::testing::Test {
protected:
    PublishTitleBlockDeltaTest() {
        figure->Receive(SmartPtr<Format>(new Format(figure->GetLock(), nullptr)));
        block = new TitleBlock(figure->GetLock(), nullptr, nullptr);
        block->SetTextSections(SectionsOf({{"one", "two"}, {"three"}}));
        figure->Receive(block);
    }
    ~PublishTitleBlockDeltaTest() override {
        zvk::depiction::SetRunningDepict(false);
        OrbitApp::SetOrbitApp(nullptr);
    }

    Strings Texts() const {
        Strings texts;
        for (auto const& section : block->GetTextSections()) {
            Text text;
            section->GetText(text);
            for (auto const& segment : text)
                texts.push_back(segment.text);
        }
        return texts;
    }
    void ExpectRefused(std::vector<Strings> const& texts) const {
        ExpectLost(figure, new PublishTitleBlockDelta(SectionsOf(texts)));
        EXPECT_EQ(Texts(), (Strings{"one", "two", "three"}));
    }
    bool Publishes() const {
        return SmartPtr<PublishTitleBlockDelta>(
                   new PublishTitleBlockDelta(SectionsOf({{"a", "b"}, {"c"}})))
            ->Apply(*figure);
    }

    SmartPtr<Figure> figure = new Figure();
    SmartPtr<TitleBlock> block;
};

TEST_F(PublishTitleBlockDeltaTest, WritesItsTextsOverThoseOfTheTitleBlock) {
    EXPECT_TRUE(Publishes());
    EXPECT_EQ(Texts(), (Strings{"a", "b", "c"}));
}

TEST_F(PublishTitleBlockDeltaTest, OtherNumberOfSectionsFails) {
    ExpectRefused({{"a", "b"}});
    ExpectRefused({{"a", "b"}, {"c"}, {}});
}

TEST_F(PublishTitleBlockDeltaTest, OtherNumberOfSegmentsFailsAndLeavesAllSections) {
    ExpectRefused({{"a", "b"}, {"c", "d"}});
    ExpectRefused({{"a"}, {"c"}});
}

TEST_F(PublishTitleBlockDeltaTest, WithoutSectionsFailsAlsoAgainstNone) {
    ExpectRefused({});
    block->SetTextSections({});
    ExpectLost(figure, new PublishTitleBlockDelta({}));
}

TEST_F(PublishTitleBlockDeltaTest, LostTitleBlockOrFormatFails) {
    SmartPtr<Figure> const bare = new Figure();
    ExpectLost(bare, new PublishTitleBlockDelta(SectionsOf({{"a"}})));
    bare->Receive(SmartPtr<Format>(new Format(bare->GetLock(), nullptr)));
    ExpectLost(bare, new PublishTitleBlockDelta(SectionsOf({{"a"}})));
    OtherReceiver other;
    EXPECT_FALSE(SmartPtr<PublishTitleBlockDelta>(new PublishTitleBlockDelta(SectionsOf({{"a"}})))
                     ->Apply(other));
}

TEST_F(PublishTitleBlockDeltaTest, AuthoringHostPublishesUnlessItsBatchModeIsFour) {
    zvk::depiction::SetRunningDepict(true);
    EXPECT_FALSE(Publishes());
    SmartPtr<OrbitApp> const app = new OrbitApp();
    OrbitApp::SetOrbitApp(app);
    app->SetPublishBatchMode(4);
    EXPECT_FALSE(Publishes());
    app->SetPublishBatchMode(3);
    EXPECT_TRUE(Publishes());
}

TEST_F(PublishTitleBlockDeltaTest, WritesItsSegmentsInOrder) {
    SmartPtr<PublishTitleBlockDelta> const delta =
        new PublishTitleBlockDelta(SectionsOf({{"a", "b"}, {}}));
    EXPECT_FALSE(delta->IsPrimary());
    EXPECT_FALSE(delta->IsAppearanceOnly());
    EXPECT_EQ(Written(delta),
              (Strings{"action=int 3", "type='publish_title_block_delta'", "text_section {",
                       "text_segment {", "text_type=int 2", "text='token'", "original=false",
                       "text_value='a'", "}", "text_segment {", "text_type=int 2", "text='token'",
                       "original=false", "text_value='b'", "}", "}", "text_section {", "}"}));
}

/// Draws a line from the format's position, one unit long for each text.
class LineLayout : public TitleBlockGraphicsGenerator {
public:
    void GenerateGraphics(SmartPtr<TitleBlock> const& titleBlock) override {
        ++runs;
        DBox2D const box = BoxOf(*titleBlock);
        GenericGraphic::Create(titleBlock->GetLock(),
                               test::Drawing::MakeLine({{box[0], box[1]}, {box[2], box[3]}}),
                               titleBlock);
    }
    void GenerateExtents(SmartPtr<TitleBlock> const& titleBlock) override {
        titleBlock->SetExtents(BoxOf(*titleBlock));
    }
    int runs = 0;

private:
    static DBox2D BoxOf(TitleBlock const& titleBlock) {
        DPoint2D const at = titleBlock.GetFormat()->GetPosition();
        Text text;
        for (auto const& section : titleBlock.GetTextSections())
            section->GetText(text);
        double length = 0;
        for (auto const& segment : text)
            length += static_cast<double>(segment.text.size());
        return DBox2D(at.x, at.y, at.x + length, at.y);
    }
};

class LaidOutTitleBlockTest : public PublishTitleBlockDeltaTest {
protected:
    LaidOutTitleBlockTest() { block->SetGraphicsGenerator(layout); }

    /// The box of what is drawn; that of the title block is the same.
    DBox2D Drawn() {
        block->UpdateGraphics();
        DBox2D const drawn = block->GetMemberExtents();
        EXPECT_EQ(block->GetExtents(), drawn);
        return drawn;
    }
    void Publish(Strings const& texts) {
        SmartPtr<PublishTitleBlockDelta> const delta =
            new PublishTitleBlockDelta(SectionsOf({{texts[0], texts[1]}, {texts[2]}}));
        EXPECT_TRUE(delta->Apply(*figure));
    }
    SmartPtr<LineLayout> layout = new LineLayout();
};

TEST_F(LaidOutTitleBlockTest, OtherTextsAreLaidOutAnew) {
    EXPECT_EQ(Drawn(), DBox2D(0, 0, 11, 0));
    Publish({"a", "b", "c"});
    EXPECT_EQ(Drawn(), DBox2D(0, 0, 3, 0));
}

TEST_F(LaidOutTitleBlockTest, TextsThatItHasAlreadyLeaveTheLayout) {
    Drawn();
    Publish({"one", "two", "three"});
    Drawn();
    EXPECT_EQ(layout->runs, 1);
}

TEST_F(LaidOutTitleBlockTest, LaidOutAnewItStandsWhereItWasMovedTo) {
    Drawn();
    block->MoveItem(100, 7);
    figure->GetFormat()->MoveItem(0, 1000);
    EXPECT_EQ(Drawn(), DBox2D(100, 1007, 111, 1007));
    Publish({"a", "b", "c"});
    EXPECT_EQ(Drawn(), DBox2D(100, 1007, 103, 1007));
}

TEST_F(LaidOutTitleBlockTest, MovedBeforeItIsLaidOutItStandsThereToo) {
    block->MoveItem(100, 7);
    EXPECT_EQ(Drawn(), DBox2D(100, 7, 111, 7));
}

TEST_F(LaidOutTitleBlockTest, AnotherCornerTakesItBackToTheFormat) {
    Drawn();
    block->MoveItem(100, 7);
    block->SetOffsetX(1);
    EXPECT_EQ(Drawn(), DBox2D(0, 0, 11, 0));
}

// What a figure writes of itself.

TEST_F(PublishTitleBlockDeltaTest, CapturedFigureEndsWithTheTitleBlockAsItStands) {
    block->GetTextSections().at(1)->SetText(TextOf({"now"}), false);
    Strings const lines = WrittenFigure(figure);
    ASSERT_GE(lines.size(), 10u);
    EXPECT_EQ(lines[0], "content_version=int 1");
    EXPECT_EQ(lines[1], "show_grid=false");
    EXPECT_EQ(lines[2], "component {");
    EXPECT_EQ(lines[4], "type='publish_title_block_delta'");
    EXPECT_EQ(lines[lines.size() - 4], "text_value='now'");
    EXPECT_TRUE(figure->GetDeltas().empty());
}

}  // namespace
}  // namespace figrep::testing
