#include <figrep/FigureItemSettingDelta.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/FigureLink.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <figrep/SubNet.h>
#include <zvk/Depiction.h>
#include <zvk/SerializedContentElement.h>

#include "deltas/BoolSetting.h"
#include "deltas/VisibilityTargets.h"

namespace figrep {

FigureItemSettingDelta::FigureItemSettingDelta(SmartPtr<Setting> const& setting,
                                               SmartPtr<AbstractFigureItem> const& item)
    : AbstractFigureDelta(ACTION_CHANGE, false), setting_(setting), item_(item) {}

FigureItemSettingDelta::FigureItemSettingDelta(Symbol const& id, Symbol const& settingKey,
                                               bool value)
    : AbstractFigureDelta(ACTION_CHANGE, false),
      setting_(MakeBoolSetting(settingKey, value, figk::Setting::LEVEL_FIGURE)),
      id_(id) {}

FigureItemSettingDelta::~FigureItemSettingDelta() = default;

Symbol& FigureItemSettingDelta::GetClassTypeValue() {
    static Symbol value("setting_delta");
    return value;
}

void FigureItemSettingDelta::CreateDeltas(Items const& items,
                                          std::vector<SmartPtr<figk::AbstractDelta>>& deltas,
                                          SmartPtr<Setting> const& setting) {
    deltas.clear();
    if (!setting) return;
    for (auto const& item : FindVisibilityTargets(items, BoolValue(setting.Get()))) {
        deltas.push_back(new FigureItemSettingDelta(setting, item));
    }
}

bool FigureItemSettingDelta::IsSettingOfType(Setting::RepKey key) const {
    return setting_ && setting_->GetRepKey() == key;
}

SmartPtr<Figure> FigureItemSettingDelta::GetFigure() const {
    return figure_ ? figure_->GetFigure() : SmartPtr<Figure>();
}

bool FigureItemSettingDelta::_Verify(figk::AbstractDeltaReceiver& receiver) {
    SmartPtr<Figure> const figure = dynamic_cast<Figure*>(&receiver);
    figure_ = figure ? figure->GetLink() : SmartPtr<FigureLink>();
    if (!item_ && figure) item_ = figure->Find(id_);
    return static_cast<bool>(item_);
}

void FigureItemSettingDelta::_Apply(figk::AbstractDeltaReceiver&) {
    auto const figure = GetFigure();
    if (!figure) return;
    CapturePreviousSetting();
    figure->AddItemSetting(item_, setting_, true);
    if (!zvk::depiction::IsRunningDepict()) FixHighwaysForHiddenPortNodes();
}

// Applied again, the delta finds the setting that it has put there itself; what stood there before
// is what it remembers already.
void FigureItemSettingDelta::CapturePreviousSetting() {
    unsigned depth = 0;
    auto const found = item_->SettingList::GetSetting(Setting::ITEM_VISIBILITY, depth);
    if (found && found == setting_) return;
    previousSetting_ = depth == 0 ? found : ConstSmartPtr<figk::Setting>();
}

// Showing the node again doesn't bring the nets back onto the highway.
void FigureItemSettingDelta::FixHighwaysForHiddenPortNodes() {
    auto const node = du::DynamicCast<PortNode>(item_);
    if (!node || !IsSettingOfType(Setting::ITEM_VISIBILITY)) return;
    auto const port = node->GetPort();
    if (!port || !port->OnHighwayNotNet() || BoolValue(setting_.Get())) return;
    auto const representation = SchematicRepresentation::GetSingleton();
    for (auto const& subNet : node->GetHighwaySubNets())
        representation->HideSubNet(node, subNet);
}

void FigureItemSettingDelta::Undo() {
    RemoveSetting();
    auto const figure = GetFigure();
    if (!figure || !previousSetting_) return;
    if (BoolValue(previousSetting_.Get()) == BoolValue(setting_.Get())) return;
    figure->AddItemSetting(item_, du::DynamicCast<Setting>(previousSetting_), true);
}

void FigureItemSettingDelta::Redo() {
    if (auto const figure = GetFigure()) figure->AddItemSetting(item_, setting_, true);
}

void FigureItemSettingDelta::RemoveSetting() {
    auto const figure = GetFigure();
    if (!figure) return;
    figure->RemoveItemSetting(item_, Setting::ITEM_VISIBILITY, figk::Setting::LEVEL_FIGURE, true);
}

void FigureItemSettingDelta::_Serialize(zvk::SerializedContentElement* element) {
    if (!GetFigure() || !item_ || !setting_) return;
    SerializeBase(element);
    element->AddProperty(s_delta_type, GetClassTypeValue());
    element->AddProperty(s_delta_id, item_->GetId());
    element->AddProperty(s_setting_type, setting_->RepKeyToSymbol());
    element->AddProperty(s_setting_value, BoolValue(setting_.Get()));
}

}  // namespace figrep
