#include <zv2d/Instance.h>

namespace zv2d {

Instance::Instance(du::ConstSmartPtr<Definition> const& definition, dg::DMat33 const& matrix,
                   du::ConstSmartPtr<Attributes> const& attributes)
    : definition_(definition), matrix_(matrix), attributes_(attributes) {}

Instance::Instance(Instance const&) = default;

Instance::~Instance() = default;

dg::DBox2D Instance::GetExtents() const {
    return definition_ ? definition_->GetExtents(matrix_) : dg::DBox2D::EMPTY;
}

bool Instance::Overlaps(dg::DBox2D const& box) const {
    return definition_ && definition_->Overlaps(box, matrix_);
}

bool Instance::ContainedIn(dg::DBox2D const& box) const {
    return definition_ && definition_->ContainedIn(box, matrix_);
}

void Instance::Move(double dx, double dy) {
    Transform(dg::DMat33::Translation(dg::DVec2(dx, dy)));
}

void Instance::Rotate(dg::DPoint2D const& about, double radians) {
    Transform(dg::DMat33::About(about, dg::DMat33::RotationZ(radians)));
}

void Instance::Scale(dg::DPoint2D const& about, double factor) {
    Transform(dg::DMat33::About(about, dg::DMat33::Scale(factor)));
}

void Instance::Mirror(dg::DPoint2D const& about, bool mirrorY) {
    Transform(dg::DMat33::About(about, dg::DMat33::Mirror(mirrorY)));
}

}  // namespace zv2d
