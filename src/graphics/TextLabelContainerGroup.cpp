#include <figrep/TextLabelContainerGroup.h>

#include <du/Upward.h>
#include <figrep/SettingList.h>
#include <figrep/TextLabelContainer.h>

namespace figrep {

TextLabelContainerGroup::TextLabelContainerGroup(TextLabelContainer* container)
    : GraphicGroup(nullptr),
      container_(container),
      settings_(dynamic_cast<SettingList const*>(container)) {}

TextLabelContainerGroup::~TextLabelContainerGroup() = default;

SmartPtr<TextLabelContainer> TextLabelContainerGroup::GetTextLabelContainer() const {
    return du::Upward(container_);
}

ConstSmartPtr<figk::Setting> TextLabelContainerGroup::GetGroupSetting(Setting::RepKey key,
                                                                      unsigned& depth, bool) const {
    if (!container_) return nullptr;
    auto const* list = settings_ ? settings_ : dynamic_cast<SettingList const*>(container_);
    if (!list) return nullptr;
    return list->GetSetting(key, depth, true);
}

void TextLabelContainerGroup::MoveText(double dx, double dy) {
    MoveGraphics(dx, dy);
}

void TextLabelContainerGroup::RotateText(DPoint2D const& centre, double radians) {
    RotateGraphics(centre, radians);
}

void TextLabelContainerGroup::ScaleText(DPoint2D const& centre, double factor) {
    ScaleGraphics(centre, factor);
}

void TextLabelContainerGroup::MirrorText(DPoint2D const& point, bool axis) {
    MirrorGraphics(point, axis);
}

}  // namespace figrep
