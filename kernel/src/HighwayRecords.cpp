#include "HighwayRecords.h"

#include "PortRecords.h"
#include "TreeTeardown.h"

namespace figkernel {

HighwaySegmentRecord::HighwaySegmentRecord(SubHighwayRecord* owner, dg::DPoint2D const& from,
                                           dg::DPoint2D const& to)
    : Record(nullptr, nullptr), subHighway(owner), start(from), end(to) {}

figk::SmartPtr<figk::SubHighway> HighwaySegmentRecord::GetSubHighway() const {
    return du::Upward<figk::SubHighway>(subHighway);
}

figk::SmartPtr<figk::Design> HighwaySegmentRecord::GetDesign() const {
    return subHighway ? subHighway->GetDesign() : nullptr;
}

RouteSegmentRecord::RouteSegmentRecord(du::SmartPtr<HighwaySegmentRecord> const& original,
                                       bool isReversed)
    : HighwaySegment(nullptr, nullptr), twin(original), reversed(isReversed) {}

SubHighwayRecord::~SubHighwayRecord() {
    TearDown(head, [](figk::ConnectionNode& node) {
        if (auto* segment = dynamic_cast<HighwaySegmentRecord*>(&node)) segment->Forget();
        if (auto* port = dynamic_cast<PortNodeRecord*>(&node)) port->Forget();
    });
}

figk::SmartPtr<figk::Highway> SubHighwayRecord::GetHighway() const {
    return du::Upward<figk::Highway>(highway);
}

std::string const& SubHighwayRecord::GetName() const {
    return highway ? highway->GetName() : EmptyName();
}

HighwayRecord::~HighwayRecord() {
    for (auto const& piece : subHighways)
        piece->Forget();
    for (auto const& port : ports)
        port->Forget();
}

std::vector<figk::SmartPtr<figk::Port>> HighwayRecord::GetPorts() const {
    return {ports.begin(), ports.end()};
}

void HighwayRecord::Add(du::SmartPtr<PortRecord> const& port) {
    ports.push_back(port);
}

}  // namespace figkernel
