#include <session/Failures.h>

#include <algorithm>

#include <figk/AbstractDelta.h>
#include <figrep/Figure.h>
#include <persistence/SavedFigures.h>

namespace fighost {

bool TakeFailures(figrep::Figure& figure) {
    figrep::Figure::Deltas failures;
    figure.TakeDeltaFailures(failures);
    return std::any_of(failures.begin(), failures.end(),
                       [](auto const& delta) { return IsWorthSaving(*delta); });
}

}  // namespace fighost
