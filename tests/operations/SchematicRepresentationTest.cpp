#include <operations/RepresentationTestSupport.h>

namespace figrep {

using namespace representation_testing;

TEST_F(RepresentationTest, AnEmptyRecordWritesNothing) {
    EXPECT_TRUE(Capture().empty());
    record->CaptureContent(nullptr);
}

TEST_F(RepresentationTest, ABusPortLeadsWhereItsNetGoesOn) {
    AddBusNodes();
    EXPECT_EQ(FiguresFor(BusNode(first), NetOf(first, "A")), (Strings{"F2"}));
    EXPECT_EQ(FiguresFor(BusNode(first), NetOf(first, "B")), Strings{});
    EXPECT_EQ(FiguresFor(BusNode(second), NetOf(second, "A")), (Strings{"F1"}));
}

TEST_F(RepresentationTest, OnAHighwayWithoutASubNetAllActiveDetailsButTheNodesOwnAnswer) {
    AddBusNodes();
    EXPECT_EQ(FiguresFor(BusNode(first), nullptr), (Strings{"F2"}));
    Hide(BusNode(second));
    EXPECT_EQ(FiguresFor(BusNode(first), nullptr), Strings{});
}

TEST_F(RepresentationTest, OnAPlainPortAllDetailsButTheNodesOwnAnswerActiveOrNot) {
    AddNetNodes();
    EXPECT_EQ(FiguresFor(NetNode(first), nullptr), (Strings{"F2"}));
    Hide(NetNode(second));
    EXPECT_EQ(FiguresFor(NetNode(first), nullptr), (Strings{"F2"}));
    EXPECT_EQ(FiguresFor(NetNode(first), NetOf(first, "C")), (Strings{"F2"}));
}

TEST_F(RepresentationTest, OnlyTheFirstSubNetOfTheNameSaysWhetherTheNetIsCarriedOn) {
    AddBusNodes();
    auto const subNet = NetOf(first, "A");
    BusNode(second)->Add(SmartPtr<SubNet>(new SubNet(second, second->GetLock(), "A")));
    EXPECT_EQ(FiguresFor(BusNode(first), subNet), (Strings{"F2"}));
    Hide(NetOf(second, "A"));
    EXPECT_EQ(FiguresFor(BusNode(first), subNet), Strings{});
}

TEST_F(RepresentationTest, AHiddenNodeOfABusCarriesNoNet) {
    AddBusNodes();
    Hide(BusNode(second));
    EXPECT_EQ(FiguresFor(BusNode(first), NetOf(first, "A")), Strings{});
}

TEST_F(RepresentationTest, AHiddenNetIsNotCarriedOn) {
    AddBusNodes();
    Hide(NetOf(second, "A"));
    EXPECT_EQ(FiguresFor(BusNode(first), NetOf(first, "A")), Strings{});
}

TEST_F(RepresentationTest, AddingADetailTwiceLeavesOneAtTheEnd) {
    AddNetNodes();
    record->PortNodeAddFigureDetail(NetNode(first), first);
    auto const lines = Capture();
    EXPECT_EQ(Count(lines, "sch_figure_port_node_detail {"), 2U);
    EXPECT_GT(std::find(lines.begin(), lines.end(), "fig_rep_figure_id='F1'"),
              std::find(lines.begin(), lines.end(), "fig_rep_figure_id='F2'"));
}

TEST_F(RepresentationTest, AnUnknownFigureAddsNothing) {
    SmartPtr<Figure> const stranger(new Figure);
    record->PortNodeAddFigureDetail(NetNode(first), stranger);
    record->PortNodeAddFigureDetail(nullptr, first);
    record->PortNodeAddFigureDetail(NetNode(first), nullptr);
    EXPECT_TRUE(Capture().empty());
    EXPECT_EQ(FiguresFor(NetNode(first), nullptr), Strings{});
    EXPECT_EQ(FiguresFor(nullptr, nullptr), Strings{});
}

TEST_F(RepresentationTest, AFigureThatClosesTakesItsDetailsAlong) {
    AddNetNodes();
    record->RemoveFigure(second);
    EXPECT_EQ(FiguresFor(NetNode(first), nullptr), Strings{});
    record->RemoveFigure(first);
    EXPECT_TRUE(Capture().empty());
}

TEST_F(RepresentationTest, GridReferencesAreReadFromTheFormat) {
    AddNetNodes();
    std::vector<FigurePortNodeDetail> details;
    record->GetFiguresForPortNode(NetNode(first), nullptr, details);
    ASSERT_EQ(details.size(), 1U);
    EXPECT_EQ(details[0].GetXGrid().GetString(), "1");
    EXPECT_EQ(details[0].GetYGrid().GetString(), "B");
    EXPECT_EQ(record->GetFigureDetails(details, Symbol("F2")).size(), 1U);
    EXPECT_TRUE(record->GetFigureDetails(details, Symbol("F1")).empty());
}

TEST_F(RepresentationTest, WithoutAFormatAGridReferenceStaysAsItWas) {
    SmartPtr<PortNode> const node = NetNode(second);
    record->PortAddFigureDetail(node->GetPort()->GetId(), Symbol("F2"), Symbol("elsewhere"), node,
                                Symbol("x"), Symbol("y"));
    second->RemoveItem(second->GetFormat());
    ASSERT_FALSE(second->GetFormat());
    std::vector<FigurePortNodeDetail> details;
    record->GetFiguresForPortNode(NetNode(first), nullptr, details);
    ASSERT_EQ(details.size(), 1U);
    EXPECT_EQ(details[0].GetXGrid().GetString(), "x");
    EXPECT_EQ(details[0].GetYGrid().GetString(), "y");
}

TEST_F(RepresentationTest, ANewNameOfAFigureCountsForTheNodesAddedAfterwards) {
    record->AddActiveFigure(second, Symbol("renamed"));
    AddNetNodes();
    EXPECT_EQ(FiguresFor(NetNode(first), nullptr), (Strings{"renamed"}));
    record->AddActiveFigure(nullptr, Symbol("nothing"));
}

TEST_F(RepresentationTest, DetailsOfOneFigureAreFoundInTheirOrder) {
    auto const detail = [](char const* figure, char const* node) {
        return FigurePortNodeDetail(Symbol(figure), Symbol(node), nullptr, Symbol(), Symbol());
    };
    std::vector<FigurePortNodeDetail> const all{detail("F", "b"), detail("G", "c"),
                                                detail("F", "a")};
    EXPECT_EQ(record->GetFigureDetails(all, Symbol("F")),
              (std::vector<FigurePortNodeDetail>{detail("F", "b"), detail("F", "a")}));
}

TEST_F(RepresentationTest, AMovedFormatStillGivesTheKernelsCell) {
    AddNetNodes();
    SmartPtr<Format> const format = second->GetFormat();
    dg::DPoint2D const at = NetNode(second)->GetPosition();
    second->MoveItem(format, -25, 50);
    Symbol x;
    Symbol y;
    format->GetKernelFormat()->CalculateGridLocation({at.x + 25, at.y - 50}, x, y);
    ASSERT_FALSE(x.IsEmpty());
    std::vector<FigurePortNodeDetail> details;
    record->GetFiguresForPortNode(NetNode(first), nullptr, details);
    ASSERT_EQ(details.size(), 1U);
    EXPECT_EQ(details[0].GetXGrid(), x);
    EXPECT_EQ(details[0].GetYGrid(), y);
    EXPECT_EQ(Count(Capture(), "fig_rep_y_grid='" + y.GetString() + "'"), 1U)
        << "and so it is saved";
}

TEST_F(RepresentationTest, APortThatIsNotOnRecordLeadsNowhere) {
    EXPECT_EQ(FiguresFor(NetNode(first), nullptr), Strings{});
    EXPECT_EQ(FiguresFor(nullptr, nullptr), Strings{});
    std::vector<FigurePortNodeDetail> details;
    record->GetFiguresForPort(Symbol("nobody"), false, Symbol("A"), details);
    EXPECT_TRUE(details.empty());
}

TEST_F(RepresentationTest, AskedByIdsItAnswersForAllNodesThatCarryTheNet) {
    AddBusNodes();
    AddNetNodes();
    auto const ask = [&](SmartPtr<PortNode> const& node, bool onHighway, char const* net) {
        std::vector<FigurePortNodeDetail> details;
        record->GetFiguresForPort(node->GetPort()->GetId(), onHighway, Symbol(net), details);
        Strings figures;
        for (auto const& detail : details)
            figures.push_back(detail.GetFigureName().GetString());
        return figures;
    };
    for (bool const readBack : {false, true}) {
        EXPECT_EQ(ask(BusNode(first), true, "A"), (Strings{"F1", "F2"})) << readBack;
        EXPECT_EQ(ask(BusNode(first), true, "B"), (Strings{"F1"})) << readBack;
        EXPECT_EQ(ask(BusNode(first), true, "Z"), Strings{}) << readBack;
        EXPECT_EQ(ask(NetNode(first), false, ""), (Strings{"F1", "F2"})) << readBack;
        SerializedContentElement root(Symbol("root"));
        record->CaptureContent(&root);
        record->CreateFromContent(&root);
    }
}

TEST_F(RepresentationTest, TheNetsOfAPortNodeAreNamedHiddenOnesToo) {
    Hide(NetOf(first, "B"));
    std::vector<Symbol> names;
    record->GetPortNodeNetNames(BusNode(first), names);
    EXPECT_EQ(names, (std::vector<Symbol>{Symbol("A"), Symbol("B")}));
    record->GetPortNodeNetNames(nullptr, names);
    EXPECT_EQ(names.size(), 2U);
}

// Dead ends.

namespace {

/// The segments of the figure's highways that carry a sub-net.
std::size_t SegmentsWith(SmartPtr<Figure> const& figure, SmartPtr<SubNet> const& subNet) {
    std::size_t count = 0;
    for (auto const& highway : figure->GetSubHighways()) {
        auto const head = highway->GetHead();
        for (auto node = head->Begin(); node != head->End(); ++node) {
            auto const segment = du::DynamicCast<HighwaySegment>(*node);
            if (segment && segment->Visit(subNet)) ++count;
        }
    }
    return count;
}

}  // namespace

TEST_F(RepresentationTest, HidingASubNetRemovesThePathWithoutABranch) {
    auto const net = NetOf(first, "B");
    ASSERT_EQ(SegmentsWith(first, net), 2U);
    record->HideSubNet(BusNode(first), net);
    EXPECT_EQ(SegmentsWith(first, net), 0U);
    EXPECT_EQ(SegmentsWith(first, NetOf(first, "A")), 1U);
    record->HideSubNet(nullptr, net);
    record->HideSubNet(BusNode(first), nullptr);
    EXPECT_EQ(SegmentsWith(first, NetOf(first, "A")), 1U);
}

TEST_F(RepresentationTest, HidingStopsAfterTheFirstNodeWhereTheNetBranches) {
    test::Drawing drawing;
    drawing.Bus("H", 0, 0, 30, 0).BusPort("HP", "H", 0, 0);
    drawing.Tap("A", "H", 10, 0, 12, 2).Wire("A", 12, 2, 12, 30);
    drawing.Tap("A", "H", 20, 0, 22, 2).Wire("A", 22, 2, 22, 20);
    auto const branched = drawing.BuildDesign();
    auto const figure = test::FramedFigure(branched->GetSheets().at(0));
    auto const net = NetOf(figure, "A");
    ASSERT_EQ(SegmentsWith(figure, net), 2U);
    record->HideSubNet(BusNode(figure), net);
    EXPECT_EQ(SegmentsWith(figure, net), 1U);
}

TEST_F(RepresentationTest, OutsideTheAuthoringApplicationDeadEndsAreHiddenWhenANodeIsAdded) {
    record->PortNodeAddFigureDetail(BusNode(second), second);
    zvk::depiction::SetRunningDepict(false);
    record->PortNodeAddFigureDetail(BusNode(first), first);
    EXPECT_EQ(SegmentsWith(first, NetOf(first, "A")), 1U);
    EXPECT_EQ(SegmentsWith(first, NetOf(first, "B")), 0U);
}

TEST_F(RepresentationTest, InTheAuthoringApplicationDeadEndsStay) {
    record->PortNodeAddFigureDetail(BusNode(second), second);
    record->PortNodeAddFigureDetail(BusNode(first), first);
    EXPECT_EQ(SegmentsWith(first, NetOf(first, "B")), 2U);
}

TEST_F(RepresentationTest, ThePublishKeysHaveTheirTexts) {
    EXPECT_EQ(SchematicRepresentation::s_export_animation.GetString(), "export_animation");
    EXPECT_EQ(SchematicRepresentation::s_export_xrscene.GetString(), "export_xrscene");
}

TEST(FigurePortNodeDetail, IsEqualByFigureAndNodeAlone) {
    FigurePortNodeDetail const a(Symbol("F"), Symbol("n"), nullptr, Symbol("1"), Symbol("A"));
    FigurePortNodeDetail b(Symbol("F"), Symbol("n"), nullptr, Symbol("2"), Symbol("B"));
    b.SetNetNames({Symbol("x")});
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(
        a == FigurePortNodeDetail(Symbol("G"), Symbol("n"), nullptr, Symbol::EMPTY, Symbol::EMPTY));
    EXPECT_TRUE(b.CarriesNet(Symbol("x")));
    EXPECT_FALSE(a.CarriesNet(Symbol("x")));
    EXPECT_TRUE(a.IsActive());
    EXPECT_TRUE(IsVisible(nullptr));
}

}  // namespace figrep
