#include <zv2d/Definition.h>

#include <algorithm>

namespace zv2d {

Definition::Definition() = default;

Definition::~Definition() = default;

void Definition::Add(du::ConstSmartPtr<Entity> const& entity) {
    if (!entity) return;
    entities_.push_back(entity);
    extents_.Enclose(entity->GetExtents());
}

dg::DBox2D Definition::GetExtents(dg::DMat33 const& matrix) const {
    if (matrix.KeepsAxes()) return matrix * extents_;
    dg::DBox2D box;
    for (auto const& entity : entities_)
        box.Enclose(entity->GetExtents(matrix));
    return box;
}

bool Definition::Overlaps(dg::DBox2D const& box, dg::DMat33 const& matrix) const {
    return std::ranges::any_of(entities_,
                               [&](auto const& entity) { return entity->Overlaps(box, matrix); });
}

bool Definition::ContainedIn(dg::DBox2D const& box, dg::DMat33 const& matrix) const {
    return box.Contains(GetExtents(matrix));
}

}  // namespace zv2d
