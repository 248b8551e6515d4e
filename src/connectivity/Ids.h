// How ids of items below an owner are written.
#pragma once

#include <du/Symbol.h>

#include <string>

namespace figrep {

/// "owner/kind/number", or "owner/number" for an empty kind.
inline du::Symbol NumberedId(du::Symbol const& owner, std::string const& kind, std::size_t number) {
    std::string text = owner.GetString();
    if (!kind.empty()) text += "/" + kind;
    return du::Symbol(text + "/" + std::to_string(number));
}

}  // namespace figrep
