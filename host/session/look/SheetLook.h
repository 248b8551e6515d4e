// How sheets look as a whole: the theme, the ground, the frame.
#pragma once

#include <optional>

#include <dg/Color.h>
#include <figrep/Fwd.h>
#include <session/look/Palette.h>

namespace fighost {

struct SheetLook {
    Theme theme = Theme::LIGHT;
    /// In place of the theme's own; with opacity 0 the sheet is transparent, and its colours are
    /// those for the theme's own ground.
    std::optional<dg::Color> ground = std::nullopt;
    bool frame = true;  ///< format and title block
};

/// Gives the figure the look by settings at `LEVEL_PROFILE`, in place of an earlier look:
///
/// - the figure's `BACKGROUND_COLOR`, its `FILL_ATTRIBUTES` (for bodies), the two
///   highlight colours,
///   and `COLOR` for what has no role;
/// - `COLOR` of sub-nets, sub-highways and the format;
/// - `COLOR` of graphics and texts from the kernel by their role (`KEY_ROLE`). A colour that the
///   file chose stays the item's own in print; the dark theme keeps it where it is readable and
///   else makes it so, and does the same with the fills that the file chose;
/// - the format's `ITEM_VISIBILITY`, which hides the title block too.
///
/// So what a user changes, at `LEVEL_FIGURE`, wins. Themes leave `TEXT_COLOR` and `LINE_COLOR`
/// alone, which would win over a user's `COLOR`. Nothing else about a picture depends on the look.
///
/// Items that come later have the colours of their sub-net or figure until the look is given again.
/// `UpdateContent` is needed afterwards. The look isn't a change of the figure: `HasChanged`
/// answers as before; observers are told once. Takes the figure's lock for writing and walks the
/// figure, except where a light look follows none or a light one. A null figure does nothing.
void ApplyLook(figrep::SmartPtr<figrep::Figure> const& figure, SheetLook const& look);

}  // namespace fighost
