#include "PortRecords.h"

#include "HighwayRecords.h"
#include "NetRecords.h"

namespace figkernel {

SheetPortNode::~SheetPortNode() = default;

PortNodeRecord::PortNodeRecord(du::SmartPtr<SheetLink> const& sheet, PortRecord* owner,
                               PortNodeSource const& source, dg::DPoint2D const& place)
    : Record(nullptr, nullptr), link(sheet), port(owner), inside(source.inside), position(place) {}

figk::SmartPtr<figk::Port> PortNodeRecord::GetPort() const {
    return du::Upward<figk::Port>(port);
}

std::string const& PortNodeRecord::GetName() const {
    return port ? port->GetName() : EmptyName();
}

figk::SmartPtr<figk::Sheet> PortNodeRecord::GetSheetInside() const {
    auto const design = GetDesign();
    if (!design || inside == NO_INDEX) return {};
    auto const sheets = design->GetSheets();
    return inside < sheets.size() ? sheets[inside] : nullptr;
}

bool PortNodeRecord::IsOnSubNet(figk::SmartPtr<figk::SubNet> const& asked) const {
    if (!asked) return false;
    if (subHighway) return subHighway->Carries(asked.Get());
    return asked.Get() == subNet;
}

void PortNodeRecord::Forget() {
    subNet = nullptr;
    subHighway = nullptr;
}

PortRecord::~PortRecord() {
    for (auto const& node : nodes)
        node->ForgetPort();
}

figk::SmartPtr<figk::Net> PortRecord::GetNet() const {
    return du::Upward<figk::Net>(net);
}

figk::SmartPtr<figk::Highway> PortRecord::GetHighway() const {
    return du::Upward<figk::Highway>(highway);
}

}  // namespace figkernel
