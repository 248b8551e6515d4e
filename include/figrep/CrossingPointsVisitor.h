// Finds where wires cross, and keeps what it found up to date.
#pragma once

#include <du/RefCounted.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Fwd.h>

#include <memory>

namespace figrep {

class CrossingSegments;

/// The crossing engine of one figure: nets cross nets, highways cross highways.
///
/// A walk over the figure takes in the segments of sub-nets and sub-highways that are new or noted
/// as changed. `Update` takes in what was noted since, then finds the crossings of all
/// segments and puts `CrossingPoint`s on them, or takes them off, only where the result differs
/// from what is there. Cost: n log n + crossings for n segments; a change of a few segments costs a
/// scan of the coordinates of all.
///
/// Ownership: the figure holds it and is known by a plain pointer; it holds the segments it has
/// taken in. Locking: none of its own, the figure calls it under the write lock.
class CrossingPointsVisitor : public virtual du::RefCounted, public AbstractFigureVisitor {
public:
    /// `figure` may be null.
    explicit CrossingPointsVisitor(Figure* figure);
    ~CrossingPointsVisitor() override;

    /// Brings the crossings up to date with the segments; does nothing when nothing has changed.
    /// Tells the figure that its profile needs new pictures when crossings were found.
    void Update();
    /// Notes that the course of a sub-net or sub-highway changed, so that its segments are taken in
    /// anew. Constant time; other items are ignored.
    void NoteChanged(AbstractFigureItem const& wire);
    /// Marks the owners of all wires that cross the sub-net, sub-highway or segment, also where
    /// several wires at one place share its mark. Cost: the crossings of the sub-net or highway.
    void MarkPartners(AbstractFigureItem const& wire);
    /// Takes the crossings off all segments and forgets these.
    void Reset();
    /// Whether any segment of the sub-net or sub-highway has a crossing. Null: false.
    bool HasCrossingPoints(SmartPtr<AbstractFigureItem> const& owner);
    /// Takes the crossings off the segments of the sub-net or sub-highway and forgets these.
    void Remove(SmartPtr<AbstractFigureItem> const& owner);

    bool StartGroupVisit(SmartPtr<figk::Group> const&) override { return false; }
    bool Visit(SmartPtr<TitleBlock> const&) override { return false; }
    bool Visit(SmartPtr<TableInstance> const&) override { return false; }
    bool Visit(SmartPtr<SubNet> const& subNet) override;
    bool Visit(SmartPtr<SubHighway> const& subHighway) override;
    bool Visit(SmartPtr<NetSegment> const& segment) override;
    bool Visit(SmartPtr<Miscellaneous> const&) override { return false; }
    bool Visit(SmartPtr<HighwaySegment> const& segment) override;
    bool Visit(SmartPtr<Format> const&) override { return false; }
    bool Visit(SmartPtr<Figure> const& figure) override;
    bool Visit(SmartPtr<CableInstance> const&) override { return false; }
    bool Visit(SmartPtr<BlockInstance> const&) override { return false; }
    using AbstractFigureVisitor::Visit;
    void VisitComplete(SmartPtr<SubNet> const& subNet) override;
    void VisitComplete(SmartPtr<SubHighway> const& subHighway) override;
    void VisitComplete(SmartPtr<Figure> const& figure) override;
    using AbstractFigureVisitor::VisitComplete;
    bool VisitTextLabelContainer(SmartPtr<TextLabelContainer> const&) override { return false; }

private:
    enum class Mode { COLLECT, REMOVE, QUERY };

    bool VisitOwner(SmartPtr<AbstractFigureItem> const& owner, CrossingSegments& segments);
    bool VisitSegment(SmartPtr<Segment> const& segment, CrossingSegments& segments);
    void TakeInNoted(CrossingSegments& segments);
    CrossingSegments* SegmentsOf(AbstractFigureItem const& owner) const;

    Figure* figure_;
    Mode mode_ = Mode::COLLECT;
    std::unique_ptr<CrossingSegments> highways_;
    std::unique_ptr<CrossingSegments> nets_;
    bool inHighway_ = false;
    bool found_ = false;  // the answer of a query
};

}  // namespace figrep
