#include <session/edits/EditScript.h>

#include <gtest/gtest.h>

#include <support/Random.h>

namespace fighost {
namespace {

std::vector<ScriptStep> Steps(std::string const& text) {
    EditScript const script = ReadEditScript(text, "s.txt");
    EXPECT_FALSE(script.error) << script.error->ToString();
    return script.steps;
}

std::string ErrorOf(std::string const& text) {
    EditScript const script = ReadEditScript(text, "s.txt");
    EXPECT_TRUE(script.steps.empty()) << "all or nothing";
    return script.error ? script.error->ToString() : "";
}

TEST(EditScript, OneStepPerLineWithItsPlace) {
    auto const steps = Steps("hide U1 R2\n\n  show-all\r\nundo");
    ASSERT_EQ(steps.size(), 3u);
    EXPECT_EQ(steps[0].edit.kind, Edit::HIDE);
    EXPECT_EQ(steps[0].edit.names, (std::vector<std::string>{"U1", "R2"}));
    EXPECT_EQ(steps[1].edit.kind, Edit::SHOW_ALL);
    EXPECT_EQ(steps[1].place.line, 3u);
    EXPECT_EQ(steps[1].place.column, 3u);
    EXPECT_EQ(steps[1].place.file, "s.txt");
    EXPECT_EQ(steps[2].edit.kind, Edit::UNDO);
}

TEST(EditScript, ValuesComeLast) {
    auto const steps = Steps(
        "move U1 U2 2.5,-1e1\nrotate U1 90@+3,4\nscale U1 0.5\nmirror U1 y\ncolour U1 #ff0000\n"
        "color U1 #FFF\nfill U1 #123\nbackground #fffff0\nsheet \"Sensor indoors\"\nall-sheets");
    ASSERT_EQ(steps.size(), 10u);
    EXPECT_EQ(steps[0].edit.names.size(), 2u);
    EXPECT_EQ(steps[0].edit.offset, dg::DVec2(2.5, -10));
    EXPECT_NEAR(steps[1].edit.number, 1.5707963267948966, 1e-15);
    EXPECT_EQ(steps[1].edit.about, dg::DPoint2D(3, 4));
    EXPECT_EQ(steps[2].edit.number, 0.5);
    EXPECT_FALSE(steps[2].edit.about);
    EXPECT_TRUE(steps[3].edit.mirrorY);
    EXPECT_EQ(steps[4].edit.color, dg::Color::RED);
    EXPECT_EQ(steps[5].edit.kind, Edit::COLOR);
    EXPECT_EQ(steps[6].edit.kind, Edit::FILL);
    EXPECT_EQ(steps[7].edit.kind, Edit::BACKGROUND);
    EXPECT_EQ(steps[8].edit.names, std::vector<std::string>{"Sensor indoors"});
    EXPECT_EQ(steps[9].edit.kind, Edit::SHEET);
    EXPECT_TRUE(steps[9].edit.names.empty());
}

TEST(EditScript, ColoursHaveNamesToo) {
    auto const steps = Steps("colour U1 red\nfill U1 white\nbackground black\ncolor U1 orange");
    ASSERT_EQ(steps.size(), 4u);
    EXPECT_EQ(steps[0].edit.color, dg::Color::RED);
    EXPECT_EQ(steps[1].edit.color, dg::Color::WHITE);
    EXPECT_EQ(steps[2].edit.color, dg::Color::BLACK);
    EXPECT_EQ(ErrorOf("colour U1 blurple"),
              "s.txt:1:11: 'blurple' is no colour: write a common name such as white, black, gray, "
              "red, green or blue, #rgb or #rrggbb");
}

TEST(EditScript, QuotedWordsHoldBlanksAndQuotes) {
    auto const steps = Steps("hide \"a b\" \"say \\\"x\\\"\" \"c:\\\\d\\e\" \"\" x\"y");
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(steps[0].edit.names,
              (std::vector<std::string>{"a b", "say \"x\"", "c:\\d\\e", "", "x\"y"}));
}

TEST(EditScript, CommentsBeginWithAHashThatStandsFirstOrAlone) {
    auto const steps = Steps("#nothing here\n  # nor here\nhide #PWR01 # a power symbol\n#");
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(steps[0].edit.names, std::vector<std::string>{"#PWR01"});
}

TEST(EditScript, MistakesAreToldWithLineAndColumn) {
    EXPECT_EQ(ErrorOf("hide A\nvanish A"), "s.txt:2:1: there is no step called 'vanish'");
    EXPECT_EQ(ErrorOf("  hide"), "s.txt:1:3: it should read 'hide ITEM...'");
    EXPECT_EQ(ErrorOf("undo twice"), "s.txt:1:6: 'twice' is one word too many");
    EXPECT_EQ(ErrorOf("move \"\xC3\xA9\xC3\xA8\" 5"), "s.txt:1:11: '5' isn't of the form DX,DY");
    EXPECT_NE(ErrorOf("colour A #12").find("s.txt:1:10: '#12' is no colour"), std::string::npos);
    EXPECT_EQ(ErrorOf("hide \"A"), "s.txt:1:6: the quotation isn't closed");
    EXPECT_EQ(ErrorOf("hide \"A\"B"), "s.txt:1:9: a blank is missing behind the quotation");
    EXPECT_EQ(ErrorOf("background"), "s.txt:1:1: it should read 'background COLOUR'");
    EXPECT_EQ(ErrorOf("move 1,2"), "s.txt:1:1: it should read 'move ITEM... DX,DY'");
}

TEST(EditScript, NumbersThatAreNoneAreMistakes) {
    for (char const* bad :
         {"move A nan,0", "move A inf,0", "move A 1,", "move A 1,2,3", "move A 0x10,0",
          "move A 1e999,0", "scale A 0", "scale A -1", "scale A 2@1", "rotate A 90deg",
          "rotate A 90@", "mirror A z", "mirror A x@y,z", "rotate A ++1"}) {
        EXPECT_NE(ErrorOf(bad), "") << bad;
    }
}

TEST(EditScript, EmptyScriptHasNoSteps) {
    EXPECT_TRUE(Steps("").empty());
    EXPECT_TRUE(Steps("\n\n#\n").empty());
}

TEST(EditScript, FilesThatCanNotBeReadAreErrors) {
    MemoryFiles files;
    EditScript const script = ReadEditScript(files, "none.txt");
    ASSERT_TRUE(script.error);
    EXPECT_NE(script.error->ToString().find("none.txt"), std::string::npos);
    files.Add("some.txt", "undo\nredo\n");
    EXPECT_EQ(ReadEditScript(files, "some.txt").steps.size(), 2u);
}

TEST(EditScript, AnyBytesAreEitherStepsOrOneError) {
    figrep::test::Random random(5);
    std::string const whole = "hide \"a b\" # x\nmove U1 2,3\ncolour U1 #ff0000\nsheet /A/\nundo\n";
    for (int round = 0; round < 5000; ++round) {
        std::string text = whole;
        for (std::size_t i = 1 + random.Below(6); i > 0; --i) {
            std::size_t const at = random.Below(text.size());
            if (random.OneIn(2)) text[at] = static_cast<char>(random.Next());
            if (random.OneIn(3)) text.erase(at, random.Below(8));
            if (text.empty()) text = "\"";
        }
        EditScript const script = ReadEditScript(text, "s");
        if (!script.error) continue;
        ASSERT_TRUE(script.steps.empty());
        ASSERT_GE(script.error->place.line, 1u);
        ASSERT_GE(script.error->place.column, 1u);
    }
}

TEST(EditVocabulary, EachWordTellsWhatItDoesOnce) {
    std::vector<std::string> names;
    for (EditVerb const& verb : EditVerbs()) {
        EXPECT_NE(std::string(verb.help), "");
        names.push_back(verb.name);
    }
    std::sort(names.begin(), names.end());
    EXPECT_EQ(std::unique(names.begin(), names.end()), names.end());
}

}  // namespace
}  // namespace fighost
