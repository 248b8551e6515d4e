#include <figk/Format.h>
#include <figk/PortNode.h>
#include <figk/SchematicKernel.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/Format.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <support/Drawing.h>
#include <zvk/Depiction.h>
#include <zvk/SerializedContentElement.h>
#include <zvk/World.h>
#include <zvkapp/PublishOption.h>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace figrep {

namespace {

using zvk::SerializedContentElement;
using Strings = std::vector<std::string>;

SmartPtr<Figure> LoadedFigure(SmartPtr<figk::Sheet> const& sheet) {
    SmartPtr<Figure> figure(new Figure);
    SmartPtr<FigureSheetDeltaGenerator> const generator(new FigureSheetDeltaGenerator(sheet));
    figure->GenerateDeltas(*generator);
    figure->ApplyDeltas(false);
    if (auto const frame = sheet->GetFormat()) {
        figure->Receive(SmartPtr<Format>(new Format(figure->GetLock(), frame)));
    }
    return figure;
}

/// Writes stored content down, one line per element and property.
class Lines : public zvk::SerializedContentVisitor {
public:
    explicit Lines(SerializedContentElement const& element) { element.Visit(*this, true); }

    bool StartElement(Symbol const& name) override {
        lines.push_back(name.GetString() + " {");
        return true;
    }
    void EndElement(Symbol const&) override { lines.emplace_back("}"); }
    void Visit(Symbol const& key, Symbol const& value) override {
        lines.push_back(key.GetString() + "=" + value.GetString());
    }
    using zvk::SerializedContentVisitor::Visit;

    Strings lines;
};

Strings LinesOf(SerializedContentElement const& element) {
    return Lines(element).lines;
}

std::size_t Count(Strings const& lines, std::string const& line) {
    return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), line));
}

/// Whether a process of the authoring application wants content, at once or when the world says
/// that it may have changed. A process has one record only, so a child is asked.
bool AuthoringApplicationWantsContent() {
    pid_t const child = fork();
    if (child == 0) {
        zvk::depiction::SetRunningDepict(true);
        auto const record = SchematicRepresentation::GetSingleton();
        bool const atOnce = record->GetNeedLoading();
        zvk::World::GetWorld()->NotifyContentMayHaveChanged();
        _exit(atOnce || record->GetNeedLoading() ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status != 0;
}

/// The record listens to the world that there is when it is first asked for, which any test of the
/// program may do.
class InAWorld : public ::testing::Environment {
public:
    void SetUp() override {
        zvk::World::SetWorld(new zvk::World);
        authoringWantsContent = AuthoringApplicationWantsContent();
        neededLoadingAtFirst = SchematicRepresentation::GetSingleton()->GetNeedLoading();
    }
    void TearDown() override { zvk::World::SetWorld(nullptr); }

    inline static bool neededLoadingAtFirst = false;
    inline static bool authoringWantsContent = true;
};

[[maybe_unused]] ::testing::Environment* const inAWorld =
    ::testing::AddGlobalTestEnvironment(new InAWorld);

/// Two sheets that share a bus port; the bus carries A and B on the first, A alone on the second.
/// A plain port of the net C shows on both as well.
class RepresentationTest : public ::testing::Test {
protected:
    void SetUp() override {
        zvk::depiction::SetRunningDepict(true);
        record = SchematicRepresentation::GetSingleton();
        record->ResetMap();
        test::Drawing drawing;
        drawing.Format(100, 100, 4, 4);
        AddBus(drawing);
        drawing.Tap("B", "H", 20, 0, 22, 2).Wire("B", 22, 2, 40, 2);
        drawing.NetPort("CP", "C", 60, 60).Wire("C", 60, 60, 80, 60);
        drawing.Sheet("S2").Format(100, 100, 4, 4);
        AddBus(drawing);
        drawing.NetPort("CP", "C", 10, 60).Wire("C", 10, 60, 30, 60);
        design = drawing.BuildDesign();
        first = LoadedFigure(design->GetSheets().at(0));
        second = LoadedFigure(design->GetSheets().at(1));
        record->AddActiveFigure(first, Symbol("F1"));
        record->AddActiveFigure(second, Symbol("F2"));
    }
    void TearDown() override {
        record->ResetMap();
        zvk::depiction::SetRunningDepict(false);
    }

    static void AddBus(test::Drawing& drawing) {
        drawing.Bus("H", 0, 0, 30, 0).BusPort("HP", "H", 0, 0);
        drawing.Tap("A", "H", 10, 0, 12, 2).Wire("A", 12, 2, 12, 30);
    }

    static SmartPtr<PortNode> NodeOf(SmartPtr<Figure> const& figure, bool onHighway) {
        for (auto const& port : figure->GetPorts()) {
            if (port->OnHighwayNotNet() == onHighway) return port->GetPortNodes().at(0);
        }
        return nullptr;
    }
    SmartPtr<PortNode> BusNode(SmartPtr<Figure> const& figure) const {
        return NodeOf(figure, true);
    }
    SmartPtr<PortNode> NetNode(SmartPtr<Figure> const& figure) const {
        return NodeOf(figure, false);
    }
    static SmartPtr<SubNet> NetOf(SmartPtr<Figure> const& figure, std::string const& name) {
        for (auto const& subNet : figure->GetSubNets()) {
            if (subNet->GetName() == name) return subNet;
        }
        return nullptr;
    }
    static void Hide(SmartPtr<AbstractFigureItem> const& item) {
        ConstSmartPtr<figk::BaseSettingValue> const no(new figk::SettingValue<bool>(false));
        item->AddSetting(ConstSmartPtr<Setting>(new Setting(Setting::ITEM_VISIBILITY, no,
                                                            figk::Setting::LEVEL_FIGURE, true)),
                         true);
    }
    void AddBusNodes() const {
        record->PortNodeAddFigureDetail(BusNode(first), first);
        record->PortNodeAddFigureDetail(BusNode(second), second);
    }
    void AddNetNodes() const {
        record->PortNodeAddFigureDetail(NetNode(first), first);
        record->PortNodeAddFigureDetail(NetNode(second), second);
    }
    Strings FiguresFor(SmartPtr<PortNode> const& node, SmartPtr<SubNet> const& subNet) const {
        std::vector<FigurePortNodeDetail> details;
        record->GetFiguresForPortNode(node, subNet, details);
        Strings names;
        for (auto const& detail : details)
            names.push_back(detail.GetFigureName().GetString());
        return names;
    }
    Strings Capture() const {
        SerializedContentElement root(Symbol("root"));
        record->CaptureContent(&root);
        return LinesOf(root);
    }

    SmartPtr<SchematicRepresentation> record;
    SmartPtr<figk::Design> design;
    SmartPtr<Figure> first;
    SmartPtr<Figure> second;
};

}  // namespace

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
    EXPECT_GT(std::find(lines.begin(), lines.end(), "fig_rep_figure_id=F1"),
              std::find(lines.begin(), lines.end(), "fig_rep_figure_id=F2"));
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
    EXPECT_EQ(Count(Capture(), "fig_rep_y_grid=" + y.GetString()), 1U) << "and so it is saved";
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

// Content.

TEST_F(RepresentationTest, ContentHasTheNamedElementsAndProperties) {
    record->PortNodeAddFigureDetail(BusNode(first), first);
    std::string const port = BusNode(first)->GetPort()->GetId().GetString();
    std::string const node = BusNode(first)->GetKernelPortNode()->GetId().GetString();
    EXPECT_EQ(Capture(),
              (Strings{"fig_representation {", "sch_port {", "sch_port_id=" + port,
                       "sch_figure_port_node_detail {", "fig_rep_figure_id=F1",
                       "sch_port_node_id=" + node, "fig_rep_x_grid=1", "fig_rep_y_grid=D",
                       "sch_net_names {", "sch_net_name=A", "sch_net_name=B", "}", "}", "}", "}"}));
}

TEST_F(RepresentationTest, AHiddenNodesDetailIsLeftOutButItsPortIsWritten) {
    record->PortNodeAddFigureDetail(NetNode(first), first);
    Hide(NetNode(first));
    auto const lines = Capture();
    EXPECT_EQ(Count(lines, "sch_port {"), 1U);
    EXPECT_EQ(lines,
              (Strings{"fig_representation {", "sch_port {",
                       "sch_port_id=" + NetNode(first)->GetPort()->GetId().GetString(), "}", "}"}));
}

TEST_F(RepresentationTest, ADetailReadBackIsWrittenThoughItsNodeIsHidden) {
    record->PortNodeAddFigureDetail(NetNode(first), first);
    SerializedContentElement root(Symbol("root"));
    record->CaptureContent(&root);
    Hide(NetNode(first));
    record->CreateFromContent(&root);
    EXPECT_EQ(Capture(), LinesOf(root));
}

TEST_F(RepresentationTest, AHiddenNetIsNotNamedInContent) {
    record->PortNodeAddFigureDetail(BusNode(first), first);
    Hide(NetOf(first, "A"));
    auto const lines = Capture();
    EXPECT_EQ(Count(lines, "sch_net_name=A"), 0U);
    EXPECT_EQ(Count(lines, "sch_net_name=B"), 1U);
}

TEST_F(RepresentationTest, PortsAreWrittenByTheirNamesWhateverWasMetBefore) {
    Symbol const late("zz port");
    Symbol const early("aa port");
    for (Symbol const& port : {late, early})
        record->PortAddFigureDetail(port, Symbol("F1"), Symbol("n"), nullptr, port, port);
    auto const lines = Capture();
    auto const place = [&](char const* line) {
        return std::find(lines.begin(), lines.end(), line) - lines.begin();
    };
    EXPECT_LT(place("sch_port_id=aa port"), place("sch_port_id=zz port"));
}

TEST_F(RepresentationTest, APortWhoseDetailsAreAllHiddenIsNotReadBack) {
    AddNetNodes();
    Hide(NetNode(first));
    Hide(NetNode(second));
    SerializedContentElement root(Symbol("root"));
    record->CaptureContent(&root);
    EXPECT_EQ(Count(LinesOf(root), "sch_port {"), 1U);
    record->CreateFromContent(&root);
    EXPECT_TRUE(Capture().empty()) << "there is no detail to hang it on";
}

TEST_F(RepresentationTest, ADetailWithoutVisibleNetsWritesNoNetNames) {
    AddBusNodes();
    Hide(NetOf(first, "A"));
    Hide(NetOf(first, "B"));
    Hide(NetOf(second, "A"));
    EXPECT_EQ(Count(Capture(), "sch_net_names {"), 0U);
}

TEST_F(RepresentationTest, WhatIsReadBackIsWrittenAgainUnchangedAndInOrder) {
    AddBusNodes();
    AddNetNodes();
    SerializedContentElement root(Symbol("root"));
    record->CaptureContent(&root);
    Strings const before = LinesOf(root);
    record->CreateFromContent(&root);
    EXPECT_EQ(Capture(), before);
    record->CreateFromContent(nullptr);
    EXPECT_EQ(Capture(), before);
}

TEST_F(RepresentationTest, WhatIsForgottenOrReadBackKnowsNoOpenFigures) {
    SerializedContentElement root(Symbol("root"));
    std::function<void()> const forgettings[] = {[&] { record->ResetMap(); },
                                                 [&] { record->CreateFromContent(&root); }};
    for (auto const& forget : forgettings) {
        AddNetNodes();
        ASSERT_FALSE(Capture().empty());
        forget();
        AddNetNodes();
        EXPECT_TRUE(Capture().empty()) << "the figures have no names";
        record->AddActiveFigure(first, Symbol("F1"));
        record->AddActiveFigure(second, Symbol("F2"));
    }
}

TEST_F(RepresentationTest, AnswersComeBehindWhatIsThere) {
    AddNetNodes();
    std::vector<FigurePortNodeDetail> details;
    record->GetFiguresForPortNode(NetNode(first), nullptr, details);
    record->GetFiguresForPortNode(NetNode(second), nullptr, details);
    ASSERT_EQ(details.size(), 2U);
    EXPECT_EQ(details[0].GetFigureName().GetString(), "F2");
    EXPECT_EQ(details[1].GetFigureName().GetString(), "F1");
}

TEST_F(RepresentationTest, ReadBackDetailsAnswerLikeLiveOnes) {
    AddBusNodes();
    SerializedContentElement root(Symbol("root"));
    record->CaptureContent(&root);
    record->CreateFromContent(&root);
    EXPECT_EQ(FiguresFor(BusNode(first), NetOf(first, "A")), (Strings{"F2"}));
    EXPECT_EQ(FiguresFor(BusNode(first), NetOf(first, "B")), Strings{});
    EXPECT_EQ(FiguresFor(BusNode(first), nullptr), (Strings{"F2"}));
}

TEST_F(RepresentationTest, ContentOutsideOfTheRecordAndUnknownKeysArePassedOver) {
    SerializedContentElement root(Symbol("root"));
    auto* const stray = root.StartContent(Symbol("stray"));
    stray->AddProperty(Symbol("sch_port_id"), Symbol("P0"));
    stray->StartContent(Symbol("sch_figure_port_node_detail"));
    stray->EndContent();
    root.EndContent();
    auto* const stored = root.StartContent(Symbol("fig_representation"));
    auto* const port = stored->StartContent(Symbol("sch_port"));
    port->AddProperty(Symbol("sch_port_id"), Symbol("P1"));
    auto* const detail = port->StartContent(Symbol("sch_figure_port_node_detail"));
    detail->AddProperty(Symbol("something"), Symbol("else"));
    detail->AddProperty(Symbol("fig_rep_figure_id"), Symbol("F9"));
    port->EndContent();
    stored->EndContent();
    root.EndContent();
    record->CreateFromContent(&root);
    auto const lines = Capture();
    EXPECT_EQ(Count(lines, "sch_port {"), 1U);
    EXPECT_EQ(Count(lines, "sch_port_id=P1"), 1U);
    EXPECT_EQ(Count(lines, "fig_rep_figure_id=F9"), 1U);
}

TEST_F(RepresentationTest, APublishOptionNamesTheFiguresAndLeavesTheRecordAsItIs) {
    AddNetNodes();
    SmartPtr<zvkapp::depiction::PublishOption> const option(new zvkapp::depiction::PublishOption);
    option->SetPublishName(Symbol("F1"), Symbol("page one"));
    SerializedContentElement root(Symbol("root"));
    record->CaptureContent(&root, option);
    EXPECT_EQ(Count(LinesOf(root), "fig_rep_figure_id=page one"), 1U);
    EXPECT_EQ(Count(LinesOf(root), "fig_rep_figure_id=F1"), 0U);
    EXPECT_EQ(Count(Capture(), "fig_rep_figure_id=F1"), 1U);
}

TEST_F(RepresentationTest, FieldsThatADetailLeavesOutAreThoseOfTheOneBefore) {
    SerializedContentElement root(Symbol("root"));
    auto* const port =
        root.StartContent(Symbol("fig_representation"))->StartContent(Symbol("sch_port"));
    port->AddProperty(Symbol("sch_port_id"), Symbol("P"));
    auto* const whole = port->StartContent(Symbol("sch_figure_port_node_detail"));
    whole->AddProperty(Symbol("fig_rep_figure_id"), Symbol("F"));
    whole->AddProperty(Symbol("sch_port_node_id"), Symbol("n"));
    whole->AddProperty(Symbol("fig_rep_x_grid"), Symbol("7"));
    whole->AddProperty(Symbol("sch_net_name"), Symbol("N"));
    auto* const bare = port->StartContent(Symbol("sch_figure_port_node_detail"));
    bare->AddProperty(Symbol("sch_port_node_id"), Symbol("m"));
    record->CreateFromContent(&root);
    auto const lines = Capture();
    EXPECT_EQ(Count(lines, "fig_rep_figure_id=F"), 2U);
    EXPECT_EQ(Count(lines, "fig_rep_x_grid=7"), 2U);
    EXPECT_EQ(Count(lines, "sch_net_name=N"), 1U) << "nets are those of one detail";
}

TEST_F(RepresentationTest, OutsideTheAuthoringApplicationContentIsWantedFromTheStart) {
    EXPECT_TRUE(InAWorld::neededLoadingAtFirst);
}

TEST_F(RepresentationTest, TheAuthoringApplicationNeverWantsContent) {
    EXPECT_FALSE(InAWorld::authoringWantsContent);
}

TEST_F(RepresentationTest, TheWorldAsksForContentAndLoadingItIsEnough) {
    record->SetNeedLoading(false);
    zvk::World::GetWorld()->NotifyContentMayHaveChanged();
    EXPECT_TRUE(record->GetNeedLoading());
    SerializedContentElement root(Symbol("root"));
    record->CreateFromContent(&root);
    EXPECT_FALSE(record->GetNeedLoading());
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
    auto const figure = LoadedFigure(branched->GetSheets().at(0));
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
