#include "NetRecords.h"

#include "PortRecords.h"
#include "TreeTeardown.h"

namespace figkernel {

NetSegmentRecord::NetSegmentRecord(SubNetRecord* owner, dg::DPoint2D const& from,
                                   dg::DPoint2D const& to)
    : Record(nullptr, nullptr), subNet(owner), start(from), end(to) {}

figk::SmartPtr<figk::SubNet> NetSegmentRecord::GetSubNet() const {
    return du::Upward<figk::SubNet>(subNet);
}

figk::SmartPtr<figk::Design> NetSegmentRecord::GetDesign() const {
    return subNet ? subNet->GetDesign() : nullptr;
}

SubNetRecord::~SubNetRecord() {
    TearDown(head, [](figk::ConnectionNode& node) {
        if (auto* segment = dynamic_cast<NetSegmentRecord*>(&node)) segment->Forget();
        if (auto* port = dynamic_cast<PortNodeRecord*>(&node)) port->Forget();
    });
}

figk::SmartPtr<figk::Net> SubNetRecord::GetNet() const {
    return du::Upward<figk::Net>(net);
}

std::string const& SubNetRecord::GetName() const {
    return net ? net->GetName() : EmptyName();
}

NetRecord::~NetRecord() {
    for (auto const& subNet : subNets)
        subNet->Forget();
    for (auto const& port : ports)
        port->Forget();
}

std::vector<figk::SmartPtr<figk::Port>> NetRecord::GetPorts() const {
    return {ports.begin(), ports.end()};
}

void NetRecord::Add(du::SmartPtr<PortRecord> const& port) {
    ports.push_back(port);
}

}  // namespace figkernel
