#include "RecordBase.h"

namespace figkernel {

std::string const& EmptyName() {
    static std::string const empty;
    return empty;
}

void CopyAttributes(AttributeVector const& from, figk::AttributeSet& to) {
    to.insert(from.begin(), from.end());
}

du::SmartPtr<figk::Design> SheetLink::GetDesign() const {
    return design->Get();
}

}  // namespace figkernel
