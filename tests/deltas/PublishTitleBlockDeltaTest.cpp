#include <figrep/PublishTitleBlockDelta.h>

#include <figk/Format.h>
#include <figk/TitleBlock.h>
#include <figrep/Format.h>
#include <figrep/TitleBlock.h>
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
    EXPECT_EQ(Written(delta),
              (Strings{"action=int 3", "type='publish_title_block_delta'", "text_section {",
                       "text_segment {", "text_type=int 2", "text='token'", "original=false",
                       "text_value='a'", "}", "text_segment {", "text_type=int 2", "text='token'",
                       "original=false", "text_value='b'", "}", "}", "text_section {", "}"}));
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
