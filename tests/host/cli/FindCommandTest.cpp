#include <gtest/gtest.h>
#include <host/cli/RunProgram.h>
#include <host/session/ExampleSession.h>

#include <nlohmann/json.hpp>

#include <string>

namespace fighost::test {
namespace {

Outcome Find(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"find", EXAMPLE_FILE});
    return RunProgram("figrep", arguments);
}

TEST(FindCommand, PrintsALineForEachMatch) {
    Outcome const outcome = Find({"Two sensor heads"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out.substr(0, outcome.out.rfind('\t')),
              "/\tA1\tTextGraphic\tTwo sensor heads on one I2C bus, a controller and a parallel "
              "display\t");
    EXPECT_EQ(outcome.err, "");
}

TEST(FindCommand, LineBreaksOfATextStayInsideItsLine) {
    Outcome const outcome = Find({"Pull-ups for the I2C bus"});
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 1);
}

TEST(FindCommand, JsonTellsThePlace) {
    Outcome const outcome = Find({"u2", "-i", "--json", "--sheet", "Controller"});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    auto const matches = nlohmann::json::parse(outcome.out);
    ASSERT_FALSE(matches.empty());
    for (auto const& match : matches) {
        EXPECT_EQ(match.at("sheet"), "/Controller/");
        EXPECT_EQ(match.at("row"), "B");
        EXPECT_EQ(match.at("column"), "3");
        EXPECT_TRUE(match.at("x").is_number());
        EXPECT_TRUE(match.at("y").is_number());
        EXPECT_TRUE(match.at("id").is_string());
    }
    EXPECT_EQ(matches.at(0).at("kind"), "item");
}

TEST(FindCommand, FindingNothingIsNoError) {
    Outcome const text = Find({"no such text"});
    EXPECT_EQ(text.code, 0);
    EXPECT_EQ(text.out, "");
    EXPECT_NE(text.err.find("no such text"), std::string::npos);
    EXPECT_EQ(Find({"no such text", "--quiet"}).err, "");
    EXPECT_EQ(Find({"no such text", "--json"}).out, "[]\n");
}

TEST(FindCommand, AnUnknownSheetIsWrongUsage) {
    Outcome const outcome = Find({"U2", "--sheet", "Nowhere"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_NE(outcome.err.find("Nowhere"), std::string::npos);
}

}  // namespace
}  // namespace fighost::test
