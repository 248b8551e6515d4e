// The cursors that markups show.
#pragma once

#include <du/Symbol.h>

namespace zvmk {

/// A size is dragged along the diagonal from the upper right to the lower left, or the other one.
extern du::Symbol const dragCursorSizeRightToLeft;
extern du::Symbol const dragCursorSizeLeftToRight;
extern du::Symbol const dragCursorTopBottom;
extern du::Symbol const dragCursorLeftRight;
extern du::Symbol const dragCursorMove;

}  // namespace zvmk
