#include <session/SavedState.h>

#include <gtest/gtest.h>

#include <figk/Design.h>
#include <figrep/BlockInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/Format.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>
#include <figrep/TransformAction.h>
#include <host/UnknownParts.h>
#include <host/cli/RunProgram.h>
#include <session/Session.h>
#include <support/FigureDump.h>

namespace fighost {
namespace {

using figrep::SmartPtr;
using figrep::test::DumpOf;

std::string const EXAMPLE = FIGREP_SOURCE_DIR "/examples/weather-station/weather-station.kicad_sch";

std::unique_ptr<Session> Open(SessionOptions const& options = {}) {
    Session::Opened opened = Session::Open(EXAMPLE, options);
    EXPECT_FALSE(opened.error) << opened.error->ToString();
    return std::move(opened.session);
}

void MoveBlock(SessionSheet const& sheet, std::size_t index) {
    auto const block = sheet.figure->GetBlockInstances().at(index);
    sheet.figure->AddAndApplyDelta(new figrep::FigureMoveDelta({block}, {}, {1, 2}, false), false,
                                   false);
}

class SavedStateTest : public ::testing::Test {
protected:
    /// Opens the example with a file of saved figures.
    std::unique_ptr<Session> OpenSaved(std::string const& bytes) {
        SessionOptions options;
        options.saved = folder.Path("saved");
        test::WriteFile(options.saved, bytes);
        return Open(options);
    }
    /// What is saved after one change on each of two sheets.
    std::string TwoSheetsChanged() {
        auto const session = Open();
        MoveBlock(session->GetSheets().at(1), 0);
        MoveBlock(session->GetSheets().at(3), 2);
        for (std::size_t i : {1u, 3u})
            dumps.push_back(DumpOf(session->GetSheets()[i].figure));
        return session->SaveFigures();
    }

    static std::size_t Count(std::string const& text, std::string const& part) {
        std::size_t count = 0;
        for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
            ++count;
        return count;
    }
    static std::string Replaced(std::string text, std::string const& from, std::string const& to) {
        for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
            text.replace(at, from.size(), to);
            at += to.size();
        }
        return text;
    }
    static std::size_t Applied(Session const& session) {
        std::size_t count = 0;
        for (SavedReport const& report : session.GetSavedReports())
            count += report.delta.outcome == DeltaReport::APPLIED ? 1 : 0;
        return count;
    }

    test::TemporaryFolder folder;
    std::vector<std::vector<std::string>> dumps;
};

TEST_F(SavedStateTest, ChangesComeBackOnTheirSheetsAndSavingTwiceGivesTheSameFile) {
    std::string const bytes = TwoSheetsChanged();
    auto const session = OpenSaved(bytes);
    ASSERT_TRUE(session);
    EXPECT_EQ(DumpOf(session->GetSheets()[1].figure), dumps[0]);
    EXPECT_EQ(DumpOf(session->GetSheets()[3].figure), dumps[1]);
    EXPECT_EQ(session->SaveFigures(), bytes);
    auto const reports = session->GetSavedReports();
    ASSERT_EQ(reports.size(), 6u);
    EXPECT_EQ(Applied(*session), 6u);
    EXPECT_EQ(reports[1].figure, 1u);
    EXPECT_EQ(reports[1].sheet, "/Power/");
    EXPECT_EQ(reports[1].delta.number, 2u);
    EXPECT_EQ(reports[4].sheet, "/Sensor indoors/");
}

TEST_F(SavedStateTest, OnlySheetsWithChangesAreSaved) {
    EXPECT_EQ(Count(TwoSheetsChanged(), "<content key=\"figure\">"), 2u);
}

TEST_F(SavedStateTest, WithoutAnyChangeTheFirstSheetIsSaved) {
    auto const session = Open();
    std::string const bytes = session->SaveFigures();
    EXPECT_EQ(Count(bytes, "<content key=\"figure\">"), 1u);
    EXPECT_NE(bytes.find(session->GetSheets()[0].id), std::string::npos);
}

TEST_F(SavedStateTest, FiguresWithoutAnOpenSheetAreReportedAndKept) {
    std::string const sheet = Open()->GetSheets().at(3).id;
    std::string const bytes = Replaced(TwoSheetsChanged(), sheet, "/gone");
    auto const session = OpenSaved(bytes);
    ASSERT_TRUE(session);
    auto const reports = session->GetSavedReports();
    ASSERT_EQ(reports.size(), 6u);
    EXPECT_EQ(Applied(*session), 3u);
    for (std::size_t i = 3; i < 6; ++i) {
        EXPECT_EQ(reports[i].sheet, "");
        EXPECT_EQ(reports[i].delta.outcome, DeltaReport::FAILED) << reports[i].delta.ToString();
        EXPECT_NE(reports[i].delta.why.find("gone"), std::string::npos);
    }
    EXPECT_EQ(session->SaveFigures(), bytes);
}

TEST_F(SavedStateTest, FileOfAnotherDesignIsKeptWhole) {
    std::string const design = Open()->GetDesign()->GetId().GetString();
    std::string const bytes = Replaced(TwoSheetsChanged(), design, "another");
    auto const session = OpenSaved(bytes);
    ASSERT_TRUE(session);
    EXPECT_EQ(Applied(*session), 0u);
    EXPECT_EQ(session->SaveFigures(), bytes);
    MoveBlock(session->GetSheets().at(0), 0);
    EXPECT_EQ(Count(session->SaveFigures(), "<content key=\"figure\">"), 3u);
}

TEST_F(SavedStateTest, WhatElseStandsInTheFileIsWrittenBackInItsPlace) {
    std::string const sheet = Open()->GetSheets().at(3).id;
    constexpr std::size_t IN_FIGURES = 2;
    std::string const bytes =
        testing::WithUnknownParts(Replaced(TwoSheetsChanged(), sheet, "/gone"), IN_FIGURES);
    auto const session = OpenSaved(bytes);
    ASSERT_TRUE(session);
    EXPECT_EQ(session->SaveFigures(), bytes);
    MoveBlock(session->GetSheets().at(0), 0);
    std::string const more = session->SaveFigures();
    EXPECT_EQ(Count(more, "<content key=\"figure\">"), 3u);
    EXPECT_EQ(Count(more, "key=\"unknown"), Count(bytes, "key=\"unknown"));
}

TEST_F(SavedStateTest, GridThatWasSwitchedOnIsSavedWithoutAnyOtherChange) {
    std::string bytes;
    {
        auto const session = Open();
        session->GetSheets().at(2).figure->SetFormatGridOn(true);
        bytes = session->SaveFigures();
    }
    EXPECT_EQ(Count(bytes, "<content key=\"figure\">"), 1u);
    auto const session = OpenSaved(bytes);
    ASSERT_TRUE(session);
    EXPECT_TRUE(session->GetSheets()[2].figure->GetFormatGridOn());
    EXPECT_FALSE(session->GetSheets()[1].figure->GetFormatGridOn());
    session->GetSheets()[2].figure->SetFormatGridOn(false);
    EXPECT_NE(session->SaveFigures().find("key=\"show_grid\" value=\"false\""), std::string::npos);
}

TEST_F(SavedStateTest, OfTwoFiguresOfASheetTheFirstCounts) {
    std::string bytes = TwoSheetsChanged();
    auto const from = bytes.find("<content key=\"figure\">");
    auto const to = bytes.find("<content key=\"figure\">", from + 1);
    bytes.insert(to, bytes.substr(from, to - from));
    auto const session = OpenSaved(bytes);
    ASSERT_TRUE(session);
    EXPECT_EQ(DumpOf(session->GetSheets()[1].figure), dumps[0]) << "moved once, not twice";
    auto const reports = session->GetSavedReports();
    ASSERT_EQ(reports.size(), 9u);
    EXPECT_EQ(reports[4].delta.outcome, DeltaReport::FAILED);
    EXPECT_NE(reports[4].delta.why.find("already"), std::string::npos);
    EXPECT_EQ(session->SaveFigures(), bytes);
}

TEST_F(SavedStateTest, MissingFileIsAnErrorUnlessItMayBe) {
    SessionOptions options;
    options.saved = folder.Path("none");
    Session::Opened const refused = Session::Open(EXAMPLE, options);
    EXPECT_FALSE(refused.session);
    ASSERT_TRUE(refused.error);
    EXPECT_NE(refused.error->ToString().find("none"), std::string::npos);
    options.savedMayBeMissing = true;
    auto const session = Open(options);
    ASSERT_TRUE(session);
    EXPECT_TRUE(session->GetSavedReports().empty());
}

TEST_F(SavedStateTest, DamagedFileIsAnErrorWithItsPlace) {
    std::string const bytes = TwoSheetsChanged();
    SessionOptions options;
    options.saved = folder.Path("broken");
    options.savedMayBeMissing = true;
    test::WriteFile(options.saved, bytes.substr(0, bytes.size() / 2));
    Session::Opened const opened = Session::Open(EXAMPLE, options);
    EXPECT_FALSE(opened.session);
    ASSERT_TRUE(opened.error);
    EXPECT_EQ(opened.error->place.file, options.saved);
    EXPECT_GT(opened.error->place.line, 1u);
}

TEST_F(SavedStateTest, OfTwoOpenRevisionsTheSecondIsRefused) {
    std::string const bytes = TwoSheetsChanged();
    auto const first = Open();
    SessionOptions options;
    options.saved = folder.Path("saved");
    test::WriteFile(options.saved, bytes);
    Session::Opened const second = Session::Open(EXAMPLE, options);
    EXPECT_FALSE(second.session);
    ASSERT_TRUE(second.error);
    EXPECT_NE(second.error->sentence.find("open already"), std::string::npos);
}

// The title block.

std::string FirstTitleText(Session const& session) {
    auto const block = session.GetSheets().at(1).figure->GetFormat()->GetTitleBlock();
    std::vector<figrep::TitleBlockTextSection::TextSegment> text;
    block->GetTextSections().at(0)->GetText(text);
    return text.at(0).text;
}

TEST_F(SavedStateTest, TitleBlockShowsTheTextsOfThisRevision) {
    std::string const text = FirstTitleText(*Open());
    std::string const bytes =
        Replaced(TwoSheetsChanged(), "value=\"" + text + "\"", "value=\"of last week\"");
    ASSERT_NE(bytes.find("of last week"), std::string::npos) << text;
    auto const session = OpenSaved(bytes);
    ASSERT_TRUE(session);
    EXPECT_EQ(FirstTitleText(*session), text);
    EXPECT_EQ(Applied(*session), 6u);
}

TEST_F(SavedStateTest, TitleBlockTextsThatWerePutInLaterComeBack) {
    std::string bytes = TwoSheetsChanged();
    std::string const design = "key=\"original\" value=\"true\"";
    auto const at = bytes.find(design);
    ASSERT_NE(at, std::string::npos);
    bytes.replace(at, design.size(), "key=\"original\" value=\"false\"");
    auto const from = bytes.find("value=\"", bytes.find("text_value", at)) + 7;
    bytes.replace(from, bytes.find('"', from) - from, "approved");
    auto const session = OpenSaved(bytes);
    ASSERT_TRUE(session);
    EXPECT_EQ(FirstTitleText(*session), "approved");
    EXPECT_EQ(session->SaveFigures(), bytes);
}

}  // namespace
}  // namespace fighost
