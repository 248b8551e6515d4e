// Hiding and isolating items that users name.
#pragma once

#include <session/Session.h>

#include <optional>
#include <string>
#include <vector>

namespace fighost {

/// What is to be seen, by names as `FindItems` takes them.
struct VisibilityWish {
    std::vector<std::string> isolate;  ///< empty: everything is shown
    std::vector<std::string> hide;     ///< of what is shown then

    bool IsEmpty() const { return isolate.empty() && hide.empty(); }
};

/// Isolates, then hides, on all sheets of the design: a sheet without an isolated item shows its
/// frame alone. Each of the two is one operation in the session's history. Pictures are brought up
/// to date. When a name means nothing the answer says so, and nothing is done.
std::optional<std::string> ShowOnly(Session& session, VisibilityWish const& wish);

}  // namespace fighost
