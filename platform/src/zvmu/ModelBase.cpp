#include <zvmu/ModelBase.h>

namespace zvmu {

ModelBase::ModelBase() = default;

ModelBase::~ModelBase() = default;

PickedModel ModelBase::Pick(PickPoint const& pointer) {
    if (flags_ & HIDDEN) return {};
    dg::DVec3 const place = location_.GetPos() - dg::DPoint3D();
    PickPoint local = pointer;
    local.at = local.at + place * -1.0;
    PickedModel picked = PickHere(local);
    picked.at = picked.at + place;
    return picked;
}

}  // namespace zvmu
