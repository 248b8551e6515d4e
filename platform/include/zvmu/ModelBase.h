// The base of the models that markups are made of.
#pragma once

#include <dg/Location.h>
#include <dg/Point.h>
#include <du/SmartPtr.h>
#include <zvmu/RenderAttrs.h>

namespace zvmu {

class ModelBase;

/// Where a pointer is, and how near is near enough.
struct PickPoint {
    dg::DPoint3D at;
    double tolerance = 0.0;  ///< how far beside a model a pointer still touches it
    double windowMillimetre =
        1.0;  ///< the length that a millimetre of the window has in the drawing
};

/// What a pointer touches.
struct PickedModel {
    du::SmartPtr<ModelBase> model;  ///< null for nothing
    dg::DPoint3D at;                ///< the place on the model
};

/// A thing that a view draws over its picture and that a pointer can touch.
///
/// Coordinates are those of the drawing, relative to the model's location and that of the container
/// around it. Picking is done in the plane: z takes no part. Used on the view's thread only.
class ModelBase : public virtual du::RefCounted {
public:
    enum Flag : unsigned {
        HIDDEN = 1  ///< neither drawn nor touched
    };

    ~ModelBase() override;

    dg::Location const& GetLocation() const { return location_; }
    void SetLocation(dg::Location const& location) { location_ = location; }

    /// Any of the flags of the model's class.
    unsigned GetFlags() const { return flags_; }
    void SetFlags(unsigned flags) { flags_ = flags; }

    /// One drawing after the other; empty leaves the choice to the painter.
    RenderAttrsVector const& GetRenderAttrsVector() const { return renderAttrs_; }
    void SetRenderAttrsVector(RenderAttrsVector const& attrs) { renderAttrs_ = attrs; }

    /// What the pointer touches: this model or one inside it. Both points are in the frame in which
    /// this model is placed.
    PickedModel Pick(PickPoint const& pointer);

protected:
    ModelBase();

    /// The same with both points relative to the model's own location.
    virtual PickedModel PickHere(PickPoint const& pointer) = 0;

private:
    dg::Location location_;
    unsigned flags_ = 0;
    RenderAttrsVector renderAttrs_;
};

}  // namespace zvmu
