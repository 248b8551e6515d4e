// Title blocks whose texts have places of their own, as a drawing sheet gives them.
#pragma once

#include <figrep/Fwd.h>
#include <figrep/TitleBlock.h>

namespace fighost {

/// True when every section has a place of its own, and there is at least one.
bool IsPlacedTitleBlock(figrep::TitleBlock const& block);

/// Adds the texts at their places, counted from where the format now stands. A text that would be
/// longer or higher than its place allows is written smaller. Frames and lines around them belong
/// to the format. Corner and offsets of the block don't count.
void GeneratePlacedTitleBlock(figrep::SmartPtr<figrep::TitleBlock> const& block);

/// The box around all texts; empty without any.
dg::DBox2D PlacedTitleBlockExtents(figrep::TitleBlock const& block);

}  // namespace fighost
