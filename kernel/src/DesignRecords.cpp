#include "DesignRecords.h"

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
    auto const at = subNetById.find(id);
    return at == subNetById.end() ? nullptr : figk::SmartPtr<figk::SubNet>(subNets[at->second]);
}

void SheetRecord::AddSubNet(du::SmartPtr<SubNetRecord> const& subNet) {
    subNetById.emplace(subNet->GetId(), subNets.size());
    subNets.push_back(subNet);
}

}  // namespace figkernel
