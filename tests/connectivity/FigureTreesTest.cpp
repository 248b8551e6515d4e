// Trees of whole figures, made from drawings by the kernel and the sheet delta.
#include <figk/BlockInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/ConnectorInstanceNode.h>
#include <figk/SchematicKernel.h>
#include <figk/SubNet.h>
#include <figkernel/SchematicKernel.h>
#include <figrep/BlockInstance.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <gtest/gtest.h>
#include <support/Drawing.h>
#include <support/GeneratedDesign.h>

#include <algorithm>
#include <random>
#include <set>

#include "Wiring.h"

namespace figrep::testing {
namespace {

/// A built design that is the process's kernel as long as this stands.
class InstalledSheet {
public:
    explicit InstalledSheet(SmartPtr<figk::Design> const& built) : design(built) {
        kernel->AddDesign(design);
        figk::SchematicKernel::SetSchematicKernel(kernel);
        for (auto const& sheet : design->GetSheets())
            Load(sheet);
    }
    ~InstalledSheet() { figk::SchematicKernel::SetSchematicKernel({}); }

    SmartPtr<SubNet> NetNamed(std::string const& name, std::size_t sheet = 0) const {
        for (auto const& net : figures.at(sheet)->GetSubNets()) {
            if (net->GetName() == name) return net;
        }
        return nullptr;
    }

    SmartPtr<figk::Design> design;
    std::vector<SmartPtr<Figure>> figures;

private:
    void Load(SmartPtr<figk::Sheet> const& sheet) {
        SmartPtr<Figure> const figure = new Figure();
        SmartPtr<FigureSheetDeltaGenerator> const generator = new FigureSheetDeltaGenerator(sheet);
        figure->GenerateDeltas(*generator);
        figure->ApplyDeltas(false);
        figures.push_back(figure);
    }

    SmartPtr<figkernel::SchematicKernel> kernel = new figkernel::SchematicKernel();
};

/// Every pin that the walk of a net comes to, "block:pin".
std::multiset<std::string> PinsOf(SmartPtr<SubNet> const& net) {
    std::multiset<std::string> pins;
    for (auto const& node : NodesOf(net->GetHead())) {
        auto const connection = du::DynamicCast<ConnectorInstanceNode>(node);
        if (!connection) continue;
        auto const connector = connection->GetConnectorInstance();
        pins.insert(connector->GetBlockInstance()->GetName() + ":" + connector->GetName());
    }
    return pins;
}

/// Says what is wrong with the links of a tree: each must stand on both ends, and none be met
/// twice.
std::string BrokenLinks(SmartPtr<ConnectionNode> const& head) {
    std::set<figk::BaseConnectionNode*> seen;
    std::vector<SmartPtr<figk::BaseConnectionNode>> pending{head};
    while (!pending.empty()) {
        auto const node = pending.back();
        pending.pop_back();
        if (!seen.insert(node.Get()).second) return node->ToString() + " is met twice";
        for (auto const& successor : {node->GetLeftSuccessor(), node->GetRightSuccessor()}) {
            if (!successor) continue;
            if (!(successor->GetPredecessor() == node)) {
                return successor->ToString() + " doesn't know " + node->ToString();
            }
            pending.push_back(successor);
        }
    }
    return {};
}

/// Pivots to every node of a net's walk and back, and compares all links.
void ExpectPivotsThereAndBackRestoreLinks(SmartPtr<SubNet> const& net) {
    auto const head = net->GetHead();
    if (!head) return;
    auto const before = LinksOf(head);
    for (auto const& node : NodesOf(head)) {
        node->Pivot(nullptr);
        ASSERT_EQ(BrokenLinks(node), "");
        ASSERT_EQ(net->GetHead(), head);
        ASSERT_EQ(LinksOf(head), before) << "after a pivot to " << node->ToString();
    }
}

test::Drawing BusDrawing() {
    test::Drawing drawing;
    drawing.Bus("D", 50, 0, 50, 100);
    for (int i = 0; i < 8; ++i) {
        std::string const net = "D" + std::to_string(i);
        double const y = 10.0 * i + 5;
        drawing.Tap(net, "D", 50, y, 48, y).Wire(net, 48, y, 20, y);
        drawing.Tap(net, "D", 50, y + 3, 52, y + 3).Wire(net, 52, y + 3, 80, y + 3);
        drawing.Pin(net, "U1", std::to_string(i), 20, y);
        drawing.Pin(net, "U2", std::to_string(i), 80, y + 3);
    }
    return drawing;
}

TEST(FigureTrees, NetThatEntersAndLeavesAHighwayReachesItsPinsOnBothSides) {
    InstalledSheet const sheet(BusDrawing().BuildDesign());
    for (int i = 0; i < 8; ++i) {
        std::string const n = std::to_string(i);
        auto const net = sheet.NetNamed("D" + n);
        ASSERT_TRUE(net);
        EXPECT_EQ(PinsOf(net), (std::multiset<std::string>{"U1:" + n, "U2:" + n}));
    }
}

TEST(FigureTrees, AreUntouchedByPivotsThereAndBackOnABus) {
    InstalledSheet const sheet(BusDrawing().BuildDesign());
    for (auto const& net : sheet.figures[0]->GetSubNets()) {
        ExpectPivotsThereAndBackRestoreLinks(net);
    }
}

TEST(FigureTrees, OfAHighwayAreTheSameAfterEveryNetHadItsTurn) {
    InstalledSheet const sheet(BusDrawing().BuildDesign());
    auto const bus = sheet.figures[0]->GetSubHighways().at(0);
    auto const before = LinksOf(bus->GetHead());
    for (auto const& net : sheet.figures[0]->GetSubNets())
        net->GetHead();
    EXPECT_EQ(LinksOf(bus->GetHead()), before);
}

TEST(FigureTrees, PortOnAHighwayIsReachedByTheNetsThatRunToIt) {
    test::Drawing drawing;
    drawing.Bus("D", 0, 0, 0, 100).BusPort("OUT", "D", 0, 100);
    drawing.Tap("A", "D", 0, 20, 2, 20).Wire("A", 2, 20, 30, 20).Pin("A", "U1", "1", 30, 20);
    drawing.Tap("B", "D", 0, 40, 2, 40).Wire("B", 2, 40, 30, 40).Pin("B", "U1", "2", 30, 40);
    InstalledSheet const sheet(drawing.BuildDesign());
    auto const ports = sheet.figures[0]->GetPorts();
    ASSERT_EQ(ports.size(), 1u);
    auto const node = ports[0]->GetPortNodes().at(0);
    EXPECT_EQ(node->GetHighwaySubNets().size(), 2u);
    for (auto const* name : {"A", "B"}) {
        EXPECT_TRUE(Holds(NodesOf(sheet.NetNamed(name)->GetHead()), node)) << name;
    }
}

TEST(FigureTrees, LeaveTapsDeactivatedAndCountsAtZeroOnceFixed) {
    for (std::uint64_t seed = 1; seed <= 30; ++seed) {
        InstalledSheet const sheet(
            figkernel::Build(test::GenerateTangle(seed), figk::SchematicKernel::GetKernelLock())
                .design);
        for (auto const& figure : sheet.figures) {
            figure->PrePivot(nullptr);
            for (auto const& bus : figure->GetSubHighways()) {
                for (auto const& node : NodesOf(bus->GetHead())) {
                    auto const segment = du::DynamicCast<HighwaySegment>(node);
                    if (segment) {
                        EXPECT_EQ(segment->GetVisitCount(), 0u);
                    }
                }
            }
            for (auto const& net : figure->GetSubNets()) {
                for (auto const& tap : net->GetHighwayNodes()) {
                    EXPECT_FALSE(tap->IsConnected(tap->GetNetConnectionNode()));
                }
            }
        }
    }
}

TEST(FigureTrees, AreUntouchedByPivotsThereAndBackOnTangledSheets) {
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        InstalledSheet const sheet(
            figkernel::Build(test::GenerateTangle(seed), figk::SchematicKernel::GetKernelLock())
                .design);
        for (auto const& figure : sheet.figures) {
            for (auto const& net : figure->GetSubNets()) {
                ExpectPivotsThereAndBackRestoreLinks(net);
                if (HasFatalFailure()) return;
            }
        }
    }
}

/// What the walks of all nets of a figure come to, by name and id.
std::map<Symbol, std::multiset<std::string>> ContentOf(SmartPtr<Figure> const& figure) {
    std::map<Symbol, std::multiset<std::string>> content;
    for (auto const& net : figure->GetSubNets()) {
        auto& nodes = content[net->GetId()];
        for (auto const& node : NodesOf(net->GetHead()))
            nodes.insert(node->ToString());
    }
    return content;
}

TEST(FigureTrees, StayWholeUnderAnyOrderOfActivations) {
    std::mt19937 random(5);
    for (std::uint64_t seed = 100; seed < 130; ++seed) {
        SCOPED_TRACE(seed);
        InstalledSheet const sheet(
            figkernel::Build(test::GenerateTangle(seed), figk::SchematicKernel::GetKernelLock())
                .design);
        auto const figure = sheet.figures.at(0);
        auto const before = ContentOf(figure);
        auto const nets = figure->GetSubNets();
        auto const buses = figure->GetSubHighways();
        for (int step = 0; step < 40 && !nets.empty(); ++step) {
            auto const nodes = NodesOf(nets[random() % nets.size()]->GetHead());
            if (!nodes.empty()) nodes[random() % nodes.size()]->Pivot(nullptr);
            if (!buses.empty() && step % 5 == 0) buses[random() % buses.size()]->GetHead();
        }
        EXPECT_EQ(ContentOf(figure), before);
    }
}

TEST(FigureTrees, OfNetsLeftInTheFigureSurviveTheCuttingOfOthers) {
    for (std::uint64_t seed = 200; seed < 230; ++seed) {
        SCOPED_TRACE(seed);
        InstalledSheet const sheet(
            figkernel::Build(test::GenerateTangle(seed), figk::SchematicKernel::GetKernelLock())
                .design);
        auto const figure = sheet.figures.at(0);
        auto before = ContentOf(figure);
        auto const nets = figure->GetSubNets();
        for (std::size_t i = 0; i < nets.size(); i += 2) {
            figure->RemoveItem(nets[i]);
            nets[i]->DestroyConnectivity();
            before.erase(nets[i]->GetId());
        }
        EXPECT_EQ(ContentOf(figure), before);
    }
}

TEST(FigureTrees, AreGoneWithoutATraceWhenTheFigureIs) {
    test::GridOptions options;
    options.segments = 400;
    options.sheets = 2;
    auto const design =
        figkernel::Build(test::GenerateGrid(options), figk::SchematicKernel::GetKernelLock())
            .design;
    { InstalledSheet const warmUp(design); }
    auto const before = du::RefCounted::LiveCount();
    {
        InstalledSheet const sheet(design);
        for (auto const& figure : sheet.figures) {
            for (auto const& net : figure->GetSubNets())
                net->GetHead();
        }
    }
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

TEST(FigureTrees, PinsThatTheKernelConnectsAreReachedByTheFiguresNets) {
    for (std::uint64_t seed = 300; seed < 340; ++seed) {
        SCOPED_TRACE(seed);
        InstalledSheet const sheet(
            figkernel::Build(test::GenerateTangle(seed), figk::SchematicKernel::GetKernelLock())
                .design);
        for (auto const& figure : sheet.figures) {
            for (auto const& net : figure->GetSubNets()) {
                std::multiset<std::string> kernelPins;
                auto const kernelHead = net->GetKernelSubNet()->GetHead();
                for (auto it = kernelHead->Begin(); it != kernelHead->End(); ++it) {
                    auto const node = du::DynamicCast<figk::ConnectorInstanceNode>(*it);
                    if (!node) continue;
                    auto const pin = node->GetConnectorInstance();
                    kernelPins.insert(pin->GetBlockInstance()->GetName() + ":" + pin->GetName());
                }
                EXPECT_EQ(PinsOf(net), kernelPins) << net->GetId().GetString();
            }
        }
    }
}

}  // namespace
}  // namespace figrep::testing
