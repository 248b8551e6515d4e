#include <readers/kicad/pictures/Looks.h>

#include <figk/Setting.h>
#include <figk/SettingValue.h>
#include <zv2d/LineAttributes.h>
#include <zv2d/LineStyle.h>

namespace fighost::kicad {

namespace {

dg::Color Rgb(int r, int g, int b, double a = 1) {
    return dg::Color{static_cast<float>(r / 255.0), static_cast<float>(g / 255.0),
                     static_cast<float>(b / 255.0), static_cast<float>(a)};
}

du::ConstSmartPtr<zv2d::LineAttributes> MakeLine(double width, Stroke::Type type) {
    using Line = zv2d::LineAttributes;
    using List = zv2d::LineStyleList;
    int style = List::SOLID;
    if (type == Stroke::DASH) style = List::DASH;
    if (type == Stroke::DOT) style = List::DOT;
    if (type == Stroke::DASH_DOT) style = List::DASH_DOT;
    if (type == Stroke::DASH_DOT_DOT) style = List::DASH_DOT_DOT;
    return du::ConstSmartPtr<Line>(new Line(Line::JOIN_ROUND, Line::CAP_ROUND, List::Get(style),
                                            static_cast<float>(width), Line::KIND_DRAWING, 0,
                                            Line::KIND_DRAWING, Rgb(0, 0, 0), Rgb(0, 0, 0)));
}

double WidthOf(Stroke const& stroke, double otherwise) {
    return stroke.width > 0 ? stroke.width : stroke.width < 0 ? 0 : otherwise;
}

du::ConstSmartPtr<attrs::FillAttr> MakeFill(Fill const& fill) {
    using Attr = attrs::FillAttr;
    switch (fill.type) {
        case Fill::NONE:
            return nullptr;
        case Fill::OUTLINE:
            return du::ConstSmartPtr<Attr>(new Attr(Attr::OUTLINE, Rgb(0, 0, 0)));
        case Fill::BACKGROUND:
            return du::ConstSmartPtr<Attr>(new Attr(Attr::BODY, BodyFillColor()));
        case Fill::COLOR:
            if (!fill.color) return nullptr;
            return du::ConstSmartPtr<Attr>(new Attr(Attr::SOLID, *fill.color));
    }
    return nullptr;
}

}  // namespace

dg::Color ColorOf(Role role) {
    switch (role) {
        case Role::WIRE:
            return Rgb(0, 150, 0);
        case Role::BUS:
            return Rgb(0, 0, 132);
        case Role::BODY:
            return Rgb(132, 0, 0);
        case Role::PIN:
            return Rgb(132, 0, 0);
        case Role::PIN_NAME:
            return Rgb(0, 100, 100);
        case Role::PIN_NUMBER:
            return Rgb(169, 0, 0);
        case Role::REFERENCE:
            return Rgb(0, 100, 100);
        case Role::VALUE:
            return Rgb(0, 100, 100);
        case Role::FIELD:
            return Rgb(132, 0, 132);
        case Role::LABEL:
            return Rgb(15, 15, 15);
        case Role::GLOBAL_LABEL:
            return Rgb(132, 0, 0);
        case Role::HIERARCHICAL_LABEL:
            return Rgb(114, 86, 0);
        case Role::FLAG:
            return Rgb(72, 72, 72);
        case Role::NO_CONNECT:
            return Rgb(0, 0, 132);
        case Role::NOTE:
            return Rgb(0, 0, 194);
        case Role::SHEET:
            return Rgb(132, 0, 0);
        case Role::SHEET_NAME:
            return Rgb(0, 100, 100);
        case Role::SHEET_FILE:
            return Rgb(114, 86, 0);
        case Role::SHEET_PIN:
            return Rgb(0, 100, 100);
        case Role::RULE_AREA:
            return Rgb(255, 0, 0);
        case Role::DNP:
            return Rgb(220, 9, 13, 0.7);
        case Role::FRAME:
            return Rgb(132, 0, 0);
        case Role::MISSING:
            return Rgb(230, 0, 80);
        case Role::COUNT:
            break;
    }
    return Rgb(0, 0, 0);
}

dg::Color BodyFillColor() {
    return Rgb(255, 255, 194);
}

figkernel::SourceIndex Looks::Make(Role role, std::optional<dg::Color> const& chosen, double width,
                                   Stroke::Type type) {
    using figk::Setting;
    using LineValue = figk::SettingValue<du::ConstSmartPtr<zv2d::LineAttributes>>;
    dg::Color const color = chosen ? *chosen : ColorOf(role);
    Key const key{role, chosen.has_value(), color.r, color.g, color.b, color.a, width, type};
    auto const found = known.find(key);
    if (found != known.end()) return found->second;
    figkernel::SettingSetSource set(2);
    set[0].key = Setting::KEY_COLOR;
    set[0].level = chosen ? Setting::LEVEL_BASE : Setting::LEVEL_DEFAULT;
    set[0].value = new figk::SettingValue<dg::Color>(color);
    set[1].key = KEY_ROLE;
    set[1].level = Setting::LEVEL_DEFAULT;
    set[1].value = new figk::SettingValue<float>(static_cast<float>(role));
    if (width > 0) {
        set.push_back({Setting::KEY_LINE_ATTRIBUTES, Setting::LEVEL_BASE,
                       new LineValue(MakeLine(width, type))});
    }
    return known.emplace(key, design.AddSettings(std::move(set))).first->second;
}

figkernel::SourceIndex Looks::Colored(Role role, std::optional<dg::Color> const& chosen) {
    return Make(role, chosen, 0, Stroke::DEFAULT);
}

figkernel::SourceIndex Looks::Lined(Role role, Stroke const& stroke) {
    double const width = WidthOf(stroke, role == Role::BUS ? BUS_WIDTH : LINE_WIDTH);
    return Make(role, stroke.color, width, stroke.type);
}

du::ConstSmartPtr<zv2d::Attributes> LineAttributesOf(Stroke const& stroke, double otherwise) {
    return zv2d::Attributes::Get(
        zv2d::Attributes(MakeLine(WidthOf(stroke, otherwise), stroke.type)));
}

du::ConstSmartPtr<zv2d::Attributes> ShapeAttributesOf(Stroke const& stroke, Fill const& fill,
                                                      double otherwise) {
    return zv2d::Attributes::Get(
        zv2d::Attributes(MakeLine(WidthOf(stroke, otherwise), stroke.type), MakeFill(fill)));
}

}  // namespace fighost::kicad
