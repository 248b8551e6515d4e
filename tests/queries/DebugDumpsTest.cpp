#include <figk/Miscellaneous.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/DebugConnectivityVisitor.h>
#include <figrep/DebugSettingsVisitor.h>
#include <figrep/GenericGraphic.h>
#include <figrep/GraphicGroup.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/Miscellaneous.h>
#include <figrep/NetSegment.h>
#include <figrep/SubHighway.h>
#include <operations/OperationTestSupport.h>
#include <support/GeneratedDesign.h>

#include <map>
#include <set>
#include <sstream>

namespace figrep::testing {
namespace {

/// Names objects by the order in which they are first met: junctions may be others at the next
/// walk.
class Numbers {
public:
    std::string Of(du::RefCounted const& object) {
        auto const next = static_cast<int>(numbers_.size()) + 1;
        return "#" + std::to_string(numbers_.try_emplace(&object, next).first->second);
    }

private:
    std::map<du::RefCounted const*, int> numbers_;
};

class NumberingDump : public DebugConnectivityVisitor {
public:
    explicit NumberingDump(std::ostream& out) : DebugConnectivityVisitor(out) {}

protected:
    std::string NameOf(du::RefCounted const& object) override { return numbers_.Of(object); }

private:
    Numbers numbers_;
};

Strings LinesOfText(std::string const& text) {
    Strings lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

bool HasLine(Strings const& lines, std::string const& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

/// What the dump of a figure's trees must be, put together from their links.
class ExpectedDump {
public:
    explicit ExpectedDump(SmartPtr<Figure> const& figure) {
        for (auto const& subHighway : figure->GetSubHighways()) {
            Add(Named("++ SubHighway " + subHighway->GetId().GetString(), *subHighway));
            AddTree(subHighway->GetHead(), {});
        }
        for (auto const& subNet : figure->GetSubNets()) {
            Add(Named("++ SubNet " + subNet->GetId().GetString(), *subNet) + " of Net " +
                subNet->GetName());
            AddTree(subNet->GetHead(), subNet);
        }
    }

    std::string text;
    std::set<int> kinds;  // of the nodes

private:
    std::string Named(std::string const& line, du::RefCounted const& object) {
        return line + " (" + numbers_.Of(object) + ")";
    }
    void Add(std::string const& line) { text += line + "\n"; }
    void AddChild(std::string const& side, SmartPtr<ConnectionNode> const& child) {
        Add(side + (child ? Named(child->ToString(), *child) : "0"));
    }
    void AddTree(SmartPtr<ConnectionNode> const& node, SmartPtr<SubNet> const& only) {
        if (!node || (only && !node->Visit(only))) return;
        kinds.insert(node->GetNodeType());
        std::string name = "  " + node->ToString();
        if (auto const tap = du::DynamicCast<HighwayNode>(node)) {
            name += " on highway " + tap->GetSubHighway()->GetName();
        }
        Add(Named(name, *node));
        AddChild("    Left : ", node->GetLeftSuccessor());
        AddChild("    Right : ", node->GetRightSuccessor());
        Add("");
        AddTree(node->GetLeftSuccessor(), only);
        AddTree(node->GetRightSuccessor(), only);
    }

    Numbers numbers_;
};

class Dumps : public FigureOfAll {
protected:
    Strings Connectivity() {
        std::ostringstream out;
        NumberingDump dump(out);
        figure->Accept(dump);
        return LinesOfText(out.str());
    }
    Strings Settings() {
        std::ostringstream out;
        DebugSettingsVisitor dump(out);
        figure->Accept(dump);
        return LinesOfText(out.str());
    }
    static void SetColor(SettingList& list) {
        ConstSmartPtr<figk::BaseSettingValue> const value =
            new figk::SettingValue<Color>(Color::RED);
        list.AddSetting(new Setting(Setting::COLOR, value, figk::Setting::LEVEL_DEFAULT, true),
                        true);
    }
};

TEST_F(Dumps, ANetIsWrittenNodeByNodeWithItsChildren) {
    std::ostringstream out;
    NumberingDump dump(out);
    auto const net = NetOf(figure, "A");
    net->Accept(dump);
    std::string const id = net->GetId().GetString();
    auto const nodes = NodesOf<ConnectionNode>(net);
    ASSERT_EQ(nodes.size(), 3u);
    EXPECT_EQ(
        LinesOfText(out.str()),
        (Strings{"++ SubNet " + id + " (#1) of Net A", "  " + nodes[0]->ToString() + " (#2)",
                 "    Left : " + nodes[1]->ToString() + " (#3)", "    Right : 0", "",
                 "  " + nodes[1]->ToString() + " (#3)",
                 "    Left : " + nodes[2]->ToString() + " (#4)", "    Right : 0", "",
                 "  " + nodes[2]->ToString() + " (#4)", "    Left : 0", "    Right : 0", ""}));
}

TEST(ConnectivityDump, HasEveryNodeOfEveryTreeWithWhatHangsBelowIt) {
    std::set<int> kinds;
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        InstalledDesign const installed(test::GenerateTangle(seed));
        auto const figure = test::FramedFigure(installed.Sheet());
        std::ostringstream out;
        NumberingDump dump(out);
        figure->Accept(dump);
        ExpectedDump const expected(figure);
        ASSERT_EQ(out.str(), expected.text) << "seed " << seed;
        kinds.insert(expected.kinds.begin(), expected.kinds.end());
    }
    using Node = figk::BaseConnectionNode;
    EXPECT_EQ(kinds,
              (std::set<int>{Node::NODE_CONNECTOR_INSTANCE, Node::NODE_JUNCTION, Node::NODE_HIGHWAY,
                             Node::NODE_HIGHWAY_SEGMENT, Node::NODE_NET_SEGMENT, Node::NODE_PORT}));
}

TEST_F(Dumps, TwoRunsWithNamesThatStayAreEqual) {
    auto const first = Connectivity();
    EXPECT_EQ(Connectivity(), first);
    EXPECT_GT(first.size(), 20u);
}

TEST_F(Dumps, AHighwayTellsWhereNetsEnterIt) {
    auto const lines = Connectivity();
    EXPECT_TRUE(HasLine(lines, "++ SubHighway " + Item("H")->GetId().GetString() + " (#1)"));
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [](std::string const& line) {
        return line.starts_with("  HighwayNode on highway H (#");
    }));
}

TEST_F(Dumps, ANetWithoutARecordSaysSo) {
    SmartPtr<SubNet> const own = new SubNet(figure, figure->GetLock(), "own");
    std::ostringstream out;
    NumberingDump dump(out);
    own->Accept(dump);
    EXPECT_EQ(LinesOfText(out.str()),
              Strings{"++ SubNet " + own->GetId().GetString() + " (#1) kernel Net not known"});
}

TEST_F(Dumps, LimitedToOneSubNetTheOthersAreLeftOut) {
    std::ostringstream out;
    NumberingDump dump(out);
    dump.SetSubNet(NetOf(figure, "A"));
    figure->Accept(dump);
    auto const lines = LinesOfText(out.str());
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](auto const& line) { return line.starts_with("++ SubNet"); }),
              1);
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                            [](auto const& line) { return line.starts_with("++ SubHighway"); }),
              1);
}

TEST_F(Dumps, TheLimitCanBeLifted) {
    auto const all = Connectivity();
    std::ostringstream out;
    NumberingDump dump(out);
    dump.SetSubNet(NetOf(figure, "A"));
    dump.UnsetSubNet();
    figure->Accept(dump);
    EXPECT_EQ(LinesOfText(out.str()), all);
}

TEST_F(Dumps, WithoutAnotherWayObjectsAreNamedByTheirAddresses) {
    std::ostringstream out;
    DebugConnectivityVisitor dump(out);
    auto const net = NetOf(figure, "A");
    net->Accept(dump);
    std::ostringstream address;
    address << dynamic_cast<void const*>(net.Get());
    EXPECT_NE(out.str().find("(" + address.str() + ") of Net A"), std::string::npos);
}

TEST_F(Dumps, WithoutAStreamTheyWriteToTheStandardOutput) {
    ::testing::internal::CaptureStdout();
    DebugConnectivityVisitor connectivity;
    NetOf(figure, "A")->Accept(connectivity);
    SetColor(*Item("U1"));
    DebugSettingsVisitor settings;
    Item("U1")->Accept(settings);
    std::string const text = ::testing::internal::GetCapturedStdout();
    EXPECT_NE(text.find("++ SubNet"), std::string::npos);
    EXPECT_NE(text.find("BlockInstance\n"), std::string::npos);
}

TEST_F(Dumps, SettingsOfAFigureWithoutAnyOnItsItemsAreItsOwn) {
    auto const lines = Settings();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "Figure");
    EXPECT_EQ(lines.back(), "");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), ""), 1);
}

TEST_F(Dumps, EachKindOfItemHasItsTitle) {
    for (auto const& label : {"U1", "K", "T", "format", "H", "C1", "A", "free", "g1", "gline"})
        SetColor(*Item(label));
    SetColor(*BlockOf(figure, "U1")->GetConnectorInstances().at(0));
    SetColor(*NodesOf<NetSegment>(NetOf(figure, "A")).at(0));
    SetColor(*NodesOf<HighwaySegment>(NetOf(figure, "B")).at(0));
    auto const lines = Settings();
    for (auto const& title :
         {"Figure", "BlockInstance", "CableInstance", "ConnectorInstance", "TableInstance",
          "Format", "SubHighway", "SubNet on K", "SubNet", "NetSegment on A", "HighwaySegment on H",
          "++TextGraphic ('free') on Figure named free", "++TextGraphic ('g1') on Figure"}) {
        EXPECT_TRUE(HasLine(lines, title)) << title;
    }
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [](std::string const& line) {
        return line.starts_with("++GenericGraphic on Figure");
    }));
}

TEST_F(Dumps, AMiscellaneousItemHasItsTitleToo) {
    SmartPtr<Miscellaneous> const misc = new Miscellaneous(figure->GetLock(), nullptr);
    SetColor(*misc);
    std::ostringstream out;
    DebugSettingsVisitor dump(out);
    misc->Accept(dump);
    EXPECT_TRUE(out.str().starts_with("Miscellaneous\n  ")) << out.str();
    EXPECT_TRUE(out.str().ends_with("\n\n")) << out.str();
}

TEST_F(Dumps, SettingsAreWrittenOneToALine) {
    SetColor(*Item("U1"));
    unsigned depth = 0;
    auto const color = Item("U1")->GetSetting(Setting::COLOR, depth);
    EXPECT_TRUE(HasLine(Settings(), "  " + color->ToString()));
}

TEST_F(Dumps, SettingsOfOtherLevelsAreNotShown) {
    Item("U1")->AddSetting(Visibility(false), true);
    auto const lines = Settings();
    EXPECT_TRUE(HasLine(lines, "BlockInstance"));
    for (auto const& line : lines)
        EXPECT_EQ(line.find("ITEM_VISIBILITY"), std::string::npos);
}

TEST_F(Dumps, GraphicOfNothingIsOnAnUnknownItem) {
    SmartPtr<GraphicGroup> const loose = new GraphicGroup(nullptr);
    SmartPtr<GenericGraphic> const graphic =
        GenericGraphic::Create(figure->GetLock(), DBox2D(0, 0, 1, 1), SmartPtr<figk::Group>(loose));
    SetColor(*graphic);
    std::ostringstream out;
    DebugSettingsVisitor dump(out);
    graphic->Accept(dump);
    EXPECT_TRUE(out.str().starts_with("++GenericGraphic on an unknown item")) << out.str();
}

}  // namespace
}  // namespace figrep::testing
