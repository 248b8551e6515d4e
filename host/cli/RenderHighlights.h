// The nets that `render --highlight` names.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <session/Session.h>
#include <session/look/Palette.h>

namespace fighost {

/// Highlights each "NET" or "NET=COLOR" on all sheets; a net without a colour gets the next one of
/// the theme. A net whose name holds '=' is taken for itself first. Answers what is wrong, in one
/// sentence, or nothing.
std::optional<std::string> Highlight(Session const& session, std::vector<std::string> const& nets,
                                     Theme theme);

}  // namespace fighost
