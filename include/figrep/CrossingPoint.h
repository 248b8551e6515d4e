// A place where two wires cross without connecting.
#pragma once

#include <dg/Point.h>
#include <du/RefCounted.h>
#include <figk/SettingValue.h>
#include <figrep/Fwd.h>

namespace figrep {

class CrossingSegments;

/// One crossing of a vertical and a horizontal segment: which style marks it and which lies on top.
///
/// Ownership: the two segments' lists hold it; it knows a segment whose list holds it by a plain
/// pointer, and holds one that refused it. A segment that goes takes its crossings off its
/// partners. Locking: the lock given at construction.
class CrossingPoint : public virtual du::RefCounted {
public:
    /// Adds itself to the lists of both segments.
    CrossingPoint(SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<Segment> const& segment1,
                  SmartPtr<Segment> const& segment2, DPoint2D const& position);
    CrossingPoint(CrossingPoint const& other);
    ~CrossingPoint() override;

    DPoint2D GetPosition() const;
    SmartPtr<Segment> GetSegment1() const;
    SmartPtr<Segment> GetSegment2() const;
    /// The partner of `segment`; null when `segment` has no part in this crossing.
    SmartPtr<Segment> GetOtherSegment(ConstSmartPtr<Segment> const& segment) const;
    /// The segment drawn on top, settled from the settings of both.
    SmartPtr<Segment> GetTopSegment() const;

    /// The symbol on `segment`'s line, in figure units: an arc is added to `definition`, a gap adds
    /// nothing. True when the line is to be broken from `gapStart` to `gapEnd`; both stay untouched
    /// when it runs through.
    bool AddGraphic(ConstSmartPtr<Segment> const& segment,
                    SmartPtr<zv2d::Definition> const& definition, DPoint2D& gapStart,
                    DPoint2D& gapEnd) const;

private:
    friend class CrossingSegments;
    friend class Segment;

    /// A crossing on neither list yet, of segments that aren't null.
    static SmartPtr<CrossingPoint> CreateFree(SmartPtr<zvk::ReadWriteLock> const& lock,
                                              SmartPtr<Segment> const& segment1,
                                              SmartPtr<Segment> const& segment2,
                                              DPoint2D const& position);
    struct Free {};
    CrossingPoint(Free, SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<Segment> const& segment1,
                  SmartPtr<Segment> const& segment2, DPoint2D const& position);

    /// Goes on the segment's list, or off it. While off, it holds the segment.
    void Join(Segment& segment);
    void Leave(Segment& segment);
    SmartPtr<Segment>& HoldOf(Segment const& segment);
    /// Called by a segment on its way out, which took this off its list.
    void Forget(Segment const& segment);

    figk::CrossingPointStyle AcquireStyleFromSettings() const;
    bool AcquireTopSegmentFromSettings() const;
    bool Involves(ConstSmartPtr<Segment> const& segment) const;
    float GetGapRadius(ConstSmartPtr<Segment> const& segment) const;
    void AddGapSymbol(ConstSmartPtr<Segment> const& segment, DPoint2D& gapStart,
                      DPoint2D& gapEnd) const;
    void AddArcSymbol(ConstSmartPtr<Segment> const& segment,
                      SmartPtr<zv2d::Definition> const& definition, DPoint2D& gapStart,
                      DPoint2D& gapEnd) const;

    Segment* segment1_;
    Segment* segment2_;
    SmartPtr<Segment> refused1_;  // the same segments, while their lists don't hold this
    SmartPtr<Segment> refused2_;
    DPoint2D position_;
    SmartPtr<zvk::ReadWriteLock> lock_;
};

}  // namespace figrep
