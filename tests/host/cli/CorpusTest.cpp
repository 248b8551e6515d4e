// Real designs of other people, where there are any: FIGREP_CORPUS names their folder.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <host/XmlChecker.h>
#include <host/cli/RunProgram.h>
#include <support/Corpus.h>
#include <nlohmann/json.hpp>

namespace fighost::test {
namespace {

std::size_t SheetCount(std::string const& root) {
    Outcome const outcome = RunProgram("figrep", {"list", "sheets", root, "--json", "--quiet"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    return outcome.code == 0 ? nlohmann::json::parse(outcome.out).size() : 0;
}

TEST(Corpus, EveryDesignBecomesWellFormedPicturesOfAllItsSheets) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets()) {
        TemporaryFolder folder;
        Outcome const outcome =
            RunProgram("figrep", {"render", root, "-o", folder.Path("%s.svg"), "--quiet"});
        ASSERT_EQ(outcome.code, 0) << root << ": " << outcome.err;
        std::vector<std::string> const files = folder.Files();
        EXPECT_EQ(files.size(), SheetCount(root)) << root;
        for (std::string const& file : files) {
            XmlDocument const document = CheckXml(ReadFile(folder.Path(file)));
            ASSERT_EQ(document.mistake, "") << root << " " << file;
            EXPECT_TRUE(document.HasUniqueIds()) << root << " " << file;
        }
    }
}

nlohmann::json Json(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--json", "--quiet"});
    Outcome const outcome = RunProgram("figrep", arguments);
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    return outcome.code == 0 ? nlohmann::json::parse(outcome.out) : nlohmann::json();
}

void ExpectPins(nlohmann::json const& net) {
    auto const pins = net.at("pins").get<std::vector<std::string>>();
    EXPECT_TRUE(std::is_sorted(pins.begin(), pins.end())) << net;
    EXPECT_EQ(std::adjacent_find(pins.begin(), pins.end()), pins.end()) << net;
    for (std::string const& pin : pins) {
        EXPECT_NE(pin.find(':'), std::string::npos) << pin;
        EXPECT_NE(pin.front(), '#') << pin;
    }
}

TEST(Corpus, EveryDesignIsToldInJson) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets()) {
        SCOPED_TRACE(root);
        nlohmann::json const nets = Json({"list", "nets", root});
        for (auto const& net : nets) {
            EXPECT_TRUE(net.at("name").is_string());
            EXPECT_TRUE(net.at("sheets").is_array());
            EXPECT_TRUE(net.at("subnets").is_array());
            ExpectPins(net);
        }
        nlohmann::json const items = Json({"list", "items", root});
        std::map<std::string, std::size_t> counts;
        for (auto const& item : items) {
            EXPECT_TRUE(item.at("id").is_string());
            EXPECT_TRUE(item.at("name").is_string());
            EXPECT_TRUE(item.at("sheet").is_string());
            ++counts[item.at("type").get<std::string>()];
        }
        nlohmann::json const info = Json({"info", root});
        EXPECT_EQ((info.at("items").get<std::map<std::string, std::size_t>>()), counts);
        EXPECT_EQ(info.at("nets"), nets.size());
        EXPECT_TRUE(info.at("warnings").is_number());
    }
}

}  // namespace
}  // namespace fighost::test
