#include "DesignRecords.h"

#include <algorithm>
#include <numeric>

namespace figkernel {

SheetRecord::SheetRecord(du::SmartPtr<DesignLink> const& design)
    : link(new SheetLink(this, design)) {}

SheetRecord::~SheetRecord() {
    link->Clear();
    for (auto const& block : blocks)
        block->DropChildren();
    for (auto const& cable : cables)
        cable->DropChildren();
}

figk::SmartPtr<figk::SubNet> SheetRecord::GetSubNetByID(figk::Symbol const& id) const {
    auto const at = std::lower_bound(
        byId.begin(), byId.end(), id,
        [this](std::uint32_t i, figk::Symbol const& s) { return subNets[i]->GetId() < s; });
    if (at == byId.end() || subNets[*at]->GetId() != id) return nullptr;
    return subNets[*at];
}

void SheetRecord::IndexSubNets() {
    byId.resize(subNets.size());
    std::iota(byId.begin(), byId.end(), 0u);
    std::sort(byId.begin(), byId.end(), [this](std::uint32_t a, std::uint32_t b) {
        return subNets[a]->GetId() < subNets[b]->GetId();
    });
}

}  // namespace figkernel
