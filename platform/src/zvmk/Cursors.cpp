#include <zvmk/Cursors.h>

namespace zvmk {

du::Symbol const dragCursorSizeRightToLeft("drag_cursor_size_right_to_left");
du::Symbol const dragCursorSizeLeftToRight("drag_cursor_size_left_to_right");
du::Symbol const dragCursorTopBottom("drag_cursor_top_bottom");
du::Symbol const dragCursorLeftRight("drag_cursor_left_right");
du::Symbol const dragCursorMove("drag_cursor_move");

}  // namespace zvmk
