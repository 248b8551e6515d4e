// Whatever a person does in a viewer can be undone and done again.
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemsVisitor.h>
#include <figrep/JunctionNode.h>
#include <figrep/Segment.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TidyJunctionsVisitor.h>
#include <gtest/gtest.h>
#include <support/DrawingOfAll.h>
#include <support/GeneratedDesign.h>
#include <support/LiveObjects.h>
#include <support/RandomEdits.h>
#include <support/RandomOperations.h>

#include <algorithm>
#include <set>

namespace figrep {

namespace {

SmartPtr<figk::Design> BuildDesign(figkernel::DesignSource const& source) {
    return figkernel::Build(source, figk::SchematicKernel::GetKernelLock()).design;
}

figkernel::DesignSource Grid(std::uint64_t seed) {
    test::GridOptions options;
    options.seed = seed;
    options.segments = 120;
    return test::GenerateGrid(options);
}

void ExpectUndo(figkernel::DesignSource const& source, std::uint64_t seed) {
    auto const design = BuildDesign(source);
    auto const figure = test::FramedFigure(design->GetSheets().at(0));
    EXPECT_EQ(test::CheckUndo(figure, seed, 20), "") << "seed " << seed;
    EXPECT_EQ(test::ObjectsAddedByEveryRound(figure, seed, 10), 0) << "seed " << seed;
}

Figure::Items ItemsOf(SmartPtr<Figure> const& figure) {
    Figure::Items items;
    FigureItemsVisitor collector(items);
    collector.SetCollectPorts(true);
    figure->Accept(collector);
    return items;
}

bool IsInTheGroup(SmartPtr<AbstractFigureItem> const& item) {
    auto const label = test::LabelOf(item);
    return label == "g1" || label == "g2" || label == "gline";
}

/// Whether the item is a sub-net of a cable among the others, or grouped with one of them.
bool IsKeptWith(SmartPtr<AbstractFigureItem> const& item, Figure::Items const& others) {
    return std::any_of(others.begin(), others.end(), [&](auto const& other) {
        auto const cable = du::DynamicCast<CableInstance>(other);
        auto const carried = cable ? cable->GetSubNets() : std::vector<SmartPtr<SubNet>>();
        return (IsInTheGroup(item) && IsInTheGroup(other)) ||
               std::find(carried.begin(), carried.end(), item) != carried.end();
    });
}

/// All segments that walks of the figure's trees meet.
std::set<Segment const*> SegmentsOf(SmartPtr<Figure> const& figure,
                                    std::vector<SmartPtr<ConnectionNode>>& junctions) {
    std::set<Segment const*> segments;
    auto const walk = [&](SmartPtr<ConnectionNode> const& head) {
        if (!head) return;
        for (auto it = head->Begin(); it != head->End(); ++it) {
            auto const node = du::DynamicCast<ConnectionNode>(*it);
            if (auto const segment = du::DynamicCast<Segment>(node)) segments.insert(segment.Get());
            if (node && node->IsJunction()) junctions.push_back(node);
        }
    };
    for (auto const& subHighway : figure->GetSubHighways())
        walk(subHighway->GetHead());
    for (auto const& subNet : figure->GetSubNets())
        walk(subNet->GetHead());
    return segments;
}

bool IsDefective(SmartPtr<ConnectionNode> const& junction) {
    return !junction->GetPredecessor() || !junction->GetLeftSuccessor() ||
           !junction->GetRightSuccessor();
}

/// Tidies and checks; how many junctions there were to tidy.
std::size_t TidyAndCheck(SmartPtr<Figure> const& figure) {
    std::vector<SmartPtr<ConnectionNode>> junctions;
    auto const before = SegmentsOf(figure, junctions);
    auto const defects = std::count_if(junctions.begin(), junctions.end(), IsDefective);
    TidyJunctionsVisitor visitor;
    figure->Accept(visitor);
    visitor.Tidy();
    junctions.clear();
    EXPECT_EQ(SegmentsOf(figure, junctions), before);
    figure->PrePivot(nullptr);
    for (auto const& junction : junctions) {
        if (!junction->GetPredecessor() && junction->IsLeaf()) continue;  // gone by the switch
        EXPECT_FALSE(IsDefective(junction));
    }
    return static_cast<std::size_t>(defects);
}

using Nodes = std::vector<SmartPtr<figk::BaseConnectionNode>>;

/// Nodes that may have fallen off their figure's trees, out of its reach; declared before the
/// figure, it goes after it. Nodes at pins leave their connectors only by `Disconnect`.
struct FallenNodes {
    ~FallenNodes() {
        for (auto const& node : nodes)
            node->Disconnect();
    }
    Nodes nodes;
};

/// Leaves junctions behind that branch nothing: takes wires off below some plainly, as nobody
/// should, and plants others.
class Damage {
public:
    Damage(SmartPtr<Figure> const& figure, test::Random& random, Nodes& fallen)
        : figure_(figure), random_(random), fallen_(fallen) {}

    void Do() {
        for (auto const& subHighway : figure_->GetSubHighways())
            DoTo(subHighway->GetHead());
        for (auto const& subNet : figure_->GetSubNets())
            DoTo(subNet->GetHead());
    }

private:
    void DoTo(SmartPtr<ConnectionNode> const& head) {
        if (!head || random_.OneIn(2)) return;
        Remember(head);
        std::vector<SmartPtr<ConnectionNode>> wires, junctions;
        for (auto it = head->Begin(); it != head->End(); ++it) {
            auto const node = du::DynamicCast<ConnectionNode>(*it);
            bool const own = node && node->GetSubNet() == head->GetSubNet();
            if (own && du::DynamicCast<Segment>(node)) wires.push_back(node);
            if (node && node->IsJunction()) junctions.push_back(node);
        }
        for (auto const& junction : junctions)
            TakeOffBelow(junction);
        if (!wires.empty()) Plant(wires[random_.Below(wires.size())]);
    }

    /// Along the links: walks leave out what belongs to other nets, such as broken connections.
    void Remember(SmartPtr<figk::BaseConnectionNode> const& head) {
        std::size_t next = fallen_.size();
        for (fallen_.push_back(head); next < fallen_.size(); ++next) {
            auto const node = fallen_[next];
            for (auto const& below : {node->GetLeftSuccessor(), node->GetRightSuccessor()})
                if (below) fallen_.push_back(below);
        }
    }

    void TakeOffBelow(SmartPtr<ConnectionNode> const& junction) {
        for (auto const& wire : {junction->GetLeftSuccessor(), junction->GetRightSuccessor()}) {
            if (du::DynamicCast<Segment>(wire) && random_.OneIn(4)) wire->Disconnect();
        }
    }

    void Plant(SmartPtr<ConnectionNode> top) {
        for (std::size_t i = random_.Below(3); i > 0; --i) {
            top = new JunctionNode(figk::SchematicKernel::GetKernelLock(), top);
            fallen_.push_back(top);
        }
    }

    SmartPtr<Figure> figure_;
    test::Random& random_;
    Nodes& fallen_;
};

}  // namespace

TEST(OperationsProperty, OnASheetWithSomethingOfEverythingAreUndoneAndRedone) {
    for (std::uint64_t seed = 1; seed <= 30; ++seed) {
        ExpectUndo(test::DrawingOfAll().Source(), seed);
        if (HasFailure()) return;
    }
}

TEST(OperationsProperty, OnATangleAreUndoneAndRedone) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        ExpectUndo(test::GenerateTangle(seed), seed);
        if (HasFailure()) return;
    }
}

TEST(OperationsProperty, OnASchematicAreUndoneAndRedone) {
    for (std::uint64_t seed = 1; seed <= 3; ++seed) {
        ExpectUndo(Grid(seed), seed);
        if (HasFailure()) return;
    }
}

TEST(OperationsProperty, LeaveNothingAliveWhenFigureAndHistoryGo) {
    auto const design = BuildDesign(test::DrawingOfAll().Source());
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
        auto const left = test::ObjectsLeftBy([&] {
            auto const figure = test::FramedFigure(design->GetSheets().at(0));
            test::RandomOperations operations(figure, seed);
            for (int i = 0; i < 25; ++i)
                operations.Step();
        });
        EXPECT_EQ(left, 0) << "seed " << seed;
    }
}

TEST(OperationsProperty, IsolatingShowsWhatIsIsolatedAndHidesAllThatIsNotKept) {
    auto const design = BuildDesign(test::DrawingOfAll().Source());
    auto const sheet = design->GetSheets().at(0);
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        auto const figure = test::FramedFigure(sheet);
        test::RandomOperations operations(figure, seed);
        for (std::uint64_t i = 0; i < seed % 5; ++i)
            operations.Step();
        auto const all = ItemsOf(figure);
        auto isolated = all;
        test::Random random(seed);
        random.Shuffle(isolated);
        isolated.resize(random.Below(4));
        auto const hidden = test::HiddenOn(figure);
        figure->IsolateItems(isolated, nullptr);
        for (auto const& item : all) {
            auto const label = test::LabelOf(item);
            // What is only kept stays as it was, which for what was hidden is its own affair.
            bool const wasHidden = std::count(hidden.begin(), hidden.end(), label) != 0;
            bool const named = std::count(isolated.begin(), isolated.end(), item) != 0;
            bool const kept = named || IsKeptWith(item, isolated);
            if (kept && !named && wasHidden) continue;
            EXPECT_EQ(item->IsVisible(), kept) << label << " seed " << seed;
        }
    }
}

namespace {

/// How many junctions there were to tidy, in three rounds of edits, damage and tidying.
std::size_t DamageAndTidy(std::uint64_t seed) {
    FallenNodes fallen;
    auto const design = BuildDesign(seed % 3 ? test::GenerateTangle(seed) : Grid(seed));
    auto const figure = test::FramedFigure(design->GetSheets().at(0));
    test::RandomEdits edits(figure, seed);
    test::Random random(seed);
    std::size_t tidied = 0;
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 5; ++i)
            edits.Edit();
        Damage(figure, random, fallen.nodes).Do();
        tidied += TidyAndCheck(figure);
    }
    return tidied;
}

}  // namespace

TEST(TidyJunctions, AfterRandomEditsLeavesBranchesOnlyAndLosesNoSegment) {
    std::size_t tidied = 0;
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        tidied += DamageAndTidy(seed);
        if (HasFailure()) return;
    }
    EXPECT_GT(tidied, 500u);
}

TEST(TidyJunctions, WhatIsTidiedAwayIsNotKeptAlive) {
    for (std::uint64_t seed = 1; seed <= 9; ++seed)
        EXPECT_EQ(test::ObjectsLeftBy([&] { DamageAndTidy(seed); }), 0) << "seed " << seed;
}

}  // namespace figrep
