#include <algorithm>
#include <map>
#include <set>
#include <unordered_set>

#include <dg/Close.h>
#include <figk/AbstractVisitor.h>
#include <figk/BlockInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/ConnectorInstanceNode.h>
#include <figk/Highway.h>
#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/Net.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/Sheet.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <support/KernelGuarantees.h>

namespace figrep::test {

namespace {

using figk::BaseConnectionNode;
using figk::ConnectionNode;
using NodePtr = du::SmartPtr<ConnectionNode>;
using BasePtr = du::SmartPtr<BaseConnectionNode>;
using Type = BaseConnectionNode::ConnectionNodeType;

constexpr Type CONNECTOR = BaseConnectionNode::NODE_CONNECTOR_INSTANCE;
constexpr Type JUNCTION = BaseConnectionNode::NODE_JUNCTION;
constexpr Type HIGHWAY = BaseConnectionNode::NODE_HIGHWAY;
constexpr Type HIGHWAY_SEGMENT = BaseConnectionNode::NODE_HIGHWAY_SEGMENT;
constexpr Type NET_SEGMENT = BaseConnectionNode::NODE_NET_SEGMENT;
constexpr Type PORT = BaseConnectionNode::NODE_PORT;

struct Ends {
    dg::DPoint2D start;
    dg::DPoint2D end;
};

Ends EndsOf(figk::Segment const& segment) {
    Ends ends;
    segment.GetEnds(ends.start, ends.end);
    return ends;
}

/// Where a node is touched from above, and from below.
Ends PlaceOf(BasePtr const& node) {
    if (auto const segment = du::DynamicCast<figk::Segment>(node)) return EndsOf(*segment);
    if (auto const port = du::DynamicCast<figk::PortNode>(node)) {
        return {port->GetPosition(), port->GetPosition()};
    }
    if (auto const pin = du::DynamicCast<figk::ConnectorInstanceNode>(node)) {
        dg::DPoint2D const position = pin->GetConnectorInstance()->GetPosition();
        return {position, position};
    }
    if (auto const point = du::DynamicCast<figk::HighwayNode>(node)) {
        dg::DPoint2D const end = EndsOf(*point->GetHighwaySegment()).end;
        return {end, end};
    }
    return {};
}

bool IsNetNode(Type type) {
    return type == NET_SEGMENT || type == PORT;
}

std::vector<BasePtr> SuccessorsOf(BasePtr const& node) {
    std::vector<BasePtr> successors;
    node->GetNonJunctionSuccessors(successors);
    return successors;
}

/// The way a figure reads a sheet.
class WalkRecorder : public figk::AbstractVisitor {
public:
    using AbstractVisitor::Visit;
    bool Visit(figk::SmartPtr<figk::SubHighway> const& subHighway) override {
        if (sawSubNet) problems.push_back("A sub-highway is shown after a sub-net.");
        shownHighways.insert(subHighway.Get());
        onHighway = true;
        return true;
    }
    bool Visit(figk::SmartPtr<figk::SubNet> const& subNet) override {
        sawSubNet = true;
        onHighway = false;
        entries.clear();
        check = subNet->GetHead()->GetVisitChecker();
        return true;
    }
    bool Visit(figk::SmartPtr<figk::NetSegment> const& node) override { return Note(node); }
    bool Visit(figk::SmartPtr<figk::PortNode> const& node) override { return Note(node); }
    bool Visit(figk::SmartPtr<figk::HighwaySegment> const& node) override {
        if (onHighway) return Note(node);
        shown.insert(static_cast<BaseConnectionNode*>(node.Get()));
        return check->Visit(node);
    }
    bool Visit(figk::SmartPtr<figk::HighwayNode> const& node) override {
        if (onHighway) problems.push_back("A highway's own tree holds a highway node.");
        shown.insert(node.Get());
        if (!check->Visit(node)) problems.push_back("A walk meets a highway node twice.");
        if (!shownHighways.count(node->GetSubHighway().Get())) {
            problems.push_back("A net comes onto a highway that isn't shown yet.");
        }
        if (entries.insert(node->GetSubHighway().Get()).second) {
            BaseConnectionNode* const netNode = node->GetNetConnectionNode().Get();
            if (!shown.count(netNode)) problems.push_back("An entry comes before its net node.");
        }
        return true;
    }

    std::vector<std::string> problems;

private:
    bool Note(NodePtr const& node) {
        BasePtr const above = node->GetNonJunctionPredecessor();
        if (above && !shown.count(above.Get())) {
            problems.push_back("A node is shown before its predecessor.");
        }
        if (!shown.insert(node.Get()).second) problems.push_back("A node is shown twice.");
        return true;
    }

    std::set<BaseConnectionNode*> shown;
    std::set<figk::SubHighway*> shownHighways;
    std::set<figk::SubHighway*> entries;
    figk::SmartPtr<figk::BaseVisitCheck> check;
    bool onHighway = false;
    bool sawSubNet = false;
};

class TreeChecker {
public:
    std::vector<std::string> Check(figk::Design const& design) {
        for (auto const& sheet : design.GetSheets())
            CheckSheet(*sheet);
        return std::move(problems);
    }

private:
    void Complain(std::string const& text) { problems.push_back(where + ": " + text); }
    void Expect(bool holds, char const* text) {
        if (!holds) Complain(text);
    }

    void CheckSheet(figk::Sheet& sheet) {
        ownSegments.clear();
        tappedBy.clear();
        for (auto const& subHighway : sheet.GetSubHighways()) {
            where = "highway piece " + subHighway->GetId().GetString();
            CheckId(subHighway->GetId(), subHighwayIds);
            CheckHighway(*subHighway);
        }
        std::map<figk::ConnectorInstance*, unsigned> connections;
        for (auto const& subNet : sheet.GetSubNets()) {
            where = "net piece " + subNet->GetId().GetString();
            CheckId(subNet->GetId(), subNetIds);
            Expect(sheet.GetSubNetByID(subNet->GetId()) == subNet, "isn't found by its id");
            CheckNet(*subNet, connections);
        }
        where = "sheet " + sheet.GetId().GetString();
        CheckHighwayHeads(sheet);
        CheckConnections(sheet, connections);
        WalkRecorder recorder;
        sheet.Accept(recorder);
        for (std::string const& problem : recorder.problems)
            Complain(problem);
    }

    void CheckId(du::Symbol const& id, std::set<du::Symbol>& taken) {
        Expect(!id.IsEmpty(), "has no id");
        Expect(taken.insert(id).second, "has the id of another");
    }

    /// All nodes of a tree, in walking order; checks links and that no other tree has them.
    std::vector<BasePtr> NodesOf(NodePtr const& head) {
        std::vector<BasePtr> nodes;
        Expect(bool(head), "has no head");
        if (!head) return nodes;
        Expect(head->IsHead(), "has a head with a predecessor");
        std::vector<BasePtr> open{head};
        while (!open.empty()) {
            BasePtr const node = open.back();
            open.pop_back();
            if (!seen.insert(node.Get()).second) {
                Complain("holds a node that another place holds too");
                continue;
            }
            if (!node->IsJunction()) nodes.push_back(node);
            for (BasePtr const& next : {node->GetRightSuccessor(), node->GetLeftSuccessor()}) {
                if (!next) continue;
                Expect(next->GetPredecessor() == node, "has a link that stands on one end only");
                open.push_back(next);
            }
        }
        return nodes;
    }

    // Highways

    void CheckHighway(figk::SubHighway const& subHighway) {
        std::set<std::pair<std::pair<double, double>, std::pair<double, double>>> places;
        for (BasePtr const& node : NodesOf(subHighway.GetHead())) {
            CheckHighwayNode(node, subHighway);
            auto const segment = du::DynamicCast<figk::HighwaySegment>(node);
            if (!segment) continue;
            ownSegments.emplace(segment.Get(), &subHighway);
            CheckId(segment->GetId(), highwaySegmentIds);
            Expect(segment->GetSubHighway().Get() == &subHighway, "has a segment of another");
            Ends const ends = EndsOf(*segment);
            auto a = std::pair(ends.start.x, ends.start.y);
            auto b = std::pair(ends.end.x, ends.end.y);
            if (b < a) std::swap(a, b);
            Expect(places.emplace(a, b).second, "has two segments in one place");
        }
        Expect(subHighway.GetHead() && subHighway.GetHead()->GetNodeType() == HIGHWAY_SEGMENT,
               "has a head that is no segment");
    }

    void CheckHighwayNode(BasePtr const& node, figk::SubHighway const& subHighway) {
        Type const type = node->GetNodeType();
        Expect(type == HIGHWAY_SEGMENT || type == PORT, "holds a node of another kind");
        std::vector<BasePtr> const successors = SuccessorsOf(node);
        if (auto const port = du::DynamicCast<figk::PortNode>(node)) {
            Expect(successors.empty(), "has a port that is no leaf");
            Expect(port->GetPort()->OnHighwayNotNet(), "has a port of a net");
            Expect(port->GetPort()->GetHighway() == subHighway.GetHighway(), "has a strange port");
        }
        CheckTouch(node, successors);
    }

    void CheckTouch(BasePtr const& node, std::vector<BasePtr> const& successors) {
        dg::DPoint2D const end = PlaceOf(node).end;
        for (BasePtr const& next : successors) {
            if (next->GetNodeType() == CONNECTOR && node->IsHead()) continue;
            Expect(PlaceOf(next).start == end, "has a node that doesn't touch its predecessor");
        }
    }

    void CheckHighwayHeads(figk::Sheet const& sheet) {
        for (auto const& subHighway : sheet.GetSubHighways()) {
            auto const head = du::DynamicCast<figk::HighwaySegment>(subHighway->GetHead());
            if (!head) continue;
            Ends const ends = EndsOf(*head);
            if (ends.start == ends.end) continue;
            for (auto const& [segment, owner] : ownSegments) {
                if (owner != subHighway.Get() || segment == head.Get()) continue;
                Ends const others = EndsOf(*segment);
                bool const touches = others.start == ends.start || others.end == ends.start;
                Expect(!touches, "A highway's head doesn't begin at a free end.");
            }
        }
    }

    // Nets

    void CheckNet(figk::SubNet const& subNet,
                  std::map<figk::ConnectorInstance*, unsigned>& connections) {
        std::set<figk::SubHighway*> entered;
        std::set<ConnectionNode*> tied;
        for (BasePtr const& node : NodesOf(subNet.GetHead())) {
            CheckNetNode(node, subNet);
            if (auto const segment = du::DynamicCast<figk::NetSegment>(node)) {
                CheckId(segment->GetId(), netSegmentIds);
                Expect(segment->GetSubNet().Get() == &subNet, "has a segment of another");
            }
            if (auto const pin = du::DynamicCast<figk::ConnectorInstanceNode>(node)) {
                ++connections[pin->GetConnectorInstance().Get()];
                CheckConnectorNode(node);
            }
            if (auto const point = du::DynamicCast<figk::HighwayNode>(node)) {
                CheckHighwayPoint(*point, subNet, entered, tied);
            }
            if (auto const route = du::DynamicCast<figk::HighwaySegment>(node)) CheckRoute(*route);
        }
        if (!subNet.GetHead()) return;
        Expect(IsNetNode(subNet.GetHead()->GetNodeType()), "has a head of a wrong kind");
        CheckPiecesTapOnce(subNet);
    }

    void CheckNetNode(BasePtr const& node, figk::SubNet const& subNet) {
        BasePtr const above = node->GetNonJunctionPredecessor();
        if (auto const port = du::DynamicCast<figk::PortNode>(node)) {
            Expect(port->GetPort()->GetNet() == subNet.GetNet(), "has a port of another net");
            Expect(port->IsOnSubNet(const_cast<figk::SubNet*>(&subNet)), "disowns its port");
        }
        if (IsNetNode(node->GetNodeType()) && above) {
            bool const belowExit = above->GetNodeType() == HIGHWAY;
            Expect(belowExit || IsNetNode(above->GetNodeType()),
                   "has a net node below neither a net node nor an exit");
            Expect(!belowExit || node->GetPredecessor()->IsHighwayNode(),
                   "has a junction between an exit and its net node");
        }
        CheckTouch(node, SuccessorsOf(node));
    }

    void CheckConnectorNode(BasePtr const& node) {
        BasePtr const above = node->GetNonJunctionPredecessor();
        Expect(above && IsNetNode(above->GetNodeType()), "has a connector below no net node");
        if (!above) return;
        Expect(node->IsLeaf(), "has a connector that is no leaf");
        dg::DPoint2D const place = PlaceOf(node).start;
        Ends const ends = PlaceOf(above);
        Expect(place == ends.end || (above->IsHead() && place == ends.start),
               "has a connector that doesn't touch its node");
        std::vector<BasePtr> const siblings = SuccessorsOf(above);
        if (!above->IsHead()) {
            Expect(siblings.size() == 1, "has a connector below a node that is no leaf");
            return;
        }
        auto const sharing = std::count_if(siblings.begin(), siblings.end(), [&](BasePtr const& s) {
            return s->GetNodeType() == CONNECTOR && PlaceOf(s).start == place;
        });
        Expect(sharing == 1, "has two connectors at one end of its head");
    }

    void CheckHighwayPoint(figk::HighwayNode const& point, figk::SubNet const& subNet,
                           std::set<figk::SubHighway*>& entered, std::set<ConnectionNode*>& tied) {
        auto const segment = point.GetHighwaySegment();
        auto const netNode = point.GetNetConnectionNode();
        Expect(segment && ownSegments.count(segment.Get()), "names a segment of no highway");
        Expect(netNode && netNode->GetNodeType() == NET_SEGMENT, "comes onto a highway by no wire");
        if (!segment || !netNode) return;
        Expect(segment->GetSubHighway() == point.GetSubHighway(), "names a segment elsewhere");
        Expect(tied.insert(netNode.Get()).second, "ties one wire to a highway twice");
        Expect(tappedBy.emplace(segment.Get(), subNet.GetNet().Get()).second,
               "comes twice onto one point of a highway");
        BasePtr const self(const_cast<figk::HighwayNode*>(&point));
        BasePtr const above = self->GetNonJunctionPredecessor();
        if (entered.insert(point.GetSubHighway().Get()).second) {
            Expect(above == netNode, "has an entry that isn't below its net node");
            for (BasePtr const& next : SuccessorsOf(self)) {
                Expect(next->GetNodeType() == HIGHWAY_SEGMENT, "has a wire below an entry");
            }
            for (BasePtr const& next : SuccessorsOf(netNode)) {
                Expect(next == self || next->GetNodeType() == CONNECTOR,
                       "shares the wire that enters a highway");
            }
            Expect(PlaceOf(netNode).end == EndsOf(*segment).end, "enters a highway beside its tap");
            return;
        }
        Expect(above && above->GetNodeType() == HIGHWAY_SEGMENT, "enters a highway twice");
        std::vector<BasePtr> const below = SuccessorsOf(self);
        Expect(below.size() == 1 && below.front() == netNode, "has an exit without its net node");
        Expect(PlaceOf(netNode).start == EndsOf(*segment).end, "leaves a highway beside its tap");
    }

    void CheckRoute(figk::HighwaySegment const& route) {
        Expect(!ownSegments.count(&route), "holds a segment of the highway's own tree");
        Ends const ends = EndsOf(route);
        int twins = 0;
        for (auto const& [segment, owner] : ownSegments) {
            if (owner != route.GetSubHighway().Get()) continue;
            Ends const own = EndsOf(*segment);
            bool const same = own.start == ends.start && own.end == ends.end;
            bool const reversed = own.start == ends.end && own.end == ends.start;
            if (!same && !reversed) continue;
            ++twins;
            Expect(segment->GetId() == route.GetId(), "has a copy with another id");
        }
        Expect(twins == 1, "has a highway segment without exactly one twin");
    }

    /// Pieces are what hangs together without highway nodes; the tree is shown by `NodesOf`, so
    /// here only which piece each highway node ties.
    void CheckPiecesTapOnce(figk::SubNet const& subNet) {
        std::set<std::pair<BaseConnectionNode*, figk::SubHighway*>> taps;
        std::vector<std::pair<BasePtr, BasePtr>> open{{subNet.GetHead(), subNet.GetHead()}};
        while (!open.empty()) {
            auto const [node, piece] = open.back();
            open.pop_back();
            for (BasePtr const& next : SuccessorsOf(node)) {
                bool const isExit = node->IsHighwayNode() && IsNetNode(next->GetNodeType());
                BasePtr const nextPiece = isExit ? next : piece;
                open.emplace_back(next, nextPiece);
                auto const point = du::DynamicCast<figk::HighwayNode>(isExit ? node : next);
                if (!point) continue;
                if (!isExit && !IsNetNode(node->GetNodeType())) continue;
                Expect(taps.emplace(nextPiece.Get(), point->GetSubHighway().Get()).second,
                       "has a piece that comes onto one highway twice");
            }
        }
    }

    void CheckConnections(figk::Sheet const& sheet,
                          std::map<figk::ConnectorInstance*, unsigned> const& connections) {
        for (auto const& block : sheet.GetBlockInstances()) {
            for (auto const& connector : block->GetConnectorInstances()) {
                auto const at = connections.find(connector.Get());
                unsigned const expected = at == connections.end() ? 0 : at->second;
                Expect(connector->GetNumConnections() == expected,
                       "A connector counts its connections wrongly.");
                Expect(expected <= 1, "A connector stands in two net pieces.");
            }
        }
    }

    std::string where;
    std::vector<std::string> problems;
    std::unordered_set<BaseConnectionNode*> seen;
    std::map<figk::HighwaySegment const*, figk::SubHighway const*> ownSegments;
    std::set<std::pair<figk::HighwaySegment*, figk::Net*>> tappedBy;
    std::set<du::Symbol> subHighwayIds;
    std::set<du::Symbol> subNetIds;
    std::set<du::Symbol> netSegmentIds;
    std::set<du::Symbol> highwaySegmentIds;
};

}  // namespace

std::vector<std::string> FindBrokenTrees(figk::Design const& design) {
    return TreeChecker().Check(design);
}

std::string JoinLines(std::vector<std::string> const& lines) {
    std::string text;
    for (std::string const& line : lines)
        text += line + '\n';
    return text;
}

}  // namespace figrep::test
