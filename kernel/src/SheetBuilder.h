// Makes one sheet.
#pragma once

#include "BuildContext.h"

namespace figkernel {

/// Makes the records of a sheet and enters its pieces of nets, highways and ports in theirs.
du::SmartPtr<SheetRecord> BuildSheet(SheetSource const& source, du::Symbol const& id,
                                     BuildContext& context);

}  // namespace figkernel
