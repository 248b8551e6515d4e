// One direction arrow on a wire.
#pragma once

#include <dg/Point.h>
#include <du/SmartPtr.h>
#include <figrep/Fwd.h>

namespace figrep {

/// Where an arrow stands and how it looks; the picture is made of it when the wire is drawn.
class ArrowInfo {
public:
    ArrowInfo(ConstSmartPtr<zv2d::Definition> const& definition, DPoint2D const& position,
              double radians, ConstSmartPtr<zv2d::Attributes> const& attributes,
              bool fillBackground);
    ArrowInfo(ArrowInfo const& other);
    ArrowInfo& operator=(ArrowInfo const& other);
    virtual ~ArrowInfo();

    /// The arrow's shape around the origin, pointing along positive x. May be null.
    ConstSmartPtr<zv2d::Definition> const& GetArrowDefinition() const { return definition_; }
    DPoint2D const& GetPosition() const { return position_; }
    void SetPosition(DPoint2D const& position) { position_ = position; }
    /// Radians, counter-clockwise from positive x.
    double GetAngle() const { return angle_; }
    void SetAngle(double radians) { angle_ = radians; }
    /// May be null.
    ConstSmartPtr<zv2d::Attributes> const& GetAttributes() const { return attributes_; }
    bool GetFillBackground() const { return fillBackground_; }

private:
    ConstSmartPtr<zv2d::Definition> definition_;
    DPoint2D position_;
    double angle_;
    ConstSmartPtr<zv2d::Attributes> attributes_;
    bool fillBackground_;
};

}  // namespace figrep
