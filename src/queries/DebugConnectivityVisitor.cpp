#include <figrep/DebugConnectivityVisitor.h>

#include <figk/Net.h>
#include <figk/SubNet.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/HighwayNode.h>
#include <figrep/HighwaySegment.h>
#include <figrep/JunctionNode.h>
#include <figrep/NetSegment.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>

#include <iostream>
#include <sstream>

namespace figrep {

DebugConnectivityVisitor::DebugConnectivityVisitor() : DebugConnectivityVisitor(std::cout) {}
DebugConnectivityVisitor::DebugConnectivityVisitor(std::ostream& out) : out_(out) {}
DebugConnectivityVisitor::~DebugConnectivityVisitor() = default;

void DebugConnectivityVisitor::SetSubNet(SmartPtr<SubNet> const& subNet) {
    subNet_ = subNet;
    onlySubNet_ = true;
}

void DebugConnectivityVisitor::UnsetSubNet() {
    subNet_.Reset();
    onlySubNet_ = false;
}

std::string DebugConnectivityVisitor::NameOf(du::RefCounted const& object) {
    std::ostringstream text;
    text << dynamic_cast<void const*>(&object);
    return text.str();
}

bool DebugConnectivityVisitor::Visit(SmartPtr<SubNet> const& item) {
    if (!item || (onlySubNet_ && item != subNet_)) return false;
    out_ << "++ SubNet " << item->GetId().GetString() << " (" << NameOf(*item) << ")";
    auto const record = item->GetKernelSubNet();
    auto const net = record ? record->GetNet() : SmartPtr<figk::Net>();
    if (net) {
        out_ << " of Net " << net->GetName() << "\n";
    } else {
        out_ << " kernel Net not known\n";
    }
    return true;
}

bool DebugConnectivityVisitor::Visit(SmartPtr<SubHighway> const& item) {
    if (!item) return false;
    out_ << "++ SubHighway " << item->GetId().GetString() << " (" << NameOf(*item) << ")\n";
    return true;
}

bool DebugConnectivityVisitor::Report(SmartPtr<ConnectionNode> const& node,
                                      std::string const& more) {
    if (!node) return false;
    out_ << "  " << node->ToString() << more << " (" << NameOf(*node) << ")\n";
    ReportChildren(*node);
    return true;
}

void DebugConnectivityVisitor::ReportChildren(ConnectionNode const& node) {
    ReportChild("Left", node.GetLeftSuccessor());
    ReportChild("Right", node.GetRightSuccessor());
    out_ << "\n";
}

void DebugConnectivityVisitor::ReportChild(char const* side,
                                           SmartPtr<ConnectionNode> const& child) {
    out_ << "    " << side << " : ";
    if (child) {
        out_ << child->ToString() << " (" << NameOf(*child) << ")\n";
    } else {
        out_ << "0\n";
    }
}

bool DebugConnectivityVisitor::Visit(SmartPtr<ConnectorInstanceNode> const& item) {
    return Report(item);
}

bool DebugConnectivityVisitor::Visit(SmartPtr<JunctionNode> const& item) {
    return Report(item);
}

bool DebugConnectivityVisitor::Visit(SmartPtr<PortNode> const& item) {
    return Report(item);
}

bool DebugConnectivityVisitor::Visit(SmartPtr<NetSegment> const& item) {
    return Report(item);
}

bool DebugConnectivityVisitor::Visit(SmartPtr<HighwaySegment> const& item) {
    return Report(item);
}

bool DebugConnectivityVisitor::Visit(SmartPtr<HighwayNode> const& item) {
    auto const segment = item ? item->GetHighwaySegment() : SmartPtr<HighwaySegment>();
    return Report(item, " on highway " + (segment ? segment->GetName() : ""));
}

bool DebugConnectivityVisitor::Visit(SmartPtr<BlockInstance> const&) {
    return false;
}

bool DebugConnectivityVisitor::Visit(SmartPtr<ConnectorInstance> const&) {
    return false;
}

bool DebugConnectivityVisitor::Visit(SmartPtr<Format> const&) {
    return false;
}

bool DebugConnectivityVisitor::Visit(SmartPtr<Miscellaneous> const&) {
    return false;
}

bool DebugConnectivityVisitor::Visit(SmartPtr<TextGraphic> const&) {
    return false;
}

}  // namespace figrep
