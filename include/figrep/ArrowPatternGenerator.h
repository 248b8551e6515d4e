// Records on wires where their arrows of direction belong.
#pragma once

#include <dg/Point.h>
#include <du/RefCounted.h>
#include <figk/ArrowStyle.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Fwd.h>

#include <unordered_map>

namespace figrep {

/// The arrow engine of one figure. A walk puts `ArrowInfo` records on the segments of every sub-net
/// with an arrow style that it hasn't been applied to yet; highways have no arrows.
///
/// A walk only adds: `ForgetChanged` before a walk takes off what is no longer right. Ownership:
/// the figure holds it; it holds the sub-nets that it has given arrows until `Remove` or `Reset`.
/// Locking: none of its own, the figure calls it under the write lock.
class ArrowPatternGenerator : public virtual du::RefCounted, public AbstractFigureVisitor {
public:
    /// No more arrows than this are put on one segment, however narrow the spacing.
    static constexpr unsigned MAX_ARROWS_PER_SEGMENT = 100000;

    ArrowPatternGenerator();
    ~ArrowPatternGenerator() override;

    /// Forgets what was applied to the sub-net, so that the next walk processes it afresh.
    void Remove(SmartPtr<SubNet> const& subNet);
    /// Notes that the sub-net's course changed. Constant time; other items are ignored.
    void NoteChanged(AbstractFigureItem const& wire);
    /// Takes the arrows off the sub-nets that were noted, or are marked for new pictures and have
    /// another style than the one applied, and forgets these, so that the
    /// next walk puts their arrows on anew. Cost: linear in the sub-nets with arrows.
    void ForgetChanged();
    /// Forgets all sub-nets. What stands on their segments stays.
    void Reset();

    bool Visit(SmartPtr<TitleBlock> const&) override { return false; }
    bool Visit(SmartPtr<TextGraphic> const&) override { return false; }
    bool Visit(SmartPtr<TableInstance> const&) override { return false; }
    bool Visit(SmartPtr<SubNet> const& subNet) override;
    bool Visit(SmartPtr<SubHighway> const& subHighway) override;
    bool Visit(SmartPtr<NetSegment> const& segment) override;
    bool Visit(SmartPtr<Miscellaneous> const&) override { return false; }
    bool Visit(SmartPtr<HighwaySegment> const&) override { return false; }
    bool Visit(SmartPtr<Format> const&) override { return false; }
    bool Visit(SmartPtr<ConnectorInstance> const&) override { return false; }
    bool Visit(SmartPtr<CableInstance> const&) override { return false; }
    bool Visit(SmartPtr<BlockInstance> const&) override { return false; }
    using AbstractFigureVisitor::Visit;

private:
    struct Applied {
        SmartPtr<SubNet> subNet;
        figk::ArrowStyle style;
        bool changed = false;
    };

    static bool IsStale(Applied const& applied);
    static void RemoveArrows(SmartPtr<SubNet> const& subNet);
    static SmartPtr<ConnectionNode> FindStartNode(SmartPtr<SubNet> const& subNet);
    static void FindCentrePoint(SmartPtr<ConnectionNode> const& head, SmartPtr<Segment>& segmentOut,
                                DPoint2D& pointOut);
    static void ReassertStartSegment(SmartPtr<SubNet> const& subNet);
    void AddArrow(SmartPtr<Segment> const& segment, DPoint2D const& position, double angle) const;
    void AddSpacedArrows(SmartPtr<Segment> const& segment, DPoint2D const& start,
                         DPoint2D const& end) const;

    SmartPtr<SubNet> currentSubNet_;  // null outside a sub-net being processed
    figk::ArrowStyle style_;          // the one in force for it
    std::unordered_map<SubNet const*, Applied> appliedStyles_;
    SmartPtr<Segment> centreSegment_;
    DPoint2D centrePoint_;
};

}  // namespace figrep
