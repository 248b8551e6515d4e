// What can be deleted from a figure.
#pragma once

#include <figrep/Fwd.h>

namespace fighost {

/// Whether a figure takes the item out when it is told to: a block that stands for itself, a net's
/// or highway's wires, the frame. A deletion of anything else has no effect.
bool CanBeDeleted(figrep::AbstractFigureItem const& item);

}  // namespace fighost
