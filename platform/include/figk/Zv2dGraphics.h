// The picture of one record or item: a bag of 2D instances.
#pragma once

#include <dg/Box.h>
#include <dg/Point.h>
#include <du/RefCounted.h>
#include <figk/Fwd.h>
#include <zv2d/Instance.h>

#include <vector>

namespace figk {

/// Instances in figure units, y up, drawn in order. Transforms act on the matrices of instances
/// that this object owns alone, so a copy can be moved without the original. Changes take the lock
/// for writing, queries for reading; a null lock is skipped.
class Zv2dGraphics : public virtual du::RefCounted {
public:
    /// A null instance is left out.
    Zv2dGraphics(SmartPtr<zvk::ReadWriteLock> const& lock,
                 SmartPtr<zv2d::Instance> const& instance);
    Zv2dGraphics(SmartPtr<zvk::ReadWriteLock> const& lock,
                 std::vector<SmartPtr<zv2d::Instance>> const& instances);
    /// Copies the instances; they go on sharing their definitions.
    Zv2dGraphics(Zv2dGraphics const& other);
    ~Zv2dGraphics() override;

    void Move(double dx, double dy);
    /// Counter-clockwise.
    void Rotate(dg::DPoint2D const& about, double radians);
    /// A factor that is 0 or not finite does nothing.
    void Scale(dg::DPoint2D const& about, double factor);
    /// False mirrors x, true mirrors y.
    void Mirror(dg::DPoint2D const& about, bool mirrorY);

    /// The exact box; EMPTY without anything visible.
    dg::DBox2D GetExtents() const;
    /// A copy of the list, in drawing order.
    std::vector<SmartPtr<zv2d::Instance>> GetInstances() const;
    bool IsEmpty() const;

    /// Whether any part of what is drawn lies in the box; exact, not by extents.
    bool FineOverlapCheck(dg::DBox2D const& box) const;
    /// Whether all that is drawn lies in the box; false without anything drawn.
    bool FineContentCheck(dg::DBox2D const& box) const;
    /// Whether some instance's extents hold the point, or touch the box.
    bool InstanceOverlaps(dg::DPoint2D const& point) const;
    bool InstanceOverlaps(dg::DBox2D const& box) const;
    /// Whether the extents of all instances lie in the box; false without anything drawn.
    bool InstanceContained(dg::DBox2D const& box) const;

    /// The outline of a box as a closed polyline without attributes of its own.
    static SmartPtr<zv2d::Instance> CreateBoxInstance(dg::DBox2D const& box);

private:
    SmartPtr<zvk::ReadWriteLock> lock_;
    std::vector<SmartPtr<zv2d::Instance>> instances_;
};

}  // namespace figk
