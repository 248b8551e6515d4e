#include <session/frame/SheetTokens.h>

#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>
#include <gtest/gtest.h>
#include <session/Session.h>
#include <support/Corpus.h>

namespace fighost {
namespace {

constexpr char const* ROOT = R"((kicad_sch (version 20231120) (generator "eeschema")
  (generator_version "8.0") (uuid "root") (paper "A4")
  (title_block (title "Board") (date "2024-02-30") (rev "B") (comment 2 "${OWNER}"))
  (sheet (at 10 10) (size 20 20) (uuid "sub")
    (property "Sheetname" "power" (at 0 0 0)) (property "Sheetfile" "p.kicad_sch" (at 0 0 0))
    (instances (project "root" (path "/root" (page "7")))))))";

constexpr char const* SUB =
    R"((kicad_sch (version 20231120) (generator "eeschema") (uuid "s") (paper "A3")))";

class SheetTokensTest : public testing::Test {
protected:
    void SetUp() override {
        MemoryFiles files;
        files.Add("root.kicad_sch", ROOT);
        files.Add("p.kicad_sch", SUB);
        files.Add("root.kicad_pro", R"({"text_variables": {"OWNER": "me", "DOC": "D${#}"}})");
        Session::Opened opened = Session::Open(files, "root.kicad_sch");
        ASSERT_FALSE(opened.error) << opened.error->ToString();
        session = std::move(opened.session);
    }

    std::string Value(std::size_t sheet, std::string const& token) const {
        std::string result = "(unknown)";
        SheetTokens::Install()->Interpret(session->GetSheets().at(sheet).figure, token, result);
        return result;
    }

    std::unique_ptr<Session> session;
};

TEST_F(SheetTokensTest, KnowTheSheetItsFileAndItsPlaceInTheDesign) {
    EXPECT_EQ(Value(0, "#"), "1");
    EXPECT_EQ(Value(1, "#"), "7");
    EXPECT_EQ(Value(1, "##"), "2");
    EXPECT_EQ(Value(0, "SHEETPATH"), "/");
    EXPECT_EQ(Value(1, "SHEETPATH"), "/power/");
    EXPECT_EQ(Value(0, "SHEETNAME"), "Root");
    EXPECT_EQ(Value(1, "SHEETNAME"), "power");
    EXPECT_EQ(Value(1, "FILENAME"), "p.kicad_sch");
    EXPECT_EQ(Value(0, "PAPER"), "A4");
    EXPECT_EQ(Value(1, "PAPER"), "A3");
    EXPECT_EQ(Value(0, "PROJECTNAME"), "root");
    EXPECT_EQ(Value(0, "KICAD_VERSION"), "KiCad 8.0");
}

TEST_F(SheetTokensTest, KnowTheTitleBlockAndTheProject) {
    EXPECT_EQ(Value(0, "TITLE"), "Board");
    EXPECT_EQ(Value(0, "ISSUE_DATE"), "2024-02-30") << "as it is written";
    EXPECT_EQ(Value(0, "REVISION"), "B");
    EXPECT_EQ(Value(0, "COMMENT2"), "me");
    EXPECT_EQ(Value(0, "OWNER"), "me");
    EXPECT_EQ(Value(1, "DOC"), "D7");
}

TEST_F(SheetTokensTest, WhatTheSheetDoesNotSayIsEmpty) {
    for (char const* token : {"TITLE", "COMPANY", "COMMENT9", "ISSUE_DATE", "LAYER"})
        EXPECT_EQ(Value(1, token), "") << token;
}

TEST_F(SheetTokensTest, AnUnknownTokenAndAnUnknownFigureHaveNoValue) {
    EXPECT_EQ(Value(0, "NOBODY"), "(unknown)");
    std::string result = "as before";
    EXPECT_FALSE(SheetTokens::Install()->Interpret(nullptr, "TITLE", result));
    figrep::SmartPtr<figrep::Figure> const figure = session->GetSheets().at(0).figure;
    session.reset();
    EXPECT_FALSE(SheetTokens::Install()->Interpret(figure, "TITLE", result));
    EXPECT_EQ(result, "as before");
}

std::string TextOf(figrep::TitleBlock const& block) {
    std::string text;
    for (auto const& section : block.GetTextSections()) {
        std::vector<figrep::TitleBlockTextSection::TextSegment> segments;
        section->GetText(segments);
        for (auto const& segment : segments)
            text += segment.text;
        text += '\n';
    }
    return text;
}

TEST_F(SheetTokensTest, FillTheTitleBlock) {
    auto const block = session->GetSheets().at(0).figure->GetFormat()->GetTitleBlock();
    ASSERT_TRUE(block);
    EXPECT_EQ(TextOf(*block),
              "me\nSheet: /\nFile: root.kicad_sch\nBoard\n"
              "Size: A4\tDate: 2024-02-30\tRev: B\tId: 1/2\n");
}

TEST(TitleBlocks, OfTheCorpusStandWithinTheirSheetsAtEveryCornerAndLeaveNoTokenOpen) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets()) {
        Session::Opened const opened = Session::Open(root);
        ASSERT_TRUE(opened.session) << root;
        for (SessionSheet const& sheet : opened.session->GetSheets()) {
            auto const format = sheet.figure->GetFormat();
            auto const block = format->GetTitleBlock();
            ASSERT_TRUE(block) << root << sheet.path;
            EXPECT_EQ(TextOf(*block).find("${"), std::string::npos) << TextOf(*block);
            for (int corner = 0; corner < 4; ++corner) {
                block->SetCorner(static_cast<figrep::TitleBlock::Corner>(corner));
                dg::DBox2D const box = block->GetExtents();
                EXPECT_TRUE(box[0] >= 0 && box[1] >= 0 && box[2] <= format->GetWidth() &&
                            box[3] <= format->GetHeight())
                    << root << sheet.path;
            }
        }
    }
}

}  // namespace
}  // namespace fighost
