#include <session/look/FlowArrows.h>

#include <attrs/FillAttr.h>
#include <figk/ArrowStyle.h>
#include <figk/SettingValue.h>
#include <figrep/Figure.h>
#include <figrep/NetSegment.h>
#include <figrep/Setting.h>
#include <figrep/SubNet.h>
#include <session/items/ForEachItem.h>
#include <zv2d/Attributes.h>
#include <zv2d/Definition.h>
#include <zv2d/LineAttributes.h>
#include <zv2d/TexPolyline.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace fighost {

namespace {

using figrep::ConstSmartPtr;
using figrep::SmartPtr;

// Millimetres; wires stand on a grid of 1.27, so that a head fits on the shortest. Labels begin
// 0.34 above their wires, and a head doesn't reach up to them.
constexpr double LENGTH = 1.2;
constexpr double HALF_WIDTH = 0.33;

/// Filled with the colour of the wire, without an outline.
ConstSmartPtr<zv2d::Attributes> ArrowAttributes() {
    using Line = zv2d::LineAttributes;
    using Fill = attrs::FillAttr;
    ConstSmartPtr<Line> const none(new Line(Line::JOIN_MITRE, Line::CAP_BUTT, nullptr, 0,
                                            Line::KIND_DRAWING, 0, Line::KIND_DRAWING, dg::Color(),
                                            dg::Color()));
    ConstSmartPtr<Fill> const fill(new Fill(Fill::OUTLINE, dg::Color()));
    return zv2d::Attributes::Get(zv2d::Attributes(none, fill));
}

figk::ArrowStyle MakeStyle() {
    ConstSmartPtr<zv2d::Attributes> const attributes = ArrowAttributes();
    SmartPtr<zv2d::Definition> const shape(new zv2d::Definition());
    std::vector<dg::DPoint2D> const corners = {
        {0, 0}, {-LENGTH, HALF_WIDTH}, {-LENGTH, -HALF_WIDTH}};
    shape->Add(new zv2d::TexPolyline(corners, attributes, true));
    return {figk::ArrowStyle::PATTERN_END, 0, shape, attributes, false};
}

template <class Value>
ConstSmartPtr<figrep::Setting> MakeSetting(figrep::Setting::RepKey key, Value const& value) {
    SmartPtr<figk::BaseSettingValue> const held(new figk::SettingValue<Value>(value));
    return new figrep::Setting(key, held, figk::Setting::LEVEL_PROFILE, true);
}

/// Segments without length carry pins that meet in one point and pins in the middle of wires. They
/// have no direction. The tree may be turned later, so which way it runs doesn't count.
bool CarriesEnd(figrep::NetSegment const& segment) {
    if (segment.GetLength() > 0.0) return false;
    SmartPtr<figrep::ConnectionNode> const beside[] = {
        segment.GetPredecessor(), segment.GetLeftSuccessor(), segment.GetRightSuccessor()};
    return std::any_of(std::begin(beside), std::end(beside), [](auto const& node) {
        return node && !node->IsJunction() && !du::DynamicCast<figrep::Segment>(node);
    });
}

/// Transparent segments show nothing, so no arrow either.
void ClearCarriers(SmartPtr<figrep::Figure> const& figure) {
    std::vector<SmartPtr<figrep::NetSegment>> carriers;
    ForEachItem(figure, [&](SmartPtr<figrep::AbstractFigureItem> const& item) {
        auto const segment = du::DynamicCast<figrep::NetSegment>(item);
        if (segment && CarriesEnd(*segment)) carriers.push_back(segment);
    });
    ConstSmartPtr<figrep::Setting> const clear = MakeSetting(figrep::Setting::TRANSPARENCY, 1.0F);
    for (auto const& carrier : carriers)
        carrier->AddSetting(clear, false);
}

}  // namespace

void ShowFlow(SmartPtr<figrep::Figure> const& figure) {
    if (!figure) return;
    zvk::WriteGuard const guard(figure->GetLock());
    bool const hadChanged = figure->HasChanged();
    ConstSmartPtr<figrep::Setting> const setting =
        MakeSetting(figrep::Setting::ARROW_STYLE, MakeStyle());
    for (SmartPtr<figrep::SubNet> const& subNet : figure->GetSubNets()) {
        SmartPtr<figrep::NetSegment> const start = subNet->GetStartSegment();
        if (!start) continue;
        // Going onto highways turns trees, and where wires branch at the end of the start segment
        // it doesn't tell by itself how to turn them back.
        subNet->SetStartNode(start);
        subNet->AddSetting(setting, false);
    }
    ClearCarriers(figure);
    if (!hadChanged) figure->ResetHasChanged();
}

}  // namespace fighost
