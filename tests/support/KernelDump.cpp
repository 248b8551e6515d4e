#include <sstream>

#include <figk/AbstractVisitor.h>
#include <figk/BlockInstance.h>
#include <figk/CableInstance.h>
#include <figk/ConnectorInstance.h>
#include <figk/ConnectorInstanceNode.h>
#include <figk/Format.h>
#include <figk/GenericGraphic.h>
#include <figk/Group.h>
#include <figk/Highway.h>
#include <figk/HighwayNode.h>
#include <figk/HighwaySegment.h>
#include <figk/Miscellaneous.h>
#include <figk/NetSegment.h>
#include <figk/Port.h>
#include <figk/PortNode.h>
#include <figk/SubHighway.h>
#include <figk/SubNet.h>
#include <figk/TableInstance.h>
#include <figk/TextGraphic.h>
#include <figk/TitleBlock.h>
#include <support/KernelDump.h>

namespace figrep::test {

namespace {

std::string EndsText(figk::Segment const& segment) {
    dg::DPoint2D a;
    dg::DPoint2D b;
    segment.GetEnds(a, b);
    std::ostringstream text;
    text << "(" << a.x << "," << a.y;
    if (!(a == b)) text << " " << b.x << "," << b.y;
    text << ")";
    return text.str();
}

std::string PinText(figk::ConnectorInstance const& pin) {
    auto const block = pin.GetBlockInstance();
    return "pin " + (block ? block->GetName() : std::string()) + ":" + pin.GetName();
}

std::string NodeText(figk::SmartPtr<figk::BaseConnectionNode> const& node) {
    if (auto const wire = du::DynamicCast<figk::NetSegment>(node)) return "wire" + EndsText(*wire);
    if (auto const bus = du::DynamicCast<figk::HighwaySegment>(node)) return "bus" + EndsText(*bus);
    if (auto const port = du::DynamicCast<figk::PortNode>(node)) {
        return "port " + port->GetPort()->GetName();
    }
    if (auto const pin = du::DynamicCast<figk::ConnectorInstanceNode>(node)) {
        return PinText(*pin->GetConnectorInstance());
    }
    if (auto const point = du::DynamicCast<figk::HighwayNode>(node)) {
        return "onto " + point->GetSubHighway()->GetName();
    }
    return node->ToString();
}

std::string Dump(figk::SmartPtr<figk::BaseConnectionNode> const& node) {
    std::string text = NodeText(node);
    std::vector<figk::SmartPtr<figk::BaseConnectionNode>> successors;
    node->GetNonJunctionSuccessors(successors);
    if (successors.empty()) return text;
    text += "[";
    for (std::size_t i = 0; i < successors.size(); ++i) {
        text += (i == 0 ? "" : " ") + Dump(successors[i]);
    }
    return text + "]";
}

void AppendLine(std::string& text, std::string const& line) {
    if (!text.empty()) text += "\n";
    text += line;
}

class VisitDumper : public figk::AbstractVisitor {
public:
    using AbstractVisitor::Visit;
    bool StartGroupVisit(figk::SmartPtr<figk::Group> const&) override { return Add("start"); }
    bool EndGroupVisit(figk::SmartPtr<figk::Group> const&) override { return Add("end"); }
    bool VisitTextLabelContainer(figk::SmartPtr<figk::TextLabelContainer> const&) override {
        return Add("labels");
    }
    bool Visit(figk::SmartPtr<figk::Sheet> const& record) override {
        return Add("sheet " + record->GetName());
    }
    bool Visit(figk::SmartPtr<figk::Format> const&) override { return Add("format"); }
    bool Visit(figk::SmartPtr<figk::TitleBlock> const&) override { return Add("title block"); }
    bool Visit(figk::SmartPtr<figk::TextGraphic> const& record) override {
        return Add("text " + record->GetText().GetString());
    }
    bool Visit(figk::SmartPtr<figk::GenericGraphic> const&) override { return Add("graphic"); }
    bool Visit(figk::SmartPtr<figk::BlockInstance> const& record) override {
        return Add("block " + record->GetName());
    }
    bool Visit(figk::SmartPtr<figk::CableInstance> const& record) override {
        return Add("cable " + record->GetName());
    }
    bool Visit(figk::SmartPtr<figk::TableInstance> const& record) override {
        return Add("table " + record->GetName());
    }
    bool Visit(figk::SmartPtr<figk::Miscellaneous> const& record) override {
        return Add("miscellaneous " + record->GetName());
    }
    bool Visit(figk::SmartPtr<figk::ConnectorInstance> const& record) override {
        return Add(PinText(*record));
    }
    bool Visit(figk::SmartPtr<figk::SubHighway> const& record) override {
        return Add("highway " + record->GetName());
    }
    bool Visit(figk::SmartPtr<figk::SubNet> const& record) override {
        return Add("net " + record->GetName());
    }
    bool Visit(figk::SmartPtr<figk::NetSegment> const& node) override {
        return Add(NodeText(node));
    }
    bool Visit(figk::SmartPtr<figk::HighwaySegment> const& node) override {
        return Add(NodeText(node));
    }
    bool Visit(figk::SmartPtr<figk::PortNode> const& node) override { return Add(NodeText(node)); }
    bool Visit(figk::SmartPtr<figk::HighwayNode> const& node) override {
        return Add(NodeText(node));
    }

    std::string text;

private:
    bool Add(std::string const& line) {
        AppendLine(text, line);
        return true;
    }
};

}  // namespace

std::string DumpTree(figk::SmartPtr<figk::ConnectionNode> const& head) {
    return head ? Dump(head) : "nothing";
}

std::string DumpNet(figk::Sheet const& sheet, std::string const& net) {
    std::string text;
    for (auto const& subNet : sheet.GetSubNets()) {
        if (subNet->GetName() == net) AppendLine(text, DumpTree(subNet->GetHead()));
    }
    return text;
}

std::string DumpHighway(figk::Sheet const& sheet, std::string const& highway) {
    std::string text;
    for (auto const& piece : sheet.GetSubHighways()) {
        if (piece->GetName() == highway) AppendLine(text, DumpTree(piece->GetHead()));
    }
    return text;
}

std::string DumpVisits(figk::Sheet& sheet) {
    VisitDumper dumper;
    sheet.Accept(dumper);
    return dumper.text;
}

}  // namespace figrep::test
