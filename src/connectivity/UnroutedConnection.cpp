#include <figrep/UnroutedConnection.h>

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/SubNet.h>

namespace figrep {

UnroutedConnection::UnroutedConnection(SmartPtr<SubNet> const& subNet,
                                       SmartPtr<zvk::ReadWriteLock> const& lock,
                                       DPoint2D const& start, DPoint2D const& end,
                                       SmartPtr<ConnectionNode> const& predecessor)
    : SubNetSegment(subNet, lock, start, end, predecessor) {
    OwnerWiresChanged();
}

UnroutedConnection::~UnroutedConnection() = default;

UnroutedConnection::FigureItemType UnroutedConnection::GetType() const {
    return ITEM_UNROUTED_CONNECTION;
}

UnroutedConnection::ConnectionNodeType UnroutedConnection::GetNodeType() const {
    return NODE_UNROUTED;
}

std::string UnroutedConnection::ToString() const {
    return "UnroutedConnection" + Segment::ToString();
}

void UnroutedConnection::MoveItem(double, double) {}

void UnroutedConnection::RotateItem(DPoint2D const&, double) {}

void UnroutedConnection::MirrorItem(DPoint2D const&, bool) {}

void UnroutedConnection::GraphicalUpdateNeeded() {}

void UnroutedConnection::DeriveId() {}

void UnroutedConnection::Disconnect() {
    SubNetSegment::Disconnect();
    OwnerWiresChanged();
}

SmartPtr<figk::BaseConnectionNode> UnroutedConnection::Disconnect(
    SmartPtr<figk::BaseConnectionNode> const& other) {
    auto result = SubNetSegment::Disconnect(other);
    OwnerWiresChanged();
    return result;
}

bool UnroutedConnection::AcceptNode(AbstractFigureVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<UnroutedConnection>(this))) return false;
    GraphicalFigureItem::Accept(visitor);
    return true;
}

}  // namespace figrep
