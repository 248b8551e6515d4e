#include <session/frame/TitleBlockTexts.h>

#include <attrs/TextAttr.h>
#include <du/Utf8.h>
#include <figk/SettingValue.h>
#include <figrep/GenericGraphic.h>
#include <figrep/Setting.h>
#include <figrep/TextGraphic.h>
#include <figrep/TitleBlockTextSection.h>
#include <zv2d/Attributes.h>
#include <zv2d/Definition.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

SmartPtr<zv2d::Instance> InstanceOf(std::vector<du::ConstSmartPtr<zv2d::Entity>> const& entities) {
    SmartPtr<zv2d::Definition> const definition(new zv2d::Definition());
    for (auto const& entity : entities)
        definition->Add(entity);
    return new zv2d::Instance(definition);
}

figrep::ConstSmartPtr<figrep::Setting> ColorSetting(dg::Color const& color) {
    SmartPtr<figk::BaseSettingValue> const value(new figk::SettingValue<dg::Color>(color));
    return new figrep::Setting(figrep::Setting::COLOR, value, figk::Setting::LEVEL_BASE, true);
}

}  // namespace

std::wstring TitleBlockText(figrep::TitleBlockTextSection& section) {
    std::vector<figrep::TitleBlockTextSection::TextSegment> segments;
    section.GetText(segments);
    std::string text;
    for (auto const& segment : segments)
        text += segment.text;
    return du::Utf8ToWideStr(text);
}

SmartPtr<figrep::GenericGraphic> AddTitleBlockShapes(
    SmartPtr<figrep::TitleBlock> const& block,
    std::vector<du::ConstSmartPtr<zv2d::Entity>> const& entities, dg::Color const& color) {
    SmartPtr<figrep::GenericGraphic> const graphic =
        figrep::GenericGraphic::Create(block->GetLock(), InstanceOf(entities), block);
    graphic->AddSetting(ColorSetting(color), false);
    return graphic;
}

du::ConstSmartPtr<zv2d::Entity> MakeTitleBlockText(figrep::TitleBlockTextSection const& section,
                                                   std::wstring const& text, double height,
                                                   zv2d::Text::Alignment alignment,
                                                   std::string const& font) {
    attrs::TextAttr const look(du::Symbol(font), static_cast<float>(height), section.GetBold(),
                               section.GetItalic());
    return SmartPtr<zv2d::Text>(new zv2d::Text({}, text, true, alignment, true,
                                               zv2d::Attributes::Get(zv2d::Attributes(look))));
}

void AddTitleBlockText(SmartPtr<figrep::TitleBlock> const& block,
                       figrep::TitleBlockTextSection const& section,
                       du::ConstSmartPtr<zv2d::Entity> const& text, dg::DMat33 const& matrix) {
    SmartPtr<zv2d::Instance> const instance = InstanceOf({text});
    instance->SetMatrix(matrix);
    SmartPtr<figrep::TextGraphic> const graphic =
        figrep::TextGraphic::Create(block->GetLock(), instance, block);
    graphic->AddSetting(ColorSetting(section.GetFontColor()), false);
}

}  // namespace fighost
