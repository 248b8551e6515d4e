#include <figrep/NetSegment.h>

#include <figk/NetSegment.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/SubNet.h>
#include <zvk/ReadWriteLock.h>

#include "Ids.h"

namespace figrep {

NetSegment::NetSegment(SmartPtr<SubNet> const& subNet, SmartPtr<zvk::ReadWriteLock> const& lock,
                       SmartPtr<figk::NetSegment> const& kernelSegment,
                       SmartPtr<ConnectionNode> const& predecessor)
    : SubNetSegment(subNet, lock, kernelSegment, predecessor) {
    ReadEnds(kernelSegment.Get());
    NetSegment::DeriveId();
    OwnerWiresChanged();
}

NetSegment::NetSegment(SmartPtr<SubNet> const& subNet, SmartPtr<zvk::ReadWriteLock> const& lock,
                       DPoint2D const& start, DPoint2D const& end,
                       SmartPtr<ConnectionNode> const& predecessor)
    : SubNetSegment(subNet, lock, start, end, predecessor) {
    ReadEnds(nullptr);
    NetSegment::DeriveId();
    OwnerWiresChanged();
}

NetSegment::~NetSegment() = default;

void NetSegment::DeriveId() {
    if (auto const subNet = GetSubNet()) {
        SetId(NumberedId(subNet->GetId(), "segment", subNet->GetNextNetSegmentId()));
    }
}

NetSegment::FigureItemType NetSegment::GetType() const {
    return ITEM_NET_SEGMENT;
}

NetSegment::ConnectionNodeType NetSegment::GetNodeType() const {
    return NODE_NET_SEGMENT;
}

std::string NetSegment::ToString() const {
    return "NetSegment" + Segment::ToString();
}

std::string const& NetSegment::GetName() const {
    std::string const& name = Segment::GetName();
    if (!name.empty()) return name;
    auto const subNet = GetSubNet();
    return subNet ? subNet->GetName() : name;
}

void NetSegment::GraphicalUpdateNeeded() {
    if (auto const subNet = GetSubNet()) subNet->SetGraphicalUpdateNeeded(true);
}

bool NetSegment::FineContentCheck(DBox2D const& box) const {
    auto const subNet = GetSubNet();
    return subNet && box.Contains(subNet->GetExtents(), 0.0);
}

SmartPtr<figk::NetSegment> NetSegment::GetKernelNetSegment() const {
    return GetKernelItemAs<figk::NetSegment>();
}

bool NetSegment::AcceptNode(AbstractFigureVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<NetSegment>(this))) return false;
    AcceptContents(visitor);
    return true;
}

}  // namespace figrep
