#include <figrep/PickGraphicProxy.h>

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/GraphicGroup.h>
#include <zvk/ReadWriteLock.h>

#include "connectivity/Transforms.h"

namespace figrep {

PickGraphicProxy::PickGraphicProxy(SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& start,
                                   DPoint2D const& end)
    : BaseGraphic(lock, std::string()), start_(start), end_(end) {
    DeriveId();
}

PickGraphicProxy::~PickGraphicProxy() = default;

SmartPtr<PickGraphicProxy> PickGraphicProxy::Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                                    SmartPtr<figk::Group> const& group,
                                                    DPoint2D const& start, DPoint2D const& end) {
    SmartPtr<PickGraphicProxy> proxy(new PickGraphicProxy(lock, start, end));
    proxy->Initialise(group);
    return proxy;
}

void PickGraphicProxy::DeriveId() {
    static Symbol const id("PickGraphicProxy");
    SetId(id);
}

void PickGraphicProxy::Accept(AbstractFigureVisitor& visitor) {
    visitor.Visit(SmartPtr<PickGraphicProxy>(this));
}

DBox2D PickGraphicProxy::GetExtents() {
    zvk::ReadGuard guard(GetLock());
    return DBox2D(start_, end_);
}

bool PickGraphicProxy::FineContentCheck(DBox2D const& box) const {
    auto const owner = du::DynamicCast<TreeInterface>(GetOwner());
    return !owner || owner->FineContentCheck(box);
}

DPoint2D PickGraphicProxy::GetStart() const {
    zvk::ReadGuard guard(GetLock());
    return start_;
}

DPoint2D PickGraphicProxy::GetEnd() const {
    zvk::ReadGuard guard(GetLock());
    return end_;
}

template <typename Transform>
void PickGraphicProxy::TransformEnds(Transform const& transform) {
    zvk::WriteGuard guard(GetLock());
    start_ = transform(start_);
    end_ = transform(end_);
    InvalidateExtents();
}

void PickGraphicProxy::Move(double dx, double dy) {
    TransformEnds([by = DVec2(dx, dy)](DPoint2D const& p) { return p + by; });
}

void PickGraphicProxy::Rotate(DPoint2D const& centre, double radians) {
    TransformEnds([&, turn = DMat33::RotationZ(radians)](DPoint2D const& p) {
        return TransformAbout(p, centre, turn);
    });
}

void PickGraphicProxy::Scale(DPoint2D const& centre, double factor) {
    if (!IsUsableFactor(factor)) return;
    TransformEnds([&, scale = DMat33::Scale(factor)](DPoint2D const& p) {
        return TransformAbout(p, centre, scale);
    });
}

void PickGraphicProxy::Mirror(DPoint2D const& point, bool axis) {
    TransformEnds([&](DPoint2D const& p) { return MirrorAbout(p, point, axis); });
}

void PickGraphicProxy::UpdateRenderInfo() {}

void PickGraphicProxy::UpdateRenderInfoBase() {}

void PickGraphicProxy::GenerateZv2dGraphics() const {}

}  // namespace figrep
