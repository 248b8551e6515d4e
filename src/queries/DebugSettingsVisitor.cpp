#include <figrep/DebugSettingsVisitor.h>

#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/GraphicGroup.h>
#include <figrep/HighwaySegment.h>
#include <figrep/Miscellaneous.h>
#include <figrep/NetSegment.h>
#include <figrep/SettingListVisitor.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainerGroup.h>

#include <iostream>

namespace figrep {

namespace {

class SettingWriter : public SettingListVisitor {
public:
    explicit SettingWriter(std::ostream& out) : out_(out) {}

    bool Visit(ConstSmartPtr<figk::Setting> const& setting) override {
        out_ << "  " << setting->ToString() << "\n";
        return true;
    }
    bool Visit(Setting::RepKey const&, ConstSmartPtr<figk::Setting> const& setting) override {
        return Visit(setting);
    }

private:
    std::ostream& out_;
};

/// What a graphic belongs to: an item by its graphics or by its labels, or a figure.
std::string OwnerTypeOf(BaseGraphic const& graphic) {
    auto const group = graphic.GetHeadGroup();
    if (auto const item = du::DynamicCast<AbstractFigureItem>(group)) return item->GetTypeName();
    auto const labels = du::DynamicCast<TextLabelContainerGroup>(group);
    auto const container =
        labels ? labels->GetTextLabelContainer() : SmartPtr<TextLabelContainer>();
    if (auto const item = du::DynamicCast<AbstractFigureItem>(container)) {
        return item->GetTypeName();
    }
    return du::DynamicCast<Figure>(container) ? "Figure" : "an unknown item";
}

std::string TailOf(BaseGraphic const& graphic) {
    std::string const& name = graphic.GetName();
    return " on " + OwnerTypeOf(graphic) + (name.empty() ? "" : " named " + name);
}

/// The name of what a wire belongs to, or its id where it has none.
std::string TextOf(SmartPtr<AbstractFigureItem> const& owner) {
    if (!owner) return {};
    return owner->GetName().empty() ? owner->GetId().GetString() : owner->GetName();
}

}  // namespace

DebugSettingsVisitor::DebugSettingsVisitor() : DebugSettingsVisitor(std::cout) {}
DebugSettingsVisitor::DebugSettingsVisitor(std::ostream& out) : out_(out) {}
DebugSettingsVisitor::~DebugSettingsVisitor() = default;

bool DebugSettingsVisitor::DisplaySettings(std::string const& title,
                                           SmartPtr<SettingList> const& settings) {
    if (!settings || settings->Empty()) return true;
    out_ << title << "\n";
    SettingWriter writer(out_);
    settings->Visit(writer, true, figk::Setting::LEVEL_DEFAULT);
    out_ << "\n";
    return true;
}

bool DebugSettingsVisitor::Visit(SmartPtr<Figure> const& item) {
    return DisplaySettings("Figure", item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<BlockInstance> const& item) {
    return DisplaySettings("BlockInstance", item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<CableInstance> const& item) {
    return DisplaySettings("CableInstance", item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<ConnectorInstance> const& item) {
    return DisplaySettings("ConnectorInstance", item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<Format> const& item) {
    return DisplaySettings("Format", item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<Miscellaneous> const& item) {
    return DisplaySettings("Miscellaneous", item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<TableInstance> const& item) {
    return DisplaySettings("TableInstance", item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<GenericGraphic> const& item) {
    return !item || DisplaySettings("++GenericGraphic" + TailOf(*item), item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<TextGraphic> const& item) {
    return !item ||
           DisplaySettings("++TextGraphic ('" + item->GetText().GetString() + "')" + TailOf(*item),
                           item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<SubHighway> const& item) {
    return DisplaySettings("SubHighway", item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<SubNet> const& item) {
    auto const cable = item ? item->GetCable() : SmartPtr<CableInstance>();
    return DisplaySettings(cable ? "SubNet on " + TextOf(cable) : "SubNet", item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<HighwaySegment> const& item) {
    auto const owner = item ? item->GetSubHighway() : SmartPtr<SubHighway>();
    return DisplaySettings("HighwaySegment on " + TextOf(owner), item);
}

bool DebugSettingsVisitor::Visit(SmartPtr<NetSegment> const& item) {
    auto const owner = item ? item->GetSubNet() : SmartPtr<SubNet>();
    return DisplaySettings(owner ? "NetSegment on " + TextOf(owner) : "NetSegment ", item);
}

}  // namespace figrep
