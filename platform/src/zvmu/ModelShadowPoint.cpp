#include <zvmu/ModelShadowPoint.h>

#include <cmath>

namespace zvmu {

ModelShadowPoint::ModelShadowPoint(dg::DPoint3D const& position, float width, float height,
                                   bool sizeOfWindow)
    : position_(position), width_(width), height_(height), sizeOfWindow_(sizeOfWindow) {}

ModelShadowPoint::~ModelShadowPoint() = default;

PickedModel ModelShadowPoint::PickHere(PickPoint const& pointer) {
    double const half = sizeOfWindow_ ? 0.5 * pointer.windowMillimetre : 0.5;
    dg::DVec3 const off = pointer.at - position_;
    bool const touched = std::abs(off.x) <= width_ * half + pointer.tolerance &&
                         std::abs(off.y) <= height_ * half + pointer.tolerance;
    return touched ? PickedModel{this, position_} : PickedModel{};
}

}  // namespace zvmu
