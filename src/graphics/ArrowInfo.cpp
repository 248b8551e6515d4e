#include <figrep/ArrowInfo.h>

#include <zv2d/Attributes.h>
#include <zv2d/Definition.h>

namespace figrep {

ArrowInfo::ArrowInfo(ConstSmartPtr<zv2d::Definition> const& definition, DPoint2D const& position,
                     double radians, ConstSmartPtr<zv2d::Attributes> const& attributes,
                     bool fillBackground)
    : definition_(definition),
      position_(position),
      angle_(radians),
      attributes_(attributes),
      fillBackground_(fillBackground) {}

ArrowInfo::ArrowInfo(ArrowInfo const& other) = default;

ArrowInfo& ArrowInfo::operator=(ArrowInfo const& other) = default;

ArrowInfo::~ArrowInfo() = default;

}  // namespace figrep
