// A handle.
#pragma once

#include <zvmu/ModelBase.h>

namespace zvmu {

/// A small rectangle around a point, to be dragged. A pointer anywhere in it touches the point.
class ModelShadowPoint : public ModelBase {
public:
    /// The whole width and height: in millimetres of the window when `sizeOfWindow`, so that the
    /// handle looks the same at any scale, and in units of the drawing otherwise.
    ModelShadowPoint(dg::DPoint3D const& position, float width, float height, bool sizeOfWindow);
    ~ModelShadowPoint() override;

    dg::DPoint3D const& GetPosition() const { return position_; }
    void SetPosition(dg::DPoint3D const& position) { position_ = position; }

    float GetWidth() const { return width_; }
    float GetHeight() const { return height_; }
    bool IsSizeOfWindow() const { return sizeOfWindow_; }

protected:
    PickedModel PickHere(PickPoint const& pointer) override;

private:
    dg::DPoint3D position_;
    float width_;
    float height_;
    bool sizeOfWindow_;
};

}  // namespace zvmu
