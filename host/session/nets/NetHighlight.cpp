#include <session/nets/NetHighlight.h>

#include <unordered_set>
#include <vector>

#include <figk/ConnectorInstance.h>
#include <figk/Design.h>
#include <figk/Net.h>
#include <figk/SchematicKernel.h>
#include <figk/SettingValue.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/HighwaySegment.h>
#include <figrep/PortNode.h>
#include <figrep/Setting.h>
#include <figrep/SubNet.h>
#include <zvk/ReadWriteLock.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

using Pins = std::unordered_set<figk::ConnectorInstance const*>;

SmartPtr<figk::Net> FindNet(Session const& session, std::string const& name) {
    for (auto const& net : session.GetDesign()->GetNets()) {
        if (net->GetName() == name) return net;
    }
    return nullptr;
}

Pins PinsOf(figk::Net const& net) {
    Pins pins;
    for (auto const& pin : net.GetConnectorInstances())
        pins.insert(pin.Get());
    return pins;
}

// Finds all that shows a net in a figure.
class NetItems : public figrep::AbstractFigureVisitor {
public:
    NetItems(std::string const& net, Pins const& pins) : net_(net), pins_(pins) {}

    bool Visit(SmartPtr<figrep::SubNet> const& subNet) override {
        if (IsOurs(subNet)) items_.push_back(subNet);
        return true;
    }
    bool Visit(SmartPtr<figrep::PortNode> const& node) override {
        if (IsOurs(node->GetSubNet()) || IsAmong(node->GetHighwaySubNets())) items_.push_back(node);
        return true;
    }
    bool Visit(SmartPtr<figrep::HighwaySegment> const& segment) override {
        if (IsAmong(segment->GetSubNets())) items_.push_back(segment);
        return true;
    }
    bool Visit(SmartPtr<figrep::ConnectorInstance> const& connector) override {
        if (pins_.count(connector->GetKernelConnectorInstance().Get())) items_.push_back(connector);
        return true;
    }

    std::vector<SmartPtr<figrep::AbstractFigureItem>> const& GetItems() const { return items_; }

private:
    bool IsOurs(SmartPtr<figrep::SubNet> const& subNet) const {
        return subNet && subNet->GetName() == net_;
    }
    bool IsAmong(std::vector<SmartPtr<figrep::SubNet>> const& subNets) const {
        for (auto const& subNet : subNets) {
            if (IsOurs(subNet)) return true;
        }
        return false;
    }

    std::string const& net_;
    Pins const& pins_;
    std::vector<SmartPtr<figrep::AbstractFigureItem>> items_;
};

figrep::ConstSmartPtr<figrep::Setting> HighlightSetting(dg::Color const& color) {
    SmartPtr<figk::BaseSettingValue> const value(new figk::SettingValue<dg::Color>(color));
    return new figrep::Setting(figrep::Setting::SELECTION_HIGHLIGHT_COLOR, value,
                               figk::Setting::LEVEL_PROFILE, true);
}

}  // namespace

bool HighlightNet(Session const& session, std::string const& name, dg::Color const& color) {
    zvk::WriteGuard const guard(figk::SchematicKernel::GetKernelLock());
    SmartPtr<figk::Net> const net = FindNet(session, name);
    if (!net) return false;
    Pins const pins = PinsOf(*net);
    auto const setting = HighlightSetting(color);
    for (SessionSheet const& sheet : session.GetSheets()) {
        NetItems items(name, pins);
        sheet.figure->Accept(items);
        for (auto const& item : items.GetItems()) {
            item->AddSetting(setting, false);
            sheet.figure->SetItemHighlight(item, true);
        }
        sheet.figure->UpdateContent();
    }
    return true;
}

std::vector<std::string> NetNames(Session const& session) {
    zvk::ReadGuard const guard(figk::SchematicKernel::GetKernelLock());
    std::vector<std::string> names;
    for (auto const& net : session.GetDesign()->GetNets())
        names.push_back(net->GetName());
    return names;
}

}  // namespace fighost
