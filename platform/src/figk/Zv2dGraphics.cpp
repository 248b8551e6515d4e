#include <figk/Zv2dGraphics.h>

#include <zv2d/TexPolyline.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>
#include <cmath>

namespace figk {

using InstancePtr = SmartPtr<zv2d::Instance>;

Zv2dGraphics::Zv2dGraphics(SmartPtr<zvk::ReadWriteLock> const& lock,
                           SmartPtr<zv2d::Instance> const& instance)
    : Zv2dGraphics(lock, std::vector<InstancePtr>{instance}) {}

Zv2dGraphics::Zv2dGraphics(SmartPtr<zvk::ReadWriteLock> const& lock,
                           std::vector<SmartPtr<zv2d::Instance>> const& instances)
    : lock_(lock) {
    std::copy_if(instances.begin(), instances.end(), std::back_inserter(instances_),
                 [](InstancePtr const& instance) { return static_cast<bool>(instance); });
}

Zv2dGraphics::Zv2dGraphics(Zv2dGraphics const& other) : du::RefCounted(other), lock_(other.lock_) {
    zvk::ReadGuard guard(lock_);
    instances_.reserve(other.instances_.size());
    for (InstancePtr const& instance : other.instances_) {
        instances_.push_back(InstancePtr(new zv2d::Instance(*instance)));
    }
}

Zv2dGraphics::~Zv2dGraphics() = default;

void Zv2dGraphics::Move(double dx, double dy) {
    zvk::WriteGuard guard(lock_);
    for (InstancePtr const& instance : instances_)
        instance->Move(dx, dy);
}

void Zv2dGraphics::Rotate(dg::DPoint2D const& about, double radians) {
    zvk::WriteGuard guard(lock_);
    for (InstancePtr const& instance : instances_)
        instance->Rotate(about, radians);
}

void Zv2dGraphics::Scale(dg::DPoint2D const& about, double factor) {
    if (factor == 0.0 || !std::isfinite(factor)) return;
    zvk::WriteGuard guard(lock_);
    for (InstancePtr const& instance : instances_)
        instance->Scale(about, factor);
}

void Zv2dGraphics::Mirror(dg::DPoint2D const& about, bool mirrorY) {
    zvk::WriteGuard guard(lock_);
    for (InstancePtr const& instance : instances_)
        instance->Mirror(about, mirrorY);
}

dg::DBox2D Zv2dGraphics::GetExtents() const {
    zvk::ReadGuard guard(lock_);
    dg::DBox2D box;
    for (InstancePtr const& instance : instances_)
        box.Enclose(instance->GetExtents());
    return box;
}

std::vector<SmartPtr<zv2d::Instance>> Zv2dGraphics::GetInstances() const {
    zvk::ReadGuard guard(lock_);
    return instances_;
}

bool Zv2dGraphics::IsEmpty() const {
    zvk::ReadGuard guard(lock_);
    return instances_.empty();
}

bool Zv2dGraphics::FineOverlapCheck(dg::DBox2D const& box) const {
    zvk::ReadGuard guard(lock_);
    return std::any_of(instances_.begin(), instances_.end(),
                       [&](InstancePtr const& instance) { return instance->Overlaps(box); });
}

bool Zv2dGraphics::FineContentCheck(dg::DBox2D const& box) const {
    // Extents are exact, so what lies in the box is what its extents say.
    return InstanceContained(box);
}

bool Zv2dGraphics::InstanceOverlaps(dg::DPoint2D const& point) const {
    return InstanceOverlaps(dg::DBox2D(point, point));
}

bool Zv2dGraphics::InstanceOverlaps(dg::DBox2D const& box) const {
    zvk::ReadGuard guard(lock_);
    return std::any_of(instances_.begin(), instances_.end(), [&](InstancePtr const& instance) {
        return instance->GetExtents().Intersects(box);
    });
}

bool Zv2dGraphics::InstanceContained(dg::DBox2D const& box) const {
    return box.Contains(GetExtents());
}

SmartPtr<zv2d::Instance> Zv2dGraphics::CreateBoxInstance(dg::DBox2D const& box) {
    SmartPtr<zv2d::Definition> definition(new zv2d::Definition());
    if (!box.IsEmpty()) {
        std::vector<dg::DPoint2D> corners{
            {box[0], box[1]}, {box[2], box[1]}, {box[2], box[3]}, {box[0], box[3]}};
        definition->Add(
            ConstSmartPtr<zv2d::Entity>(new zv2d::TexPolyline(std::move(corners), nullptr, true)));
    }
    return InstancePtr(new zv2d::Instance(definition));
}

}  // namespace figk
