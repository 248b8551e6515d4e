// Saved changes on the present design, with a word on each.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <figrep/Fwd.h>
#include <persistence/ContentXml.h>
#include <persistence/DeltaTypes.h>
#include <persistence/SavedFigures.h>

namespace fighost {

/// What became of one saved change.
struct DeltaReport {
    enum Outcome {
        APPLIED,
        PARTLY,         ///< some of its targets are gone
        FAILED,         ///< nothing was changed
        NOT_UNDERSTOOD  ///< no change could be made of it; it is kept as it is
    };

    std::size_t number = 0;  ///< counted from 1 in the saved figure
    Outcome outcome = APPLIED;
    std::string what;  ///< the change in words, as "move U1, U2"
    std::string why;   ///< empty when it was applied whole

    /// "3: move U1: U1 (id) is gone".
    std::string ToString() const;
};

/// Applies the changes of a saved figure one after the other and never stops at one that fails.
///
/// `figure` is a fresh one; what no change brings in (its frame) is received already. Every change
/// that was made again stands on the figure's list afterwards, failed ones too, except for those
/// whose sheet is gone and for the texts of the title block at the end, which are the figure's own
/// from now on. `saved` notes which is which. The figure counts as loaded and as unchanged.
std::vector<DeltaReport> ApplySavedFigure(figrep::SmartPtr<figrep::Figure> const& figure,
                                          SavedFigure& saved, DeltaTypes const& types,
                                          KnownNames const& names);

/// The changes of a saved figure in words, without a design.
std::vector<std::string> DescribeSavedFigure(SavedFigure const& saved, KnownNames const& names);

}  // namespace fighost
