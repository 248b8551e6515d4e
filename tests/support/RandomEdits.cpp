#include <support/RandomEdits.h>

#include <figk/SettingValue.h>
#include <figk/Sheet.h>
#include <figk/SubNet.h>
#include <figrep/BlockInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemDeleteDelta.h>
#include <figrep/FigureItemSettingDelta.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/FigureSubNetDelta.h>
#include <figrep/MirrorAction.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <figrep/SubNet.h>

namespace figrep::test {

namespace {

SmartPtr<Setting> Visibility(bool visible) {
    ConstSmartPtr<figk::BaseSettingValue> const value = new figk::SettingValue<bool>(visible);
    return new Setting(Setting::ITEM_VISIBILITY, value, figk::Setting::LEVEL_FIGURE, true);
}

}  // namespace

RandomEdits::RandomEdits(SmartPtr<Figure> const& figure, std::uint64_t seed)
    : figure_(figure), random_(seed) {}
RandomEdits::~RandomEdits() = default;

void RandomEdits::Edit() {
    auto const items = Targets();
    if (items.empty()) return;
    auto const item = items[random_.Below(items.size())];
    SmartPtr<figk::AbstractDelta> delta;
    switch (random_.Below(6)) {
        case 0:
            delta = new FigureSettingDelta(Visibility(random_.OneIn(2)), {item});
            break;
        case 1:
            delta = new FigureItemSettingDelta(Visibility(random_.OneIn(2)), item);
            break;
        case 2:
            delta = new FigureItemDeleteDelta(item);
            break;
        case 3:
            delta = CopyOfSomeNet();
            break;
        default:
            delta = Move(item);
    }
    if (delta) figure_->AddAndApplyDelta(delta, false, false);
}

// A saved change means the first of several items with one id, so only that one is a target.
std::vector<SmartPtr<AbstractFigureItem>> RandomEdits::Targets() const {
    std::vector<SmartPtr<AbstractFigureItem>> items;
    auto const add = [&](SmartPtr<AbstractFigureItem> const& item) {
        if (figure_->Find(item->GetId()) == item) items.push_back(item);
    };
    for (auto const& block : figure_->GetBlockInstances())
        add(block);
    for (auto const& subNet : figure_->GetSubNets())
        add(subNet);
    return items;
}

SmartPtr<figk::AbstractDelta> RandomEdits::CopyOfSomeNet() {
    for (auto const& record : figure_->GetSheets().at(0)->GetSubNets()) {
        if (figure_->Find(record->GetId()) || random_.OneIn(3)) continue;
        return new FigureSubNetDelta(record, figk::AbstractDelta::ACTION_COPY);
    }
    return {};
}

double RandomEdits::Length() {
    return random_.Unit() * 40 - 20;
}

SmartPtr<figk::AbstractDelta> RandomEdits::Move(SmartPtr<AbstractFigureItem> const& item) {
    FigureMoveDelta::Transforms transforms;
    DPoint2D const about(Length(), Length());
    if (random_.OneIn(3)) transforms.push_back(new RotateAction(about, Length()));
    if (random_.OneIn(3)) transforms.push_back(new MirrorAction(about, random_.OneIn(2)));
    if (random_.OneIn(3)) transforms.push_back(new ScaleAction(about, random_.Unit() + 0.5));
    return new FigureMoveDelta({item}, transforms, DPoint2D(Length(), Length()), false);
}

}  // namespace figrep::test
