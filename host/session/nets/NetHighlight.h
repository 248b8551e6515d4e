// Nets that stand out in the pictures of all sheets.
#pragma once

#include <string>
#include <vector>

#include <dg/Color.h>
#include <session/Session.h>

namespace fighost {

/// Highlights the net of this name on all sheets in this colour: its wires and labels, the pins on
/// it, the ports by which it leaves a sheet, and the buses that it runs along. Of two nets on one
/// bus the later one colours it.
///
/// The items are highlighted as a selection, and `SELECTION_HIGHLIGHT_COLOR` at `LEVEL_PROFILE`
/// gives them the colour. The pictures are up to date afterwards. False when the design has no such
/// net. Cost: one walk of every figure.
bool HighlightNet(Session const& session, std::string const& name, dg::Color const& color);

/// The names of all nets of the design.
std::vector<std::string> NetNames(Session const& session);

}  // namespace fighost
