// Which block stands inside which.
#pragma once

#include <vector>

#include "BuildContext.h"

namespace figkernel {

struct Nesting {
    SourceIndex parent = NO_INDEX;  ///< a block, or a cable
    SourceIndex child = NO_INDEX;   ///< a block
    bool isCable = false;
};

/// The nestings of a sheet that make sense together: every block stands inside one parent at most,
/// and none inside itself over however many steps. The first named wins; what is left out is
/// reported. Cost: linear.
std::vector<Nesting> FindNesting(SheetSource const& sheet, BuildContext& context);

}  // namespace figkernel
