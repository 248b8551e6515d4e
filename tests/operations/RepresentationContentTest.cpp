// How the record of ports is written and read back.
#include <operations/RepresentationTestSupport.h>
#include <zvk/World.h>
#include <zvkapp/PublishOption.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <functional>

namespace figrep {

using namespace representation_testing;

namespace {

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

}  // namespace

TEST_F(RepresentationTest, ContentHasTheNamedElementsAndProperties) {
    record->PortNodeAddFigureDetail(BusNode(first), first);
    std::string const port = BusNode(first)->GetPort()->GetId().GetString();
    std::string const node = BusNode(first)->GetKernelPortNode()->GetId().GetString();
    EXPECT_EQ(Capture(), (Strings{"fig_representation {", "sch_port {",
                                  "sch_port_id='" + port + "'", "sch_figure_port_node_detail {",
                                  "fig_rep_figure_id='F1'", "sch_port_node_id='" + node + "'",
                                  "fig_rep_x_grid='1'", "fig_rep_y_grid='D'", "sch_net_names {",
                                  "sch_net_name='A'", "sch_net_name='B'", "}", "}", "}", "}"}));
}

TEST_F(RepresentationTest, AHiddenNodesDetailIsLeftOutButItsPortIsWritten) {
    record->PortNodeAddFigureDetail(NetNode(first), first);
    Hide(NetNode(first));
    auto const lines = Capture();
    EXPECT_EQ(Count(lines, "sch_port {"), 1U);
    EXPECT_EQ(lines,
              (Strings{"fig_representation {", "sch_port {",
                       "sch_port_id='" + NetNode(first)->GetPort()->GetId().GetString() + "'", "}",
                       "}"}));
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
    EXPECT_EQ(Count(lines, "sch_net_name='A'"), 0U);
    EXPECT_EQ(Count(lines, "sch_net_name='B'"), 1U);
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
    EXPECT_LT(place("sch_port_id='aa port'"), place("sch_port_id='zz port'"));
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
    EXPECT_EQ(Count(lines, "sch_port_id='P1'"), 1U);
    EXPECT_EQ(Count(lines, "fig_rep_figure_id='F9'"), 1U);
}

TEST_F(RepresentationTest, APublishOptionNamesTheFiguresAndLeavesTheRecordAsItIs) {
    AddNetNodes();
    SmartPtr<zvkapp::depiction::PublishOption> const option(new zvkapp::depiction::PublishOption);
    option->SetPublishName(Symbol("F1"), Symbol("page one"));
    SerializedContentElement root(Symbol("root"));
    record->CaptureContent(&root, option);
    EXPECT_EQ(Count(LinesOf(root), "fig_rep_figure_id='page one'"), 1U);
    EXPECT_EQ(Count(LinesOf(root), "fig_rep_figure_id='F1'"), 0U);
    EXPECT_EQ(Count(Capture(), "fig_rep_figure_id='F1'"), 1U);
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
    EXPECT_EQ(Count(lines, "fig_rep_figure_id='F'"), 2U);
    EXPECT_EQ(Count(lines, "fig_rep_x_grid='7'"), 2U);
    EXPECT_EQ(Count(lines, "sch_net_name='N'"), 1U) << "nets are those of one detail";
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

}  // namespace figrep
