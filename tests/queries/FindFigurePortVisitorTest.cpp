#include <figk/PortNode.h>
#include <figrep/FindFigurePortVisitor.h>
#include <figrep/Format.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <operations/OperationTestSupport.h>

namespace figrep::testing {
namespace {

class FindFigurePort : public FigureOfAll {
protected:
    void SetUp() override { SchematicRepresentation::GetSingleton()->ResetMap(); }
    void TearDown() override { SchematicRepresentation::GetSingleton()->ResetMap(); }

    SmartPtr<PortNode> Node(std::string const& label) const {
        return du::DynamicCast<PortNode>(Item(label));
    }
    SmartPtr<PortNode> BusNode() const { return Node("H/HP/1"); }
    SmartPtr<PortNode> NetNode() const { return Node("D/P/1"); }
    static Symbol KernelId(SmartPtr<PortNode> const& node) {
        return node->GetKernelPortNode()->GetId();
    }
    static Strings Registered() {
        zvk::SerializedContentElement element(Symbol("root"));
        SchematicRepresentation::GetSingleton()->CaptureContent(&element);
        return test::LinesOf(element);
    }
    /// The figure's format, taken off it: what is registered then is told as it was found.
    SmartPtr<Format> TakenFormat() const {
        auto const format = figure->GetFormat();
        figure->RemoveItem(format);
        return format;
    }
    static std::string CellOf(Format const& format, SmartPtr<PortNode> const& node) {
        Symbol column;
        Symbol row;
        format.CalculateGridLocation(node->GetPosition(), column, row);
        EXPECT_FALSE(column.IsEmpty() || row.IsEmpty());
        return column.GetString() + row.GetString();
    }
    /// Column and row of each node registered, in order.
    static Strings Cells(Strings const& lines) {
        Strings cells;
        auto const valueOf = [](std::string const& line) {
            auto const begin = line.find('\'') + 1;
            return line.substr(begin, line.rfind('\'') - begin);
        };
        for (auto const& line : lines) {
            if (line.find("fig_rep_x_grid=") != std::string::npos) cells.push_back(valueOf(line));
            if (line.find("fig_rep_y_grid=") != std::string::npos) cells.back() += valueOf(line);
        }
        return cells;
    }
    static bool Mentions(Strings const& lines, std::string const& text) {
        return std::any_of(lines.begin(), lines.end(),
                           [&](auto const& line) { return line.find(text) != std::string::npos; });
    }

    FindFigurePortVisitor visitor;
};

TEST_F(FindFigurePort, FindsANodeOnANetByTheIdOfItsRecord) {
    EXPECT_EQ(visitor.Find(figure, KernelId(NetNode())), NetNode());
}

TEST_F(FindFigurePort, FindsANodeOnAHighway) {
    EXPECT_EQ(visitor.Find(figure, KernelId(BusNode())), BusNode());
}

TEST_F(FindFigurePort, UnknownIdFindsNothingAndForgetsTheLastFind) {
    visitor.Find(figure, KernelId(NetNode()));
    EXPECT_FALSE(visitor.Find(figure, Symbol("nobody")));
}

TEST_F(FindFigurePort, EmptyIdWalksAllWiresAndFindsNothing) {
    EXPECT_FALSE(visitor.Find(figure, Symbol::EMPTY));
    EXPECT_EQ(Registered(), Strings{});
}

TEST_F(FindFigurePort, WithoutAFigureFindsNothing) {
    EXPECT_FALSE(visitor.Find({}, Symbol("p1")));
}

TEST_F(FindFigurePort, HiddenNodeIsNotFoundYetRegistered) {
    auto const node = NetNode();
    node->AddSetting(Visibility(false), true);
    visitor.SetFigureName(Symbol("F1"));
    EXPECT_FALSE(visitor.Find(figure, KernelId(node)));
    // Nodes that are hidden aren't written, so it is shown to be seen.
    node->AddSetting(Visibility(true), true);
    EXPECT_TRUE(Mentions(Registered(), KernelId(node).GetString()));
}

TEST_F(FindFigurePort, NodeOfAHiddenPortIsNotFound) {
    Item("D/P")->AddSetting(Visibility(false), true);
    EXPECT_FALSE(visitor.Find(figure, KernelId(NetNode())));
    EXPECT_EQ(visitor.Find(figure, KernelId(BusNode())), BusNode());
}

TEST_F(FindFigurePort, NodeWithAnExplicitVisibilityIsFound) {
    auto const node = NetNode();
    node->AddSetting(Visibility(true), true);
    EXPECT_EQ(visitor.Find(figure, KernelId(node)), node);
}

TEST_F(FindFigurePort, WithAFigureNameEveryNodeIsRegisteredWithItsGridCell) {
    visitor.SetFigureName(Symbol("F1"));
    visitor.Find(figure, Symbol::EMPTY);
    auto const format = TakenFormat();
    Strings const lines = Registered();
    EXPECT_TRUE(Mentions(lines, KernelId(NetNode()).GetString()));
    EXPECT_TRUE(Mentions(lines, KernelId(BusNode()).GetString()));
    EXPECT_EQ(Cells(lines), (Strings{CellOf(*format, NetNode()), CellOf(*format, BusNode())}));
}

TEST_F(FindFigurePort, AWalkByItselfReadsTheCellsOfTheFormatThatItWasGiven) {
    auto const format = TakenFormat();
    visitor.SetFigureName(Symbol("F1"));
    figure->Accept(visitor);
    EXPECT_EQ(Cells(Registered()), (Strings{"", ""}));
    visitor.SetFormat(format);
    figure->Accept(visitor);
    EXPECT_EQ(Cells(Registered()),
              (Strings{CellOf(*format, NetNode()), CellOf(*format, BusNode())}));
    visitor.Find(figure, Symbol::EMPTY);
    EXPECT_EQ(Cells(Registered()), (Strings{"", ""})) << "a search takes the figure's own";
}

TEST_F(FindFigurePort, WalkOfANetPassesByTheHighwaysPort) {
    figure->PrePivot(NetOf(figure, "B"));
    visitor.SetFigureName(Symbol("F1"));
    NetOf(figure, "B")->Accept(visitor);
    EXPECT_EQ(Registered(), Strings{});
}

TEST_F(FindFigurePort, ACopyStartsFromTheSameNames) {
    visitor.SetFigureName(Symbol("F1"));
    FindFigurePortVisitor copy(visitor);
    FindFigurePortVisitor assigned;
    assigned = copy;
    assigned.Find(figure, Symbol::EMPTY);
    EXPECT_TRUE(Mentions(Registered(), "F1"));
}

TEST_F(FindFigurePort, SubNetOnANetIsItsOwnWhateverTheName) {
    auto const subNet = NetOf(figure, "D");
    EXPECT_EQ(FindFigurePortVisitor::FindSubNetOnPortNode(NetNode(), "D"), subNet);
    EXPECT_EQ(FindFigurePortVisitor::FindSubNetOnPortNode(NetNode(), "something else"), subNet);
    EXPECT_EQ(FindFigurePortVisitor::FindSubNetOnPortNode(NetNode(), ""), subNet);
}

TEST_F(FindFigurePort, SubNetOnAHighwayIsTheOneOfThatName) {
    EXPECT_EQ(FindFigurePortVisitor::FindSubNetOnPortNode(BusNode(), "B"), NetOf(figure, "B"));
    EXPECT_FALSE(FindFigurePortVisitor::FindSubNetOnPortNode(BusNode(), "BB"));
    EXPECT_FALSE(FindFigurePortVisitor::FindSubNetOnPortNode(BusNode(), ""));
}

TEST_F(FindFigurePort, NoNodeHasNoSubNet) {
    EXPECT_FALSE(FindFigurePortVisitor::FindSubNetOnPortNode({}, "B"));
}

}  // namespace
}  // namespace figrep::testing
