// What a figure shows, as text that can be compared.
#pragma once

#include <string>
#include <vector>

#include <figrep/Fwd.h>

namespace figrep::test {

/// One line for each item that a walk of the figure meets: kind, id, name, place, and the colour,
/// visibility and background settings that hold there. Two figures with equal dumps look the same
/// and take the same deltas.
std::vector<std::string> DumpOf(SmartPtr<Figure> const& figure);

}  // namespace figrep::test
