// Where a model stands.
#pragma once

#include <dg/Point.h>

namespace dg {

/// A place in space that a model is drawn relative to.
class Location {
public:
    constexpr void SetPos(DPoint3D const& to) { position_ = to; }
    constexpr DPoint3D const& GetPos() const { return position_; }

private:
    DPoint3D position_;
};

}  // namespace dg
