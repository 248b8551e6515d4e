// `info --item`, `pick` and `dump`.
#include <gtest/gtest.h>
#include <host/cli/RunProgram.h>
#include <host/session/ExampleSession.h>
#include <support/Corpus.h>

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace fighost::test {
namespace {

Outcome Figrep(std::vector<std::string> const& arguments) {
    return RunProgram("figrep", arguments);
}

nlohmann::json Json(std::vector<std::string> const& arguments) {
    Outcome const outcome = Figrep(arguments);
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    return outcome.code == 0 ? nlohmann::json::parse(outcome.out) : nlohmann::json();
}

TEST(InfoItem, TellsAnItemInWords) {
    Outcome const outcome = Figrep({"info", EXAMPLE_FILE, "--item", "R1"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(outcome.out.substr(0, 17), "BlockInstance R1\n");
    EXPECT_NE(outcome.out.find("level 3 (profile), from figure"), std::string::npos);
    EXPECT_NE(outcome.out.find("/SDA"), std::string::npos);
}

TEST(InfoItem, JsonHasAnObjectForEachItemOfTheName) {
    auto const items = Json({"info", EXAMPLE_FILE, "--item", "UART_TX", "--json"});
    EXPECT_EQ(items.size(), 4u) << "the net and its port on two sheets";
    for (auto const& item : items) {
        EXPECT_EQ(item.at("nets"), (std::vector<std::string>{"UART_TX"}));
        EXPECT_EQ(item.at("visible"), true);
        EXPECT_FALSE(item.at("settings").empty());
        for (auto const& setting : item.at("settings"))
            EXPECT_TRUE(setting.at("from").is_string());
    }
}

TEST(InfoItem, AnUnknownItemIsWrongUsage) {
    Outcome const outcome = Figrep({"info", EXAMPLE_FILE, "--item", "U2000"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_NE(outcome.err.find("U2000"), std::string::npos);
}

TEST(PickCommand, WhatFindTellsIsPickedAtItsPlace) {
    auto const texts = Json({"find", EXAMPLE_FILE, "Two sensor heads", "--json"});
    ASSERT_EQ(texts.size(), 1u);
    std::string const place =
        texts[0].at("x").dump() + "," + std::to_string(texts[0].at("y").get<double>() - 1);
    auto const picked = Json({"pick", EXAMPLE_FILE, place, "--json", "--tolerance", "1"});
    ASSERT_FALSE(picked.empty());
    EXPECT_EQ(picked[0].at("id"), texts[0].at("id"));
    EXPECT_LE(picked[0].at("distance"), 1.0);
}

TEST(PickCommand, AWindowTakesWhatLiesInIt) {
    auto const all = Json({"pick", EXAMPLE_FILE, "0,0,1000,1000", "--json", "--sheet", "Display"});
    auto const part = Json({"pick", EXAMPLE_FILE, "0,0,100,1000", "--json", "--sheet", "Display"});
    auto const touched =
        Json({"pick", EXAMPLE_FILE, "0,0,100,1000", "--json", "--sheet", "Display", "--touching"});
    EXPECT_GT(part.size(), 0u);
    EXPECT_GT(touched.size(), part.size());
    EXPECT_GT(all.size(), touched.size());
}

TEST(PickCommand, APlaceIsTwoOrFourNumbers) {
    for (char const* place : {"", "1", "1,2,3", "1,2,3,4,5", "a,b", "1,2 3", "1,nan", "1,,2"}) {
        Outcome const outcome = Figrep({"pick", EXAMPLE_FILE, place});
        EXPECT_EQ(outcome.code, 1) << place;
        EXPECT_EQ(outcome.out, "") << place;
    }
    EXPECT_EQ(Figrep({"pick", EXAMPLE_FILE, "1,2", "--sheet", "Nowhere"}).code, 1);
}

TEST(PickCommand, NothingThereIsNoError) {
    Outcome const outcome = Figrep({"pick", EXAMPLE_FILE, "100000,1"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_NE(outcome.err, "");
}

void ExpectTheSameDumpTwice(std::string const& file) {
    std::vector<std::string> const arguments = {"dump", file, "--connectivity", "--settings", "-q"};
    Outcome const first = Figrep(arguments);
    EXPECT_EQ(first.code, 0) << first.err;
    EXPECT_TRUE(first.out == Figrep(arguments).out) << file << ": two runs differ";
    EXPECT_EQ(first.out.find(" (0x"), std::string::npos) << "an address";
    EXPECT_NE(first.out.find("== connectivity of /\n"), std::string::npos);
    EXPECT_NE(first.out.find("++ SubNet "), std::string::npos);
    EXPECT_NE(first.out.find("== settings of /\n"), std::string::npos);
    EXPECT_NE(first.out.find("Figure\n"), std::string::npos);
}

TEST(DumpCommand, TwoRunsGiveTheSameBytes) {
    ExpectTheSameDumpTwice(EXAMPLE_FILE);
}

TEST(DumpCommand, TwoRunsOnARealDesignGiveTheSameBytes) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets()) {
        if (root.find("glasgow-revc-v6") != std::string::npos) ExpectTheSameDumpTwice(root);
    }
}

TEST(DumpCommand, NamesThingsByTheirIds) {
    Outcome const outcome = Figrep({"dump", EXAMPLE_FILE, "--connectivity", "--sheet", "Display"});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(outcome.out.find("/Controller/\n"), std::string::npos) << "one sheet only";
    EXPECT_EQ(outcome.out.find("== settings"), std::string::npos);
    auto const nets = Json({"list", "nets", EXAMPLE_FILE, "--json"});
    std::size_t found = 0;
    for (auto const& net : nets) {
        for (auto const& id : net.at("subnets")) {
            std::string const line =
                "++ SubNet " + id.get<std::string>() + " (" + id.get<std::string>() + ") of Net ";
            found += outcome.out.find(line) != std::string::npos ? 1u : 0u;
        }
    }
    EXPECT_GT(found, 5u);
}

TEST(DumpCommand, NothingToWriteIsWrongUsage) {
    EXPECT_EQ(Figrep({"dump", EXAMPLE_FILE}).code, 1);
    EXPECT_EQ(Figrep({"dump", EXAMPLE_FILE, "--settings", "--sheet", "Nowhere"}).code, 1);
}

}  // namespace
}  // namespace fighost::test
