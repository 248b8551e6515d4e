// One place where a move pulled a wire apart.
#pragma once

#include <du/RefCounted.h>
#include <figrep/Fwd.h>

namespace figrep {

/// Says which connection of a sub-net was broken: one of its two nodes stayed, the other was moved
/// from the start position to the end position.
class BrokenConnectionRecord : public virtual du::RefCounted {
public:
    /// `predecessorNotSuccessor` says that, seen from the sub-net's head, the upper of the two
    /// nodes is the one that stayed.
    BrokenConnectionRecord(SmartPtr<SubNet> const& subNet, DPoint2D const& staticPosition,
                           DPoint2D const& startPosition, DPoint2D const& endPosition,
                           bool predecessorNotSuccessor);
    /// For loaders; the sub-net is set when the record's delta is applied.
    BrokenConnectionRecord(Symbol const& subNetId, DPoint2D const& staticPosition,
                           DPoint2D const& startPosition, DPoint2D const& endPosition,
                           bool predecessorNotSuccessor);
    BrokenConnectionRecord(BrokenConnectionRecord const&);
    BrokenConnectionRecord(BrokenConnectionRecord&&) noexcept;
    BrokenConnectionRecord& operator=(BrokenConnectionRecord const&);
    BrokenConnectionRecord& operator=(BrokenConnectionRecord&&) noexcept;
    ~BrokenConnectionRecord() override;

    /// Null for a record made from an id until it is set.
    SmartPtr<SubNet> const& GetSubNet() const { return subNet_; }
    void SetSubNet(SmartPtr<SubNet> const& subNet);
    /// Empty for a record made from a sub-net.
    Symbol const& GetSubNetId() const { return subNetId_; }
    /// In figure units: the end that stays, and the moving end before and after.
    DPoint2D const& GetStaticPosition() const { return staticPosition_; }
    DPoint2D const& GetStartPosition() const { return startPosition_; }
    DPoint2D const& GetEndPosition() const { return endPosition_; }
    bool GetPredecessorNotSuccessor() const { return predecessorNotSuccessor_; }

private:
    SmartPtr<SubNet> subNet_;
    Symbol subNetId_;
    DPoint2D staticPosition_;
    DPoint2D startPosition_;
    DPoint2D endPosition_;
    bool predecessorNotSuccessor_;
};

}  // namespace figrep
