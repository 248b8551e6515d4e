// A straight rubber band in place of a connection that lost its routing.
#pragma once

#include <figrep/SubNetSegment.h>

namespace figrep {

/// A connection of a sub-net without routing. It has no kernel record and no id, and it moves with
/// its sub-net only. Its sub-net is marked when it is made, moved or taken away.
class UnroutedConnection : public SubNetSegment {
public:
    UnroutedConnection(SmartPtr<SubNet> const& subNet, SmartPtr<zvk::ReadWriteLock> const& lock,
                       DPoint2D const& start, DPoint2D const& end,
                       SmartPtr<ConnectionNode> const& predecessor);
    ~UnroutedConnection() override;

    FigureItemType GetType() const override;
    ConnectionNodeType GetNodeType() const override;
    std::string ToString() const override;
    void MoveItem(double dx, double dy) override;
    void RotateItem(DPoint2D const& about, double radians) override;
    void MirrorItem(DPoint2D const& about, bool mirrorY) override;
    void GraphicalUpdateNeeded() override;

    void Disconnect() override;
    SmartPtr<figk::BaseConnectionNode> Disconnect(
        SmartPtr<figk::BaseConnectionNode> const& other) override;

protected:
    bool AcceptNode(AbstractFigureVisitor& visitor) override;
    void DeriveId() override;
};

}  // namespace figrep
