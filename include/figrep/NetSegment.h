// A piece of a net's wire.
#pragma once

#include <figrep/SubNetSegment.h>

namespace figrep {

/// A segment of a sub-net. Its id is its place in the order of making.
class NetSegment : public SubNetSegment {
public:
    NetSegment(SmartPtr<SubNet> const& subNet, SmartPtr<zvk::ReadWriteLock> const& lock,
               SmartPtr<figk::NetSegment> const& kernelSegment,
               SmartPtr<ConnectionNode> const& predecessor);
    NetSegment(SmartPtr<SubNet> const& subNet, SmartPtr<zvk::ReadWriteLock> const& lock,
               DPoint2D const& start, DPoint2D const& end,
               SmartPtr<ConnectionNode> const& predecessor);
    ~NetSegment() override;

    FigureItemType GetType() const override;
    ConnectionNodeType GetNodeType() const override;
    std::string ToString() const override;
    /// The kernel segment's name where it has one, else the sub-net's.
    std::string const& GetName() const override;
    void GraphicalUpdateNeeded() override;
    /// A window takes whole wires: whether it holds all of the sub-net.
    bool FineContentCheck(DBox2D const& box) const override;

    SmartPtr<figk::NetSegment> GetKernelNetSegment() const;

protected:
    bool AcceptNode(AbstractFigureVisitor& visitor) override;
    void DeriveId() override;
};

}  // namespace figrep
