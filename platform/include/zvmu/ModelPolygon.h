// A closed line, and the area in it.
#pragma once

#include <attrs/FillAttr.h>
#include <zvmu/ModelBase.h>

#include <cstddef>
#include <vector>

namespace zvmu {

/// A polygon whose last point is joined to its first. A pointer touches it at its edges and, as
/// long as `PICK_INTERIOR` is set, inside.
class ModelPolygon : public ModelBase {
public:
    enum Flag : unsigned {
        PICK_INTERIOR = 2  ///< set at first
    };

    /// Without points; `expectedPoints` is how many there is room for at once.
    explicit ModelPolygon(std::size_t expectedPoints);
    ~ModelPolygon() override;

    std::vector<dg::DPoint3D> const& GetPoints() const { return points_; }
    void SetPoints(std::vector<dg::DPoint3D> const& points);

    /// Null for a polygon without a fill.
    du::ConstSmartPtr<attrs::FillAttr> const& GetFillAttrs() const { return fill_; }
    void SetFillAttrs(du::ConstSmartPtr<attrs::FillAttr> const& fill) { fill_ = fill; }

protected:
    PickedModel PickHere(PickPoint const& pointer) override;

private:
    bool Encloses(dg::DPoint3D const& point) const;

    std::vector<dg::DPoint3D> points_;
    du::ConstSmartPtr<attrs::FillAttr> fill_;
};

}  // namespace zvmu
