// The nets that a user is shown against the nets computed a second time from the files.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <integration/oracle/NetOracle.h>
#include <session/Session.h>
#include <session/query/Inventory.h>
#include <support/Corpus.h>

namespace fighost {
namespace {

using Pins = std::set<std::string>;

std::multiset<Pins> PinSets(std::vector<oracle::Net> const& nets) {
    std::multiset<Pins> sets;
    for (oracle::Net const& net : nets)
        sets.insert(net.pins);
    return sets;
}

std::string Text(Pins const& pins) {
    std::string text;
    for (std::string const& pin : pins)
        text += (text.empty() ? "" : " ") + pin;
    return text;
}

/// The nets with pins as the session tells them.
std::vector<oracle::Net> ShownNets(Session const& session) {
    std::vector<oracle::Net> nets;
    for (NetEntry const& entry : ListNets(session)) {
        if (entry.pins.empty()) continue;
        oracle::Net net;
        net.name = entry.name;
        net.pins.insert(entry.pins.begin(), entry.pins.end());
        net.sheets.insert(entry.sheets.begin(), entry.sheets.end());
        EXPECT_EQ(net.pins.size(), entry.pins.size()) << entry.name << " has a pin twice";
        EXPECT_TRUE(std::is_sorted(entry.pins.begin(), entry.pins.end())) << entry.name;
        nets.push_back(net);
    }
    return nets;
}

void ExpectSameNets(std::vector<oracle::Net> const& expected,
                    std::vector<oracle::Net> const& shown) {
    std::multiset<Pins> const left = PinSets(expected);
    std::multiset<Pins> const right = PinSets(shown);
    std::vector<Pins> missing, surplus;
    std::set_difference(left.begin(), left.end(), right.begin(), right.end(),
                        std::back_inserter(missing));
    std::set_difference(right.begin(), right.end(), left.begin(), left.end(),
                        std::back_inserter(surplus));
    for (Pins const& pins : missing)
        ADD_FAILURE() << "missing net: " << Text(pins);
    for (Pins const& pins : surplus)
        ADD_FAILURE() << "surplus net: " << Text(pins);
    if (!missing.empty() || !surplus.empty()) return;

    // With equal pin sets the names and sheets must agree as well.
    // Parts without a number of their own give several nets one name; those are numbered when
    // shown.
    std::map<std::string, int> uses;
    for (oracle::Net const& net : expected)
        ++uses[net.name];
    std::multimap<Pins, oracle::Net const*> byPins;
    for (oracle::Net const& net : shown)
        byPins.emplace(net.pins, &net);
    for (oracle::Net const& net : expected) {
        if (byPins.count(net.pins) != 1) continue;
        oracle::Net const& other = *byPins.find(net.pins)->second;
        std::string const shownName =
            uses[net.name] > 1 ? other.name.substr(0, net.name.size()) : other.name;
        EXPECT_EQ(net.name, shownName) << Text(net.pins);
        EXPECT_EQ(net.sheets, other.sheets) << net.name;
    }
}

TEST(CorpusNets, AgreeWithTheIndependentComputation) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets()) {
        SCOPED_TRACE(root);
        Session::Opened const opened = Session::Open(root);
        ASSERT_TRUE(opened.session) << (opened.error ? opened.error->ToString() : std::string());
        ExpectSameNets(oracle::ComputeNets(root), ShownNets(*opened.session));
    }
}

TEST(CorpusNets, NamesAreUnique) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets()) {
        SCOPED_TRACE(root);
        Session::Opened const opened = Session::Open(root);
        ASSERT_TRUE(opened.session);
        std::set<std::string> names;
        for (NetEntry const& entry : ListNets(*opened.session))
            EXPECT_TRUE(names.insert(entry.name).second) << entry.name;
    }
}

}  // namespace
}  // namespace fighost
