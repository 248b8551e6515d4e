// What the parts of a file of saved figures are called.
#pragma once

#include <du/Symbol.h>

namespace fighost {

inline constexpr char const* SAVED_FIGURES = "figrep-figures";

inline du::Symbol const& SavedFigureName() {
    static du::Symbol const name("figure");
    return name;
}

}  // namespace fighost
