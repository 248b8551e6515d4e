#include <figrep/TidyJunctionsVisitor.h>

#include <figrep/Figure.h>
#include <figrep/JunctionNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>

#include <utility>

namespace figrep {

namespace {

using Node = SmartPtr<figk::BaseConnectionNode>;

void FreeSuccessors(JunctionNode& junction, Node const& left, Node const& right) {
    if (left) junction.Disconnect(left);
    if (right) junction.Disconnect(right);
}

/// Takes a junction with at most one successor out from between it and the predecessor.
void TakeOut(SmartPtr<JunctionNode> const& junction, Node predecessor, Node const& remaining) {
    predecessor = predecessor->Disconnect(junction);
    if (!remaining) return;
    if (predecessor) {
        predecessor->AddSuccessor(remaining);
    } else {
        junction->Disconnect(remaining);
    }
}

void TidyJunction(SmartPtr<JunctionNode> const& junction) {
    figk::BaseConnectionNode const& node = *junction;
    Node const predecessor = node.GetPredecessor();
    Node const left = node.GetLeftSuccessor();
    Node const right = node.GetRightSuccessor();
    if (!predecessor) {
        FreeSuccessors(*junction, left, right);
    } else if (!left || !right) {
        TakeOut(junction, predecessor, left ? left : right);
    }
}

}  // namespace

TidyJunctionsVisitor::TidyJunctionsVisitor() = default;
TidyJunctionsVisitor::TidyJunctionsVisitor(TidyJunctionsVisitor const&) = default;
TidyJunctionsVisitor& TidyJunctionsVisitor::operator=(TidyJunctionsVisitor const&) = default;
TidyJunctionsVisitor::~TidyJunctionsVisitor() = default;

bool TidyJunctionsVisitor::Visit(SmartPtr<Figure> const& figure) {
    if (!figure) return false;
    for (auto const& subHighway : figure->GetSubHighways())
        subHighway->Accept(*this);
    for (auto const& subNet : figure->GetSubNets())
        subNet->Accept(*this);
    subNet_.Reset();
    return false;
}

bool TidyJunctionsVisitor::Visit(SmartPtr<SubHighway> const&) {
    subNet_.Reset();
    return true;
}

bool TidyJunctionsVisitor::Visit(SmartPtr<SubNet> const& subNet) {
    subNet_ = subNet;
    return true;
}

bool TidyJunctionsVisitor::Visit(SmartPtr<JunctionNode> const& junction) {
    VisitChildren(junction);
    return false;
}

// Junctions can stand below one another as often as a net branches, so they aren't visited from
// within each other. The walk stays on the sub-net like any other of its tree.
void TidyJunctionsVisitor::VisitChildren(SmartPtr<ConnectionNode> const& top) {
    std::vector<SmartPtr<ConnectionNode>> pending;
    if (top) pending.push_back(top);
    auto const enter = [&](SmartPtr<ConnectionNode> const& node) {
        if (node && (!subNet_ || node->Visit(subNet_))) pending.push_back(node);
    };
    while (!pending.empty()) {
        auto const node = pending.back();
        pending.pop_back();
        NoteIfDefective(du::DynamicCast<JunctionNode>(node));
        enter(node->GetRightSuccessor());
        enter(node->GetLeftSuccessor());
    }
}

void TidyJunctionsVisitor::NoteIfDefective(SmartPtr<JunctionNode> const& junction) {
    if (!junction) return;
    bool const branches = junction->GetLeftSuccessor() && junction->GetRightSuccessor();
    if (!branches || !junction->GetPredecessor()) junctions_.push_back(junction);
}

void TidyJunctionsVisitor::Tidy() {
    for (auto const& junction : std::exchange(junctions_, {}))
        TidyJunction(junction);
}

}  // namespace figrep
