// Turns wires into pictures.
#pragma once

#include <dg/Point.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Fwd.h>

#include <unordered_map>
#include <vector>

namespace figrep {

/// A walk over a figure that draws the sub-nets and sub-highways that are marked as needing it.
///
/// Each unbranched run of segments becomes one polyline, broken where a crossing symbol sits; pick
/// proxies and arrows are added, all as members of the segments' groups. The marks stay: whoever
/// runs the walk clears them. For one pass. Takes no lock; runs under the figure's write lock.
class SegmentGraphicsGenerator : public AbstractFigureVisitor {
public:
    SegmentGraphicsGenerator();
    /// With `includeUnrouted` connections without a route are drawn outside sub-nets as well.
    SegmentGraphicsGenerator(SmartPtr<Figure> const& figure, bool includeUnrouted);
    ~SegmentGraphicsGenerator() override;

    bool StartGroupVisit(SmartPtr<figk::Group> const&) override { return false; }
    bool Visit(SmartPtr<UnroutedConnection> const& connection) override;
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
    bool VisitTextLabelContainer(SmartPtr<TextLabelContainer> const&) override { return false; }
    using AbstractFigureVisitor::Visit;
    void VisitComplete(SmartPtr<SubNet> const& subNet) override;
    void VisitComplete(SmartPtr<SubHighway> const& subHighway) override;
    using AbstractFigureVisitor::VisitComplete;

private:
    using Vertices = std::vector<DPoint2D>;
    struct Run {
        SmartPtr<Segment> head;
        Vertices vertices;
    };

    void Begin(GraphicGroup& group);
    void DrawSegment(SmartPtr<Segment> const& segment, bool withSymbols);
    int GetRun(SmartPtr<Segment> const& segment);

    void HandleCrossingPoints(Vertices& vertices, SmartPtr<Segment> const& segment,
                              DPoint2D const& start);
    void BreakAt(Vertices& vertices, SmartPtr<Segment> const& segment, DPoint2D const& gapStart,
                 DPoint2D const& gapEnd);
    bool GenerateCrossingPoint(SmartPtr<Segment> const& segment,
                               SmartPtr<CrossingPoint> const& crossing, DPoint2D const& start,
                               DPoint2D& gapStart, DPoint2D& gapEnd);
    void AddArrows(SmartPtr<Segment> const& segment);

    void Generate();
    void Generate(SmartPtr<Segment> const& segment);
    void Generate(SmartPtr<Segment> const& segment, Vertices const& vertices);
    SmartPtr<GenericGraphic> AddGraphic(SmartPtr<Segment> const& segment,
                                        std::vector<SmartPtr<zv2d::Instance>> const& instances);

    bool includeUnrouted_ = false;
    SmartPtr<Figure> figure_;
    SmartPtr<SubHighway> currentSubHighway_;
    SmartPtr<SubNet> currentSubNet_;

    // Of the sub-net or sub-highway being drawn. Runs stand in the order of their heads in the
    // walk; a segment's run is -1 when the segment is transparent.
    std::vector<Run> runs_;
    std::unordered_map<Segment const*, int> runOfSegment_;
};

}  // namespace figrep
