// The commands that show, apply and paint what was saved.
#include <gtest/gtest.h>

#include <figrep/BlockInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemDeleteDelta.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/TransformAction.h>
#include <host/cli/RunProgram.h>
#include <session/Session.h>
#include <nlohmann/json.hpp>

namespace fighost::test {
namespace {

using nlohmann::json;

std::string const EXAMPLE = FIGREP_SOURCE_DIR "/examples/weather-station/weather-station.kicad_sch";

Outcome Figrep(std::vector<std::string> const& arguments) {
    return RunProgram("figrep", arguments);
}

figrep::SmartPtr<figrep::BlockInstance> BlockNamed(SessionSheet const& sheet,
                                                   std::string const& name) {
    for (auto const& block : sheet.figure->GetBlockInstances())
        if (block->GetName() == name) return block;
    return nullptr;
}

/// A file in which a block is moved on the sheet "Power" and one is deleted there.
class SavedCommandsTest : public ::testing::Test {
protected:
    SavedCommandsTest() {
        auto const opened = Session::Open(EXAMPLE);
        auto const& sheet = opened.session->GetSheets().at(1);
        auto const moved = BlockNamed(sheet, "U1");
        auto const deleted = BlockNamed(sheet, "C1");
        sheet.figure->AddAndApplyDelta(new figrep::FigureMoveDelta({moved}, {}, {5, 0}, false),
                                       false, false);
        sheet.figure->AddAndApplyDelta(new figrep::FigureItemDeleteDelta(deleted), false, false);
        deletedId = deleted->GetId().GetString();
        WriteFile(saved, opened.session->SaveFigures());
    }

    /// Makes a change name something that the design doesn't have.
    void LoseTheDeleted() {
        std::string bytes = ReadFile(saved);
        for (auto at = bytes.find(deletedId); at != std::string::npos; at = bytes.find(deletedId))
            bytes.replace(at, deletedId.size(), "lost-id");
        WriteFile(saved, bytes);
    }

    TemporaryFolder folder;
    std::string saved = folder.Path("board.figrep");
    std::string deletedId;
};

TEST_F(SavedCommandsTest, LogTellsTheChangesInWords) {
    Outcome const outcome = Figrep({"log", saved});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(outcome.out,
              "Power\n  1: show the sheet Power\n  2: move U1\n  3: delete C1\n"
              "  4: set the texts of the title block\n");
}

TEST_F(SavedCommandsTest, LogAsJsonNamesTargetsWithTheirIds) {
    Outcome const outcome = Figrep({"log", saved, "--json"});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    json const log = json::parse(outcome.out);
    ASSERT_EQ(log.size(), 1u);
    EXPECT_EQ(log[0]["sheets"][0]["name"], "Power");
    EXPECT_EQ(log[0]["changes"][2]["change"], "delete C1");
    EXPECT_EQ(log[0]["changes"][2]["targets"],
              json::parse("[{\"id\":\"" + deletedId + "\",\"name\":\"C1\"}]"));
}

TEST_F(SavedCommandsTest, LogOfSomethingElseExitsWithThree) {
    WriteFile(saved, "(kicad_sch)");
    Outcome const outcome = Figrep({"log", saved});
    EXPECT_EQ(outcome.code, 3);
    EXPECT_EQ(outcome.out, "");
    EXPECT_NE(outcome.err.find(saved), std::string::npos);
}

TEST_F(SavedCommandsTest, ApplyPrintsOneLinePerChange) {
    Outcome const outcome = Figrep({"apply", EXAMPLE, "--saved", saved, "--strict"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(outcome.out,
              "/Power/\t1: show the sheet Power: applied\n/Power/\t2: move U1: applied\n"
              "/Power/\t3: delete C1: applied\n"
              "/Power/\t4: set the texts of the title block: applied\n");
}

TEST_F(SavedCommandsTest, LostChangesAreFindingsWhenAskedFor) {
    LoseTheDeleted();
    EXPECT_EQ(Figrep({"apply", EXAMPLE, "--saved", saved}).code, 0);
    Outcome const outcome = Figrep({"apply", EXAMPLE, "--saved", saved, "--strict", "--json"});
    EXPECT_EQ(outcome.code, 5) << outcome.err;
    json const reports = json::parse(outcome.out);
    ASSERT_EQ(reports.size(), 4u);
    EXPECT_EQ(reports[1]["outcome"], "applied");
    EXPECT_EQ(reports[2],
              json::parse("{\"figure\":1,\"sheet\":\"/Power/\",\"number\":3,\"change\":\"delete "
                          "C1\",\"outcome\":\"failed\",\"why\":\"C1 (lost-id) is gone\"}"));
}

TEST_F(SavedCommandsTest, SavedAgainNothingIsLost) {
    LoseTheDeleted();
    std::string const again = folder.Path("again.figrep");
    EXPECT_EQ(Figrep({"apply", EXAMPLE, "--saved", saved, "-o", again}).code, 0);
    EXPECT_EQ(ReadFile(again), ReadFile(saved));
    EXPECT_EQ(Figrep({"apply", EXAMPLE, "--saved", saved, "-o", "/dev/full"}).code, 4);
    EXPECT_EQ(Figrep({"apply", EXAMPLE, "--saved", saved, "-o", "-"}).code, 1);
}

TEST_F(SavedCommandsTest, FilesOfADesignAreNeverWrittenOver) {
    std::string const design = folder.Path("board.txt");
    std::string const sheet = folder.Path("power.kicad_sch");
    WriteFile(design, ReadFile(EXAMPLE));
    WriteFile(sheet, "as it was");
    for (std::string const& output : {design, sheet, folder.Path("none.kicad_pro")}) {
        for (std::vector<std::string> const& options :
             {std::vector<std::string>{"apply", design, "--saved", saved, "-o", output},
              {"render", design, "--sheet", "/", "--format", "svg", "-o", output},
              {"trace", design, "GND", "--save", output}}) {
            Outcome const outcome = Figrep(options);
            EXPECT_EQ(outcome.code, 1) << options[0] << " " << output;
            EXPECT_NE(outcome.err.find(output), std::string::npos) << outcome.err;
        }
    }
    EXPECT_EQ(ReadFile(design), ReadFile(EXAMPLE));
    EXPECT_EQ(ReadFile(sheet), "as it was");
    EXPECT_EQ(folder.Files().size(), 3u);
}

TEST_F(SavedCommandsTest, StandardInputIsReadOnce) {
    for (std::vector<std::string> const& options :
         {std::vector<std::string>{"apply", "-", "--saved", "-"},
          {"render", "-", "--saved", "-", "-o", folder.Path("x.pdf")},
          {"edit", "-", "--saved", "-", "--hide", "U1"}}) {
        Outcome const outcome = RunProgram("figrep", options, ReadFile(saved));
        EXPECT_EQ(outcome.code, 1) << outcome.err;
        EXPECT_NE(outcome.err.find("read only once"), std::string::npos) << outcome.err;
    }
}

TEST_F(SavedCommandsTest, SavedFigureInPlaceOfAnotherKindOfFileIsNamedAsOne) {
    Outcome const outcome = Figrep({"trace", "--representation", saved, "GND"});
    EXPECT_EQ(outcome.code, 3);
    EXPECT_NE(outcome.err.find("it holds 'figrep-figures'"), std::string::npos) << outcome.err;
}

TEST_F(SavedCommandsTest, UnreadableSavedFigureExitsWithThree) {
    for (char const* command : {"apply", "render"}) {
        std::vector<std::string> arguments = {command, EXAMPLE, "--saved", folder.Path("none")};
        if (std::string(command) == "render") {
            arguments.insert(arguments.end(), {"--sheet", "/", "-o", "-"});
        }
        Outcome const outcome = Figrep(arguments);
        EXPECT_EQ(outcome.code, 3);
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find("none"), std::string::npos);
    }
}

TEST_F(SavedCommandsTest, PictureShowsTheSavedChanges) {
    std::vector<std::string> arguments = {"render", EXAMPLE, "--sheet", "Power", "-o", "-"};
    std::string const plain = Figrep(arguments).out;
    arguments.insert(arguments.end(), {"--saved", saved});
    Outcome const changed = Figrep(arguments);
    EXPECT_EQ(changed.code, 0) << changed.err;
    EXPECT_EQ(changed.err, "");
    EXPECT_NE(plain.find("data-item=\"" + deletedId + "\""), std::string::npos);
    EXPECT_EQ(changed.out.find("data-item=\"" + deletedId + "\""), std::string::npos);
    LoseTheDeleted();
    Outcome const lost = Figrep(arguments);
    EXPECT_NE(lost.err.find("1 of 4 saved changes"), std::string::npos) << lost.err;
    EXPECT_NE(lost.out.find("data-item=\"" + deletedId + "\""), std::string::npos);
}

}  // namespace
}  // namespace fighost::test
