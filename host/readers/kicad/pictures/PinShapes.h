// What stands at the body end of a pin. Private.
#pragma once

#include <string_view>
#include <vector>

#include <readers/kicad/pictures/Shapes.h>

namespace fighost::kicad {

/// A pin of that shape and length (mm) from its connecting point at the origin along +x: its line
/// with circle, clock wedge or whatever the shape asks for.
std::vector<EntityPtr> MakePinEntities(std::string_view shape, double length);

}  // namespace fighost::kicad
