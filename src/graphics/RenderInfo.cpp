#include <figrep/RenderInfo.h>

#include <attrs/FillAttr.h>
#include <figk/Zv2dGraphics.h>
#include <zv2d/LineAttributes.h>
#include <zv2d/Texture.h>
#include <zvk/ReadWriteLock.h>

namespace figrep {

zv2d::TextureList RenderInfo::s_texture_list;

RenderInfo::RenderInfo(SmartPtr<zvk::ReadWriteLock> const& lock) : lock_(lock) {}

RenderInfo::RenderInfo(RenderInfo const& other) : du::RefCounted(other), lock_(other.lock_) {
    zvk::ReadGuard guard(other.lock_);
    CopyFields(other);
}

RenderInfo& RenderInfo::operator=(RenderInfo const& other) {
    if (this == &other) return *this;
    zvk::ReadGuard reading(other.lock_);
    zvk::WriteGuard writing(lock_);
    CopyFields(other);
    return *this;
}

RenderInfo::~RenderInfo() = default;

void RenderInfo::CopyFields(RenderInfo const& other) {
    graphics_ = other.graphics_;
    displayColor_ = other.displayColor_;
    color_ = other.color_;
    backgroundColor_ = other.backgroundColor_;
    displayColorDirty_ = other.displayColorDirty_;
    visible_ = other.visible_;
    highlight_ = other.highlight_;
    dim_ = other.dim_;
    fillBackground_ = other.fillBackground_;
    lineAttributes_ = other.lineAttributes_;
    fillAttributes_ = other.fillAttributes_;
    texture_ = other.texture_;
}

SmartPtr<RenderInfo> RenderInfo::Clone() const {
    zvk::ReadGuard guard(lock_);
    SmartPtr<RenderInfo> clone(new RenderInfo(*this));
    if (graphics_) clone->graphics_ = new figk::Zv2dGraphics(*graphics_);
    return clone;
}

SmartPtr<figk::Zv2dGraphics> RenderInfo::GetZv2dGraphics() const {
    zvk::ReadGuard guard(lock_);
    return graphics_;
}

Color RenderInfo::GetColor() const {
    zvk::ReadGuard guard(lock_);
    return color_;
}

Color RenderInfo::GetBackgroundColor() const {
    zvk::ReadGuard guard(lock_);
    return backgroundColor_;
}

Color RenderInfo::GetDisplayColor(Color const& background) const {
    zvk::WriteGuard guard(lock_);
    if (displayColorDirty_) {
        displayColor_ = dim_ ? GetLowlightColor(color_, background) : color_;
        displayColorDirty_ = false;
    }
    return displayColor_;
}

Color RenderInfo::GetLowlightColor(Color const& color, Color const& background) {
    auto const pull = [](float from, float to) { return (to * 3.0F + from) * 0.25F; };
    return Color(pull(color.r, background.r), pull(color.g, background.g),
                 pull(color.b, background.b), 1.0F);
}

ConstSmartPtr<zv2d::LineAttributes> RenderInfo::GetLineAttributes() const {
    zvk::ReadGuard guard(lock_);
    return lineAttributes_;
}

ConstSmartPtr<attrs::FillAttr> RenderInfo::GetFillAttributes() const {
    zvk::ReadGuard guard(lock_);
    return fillAttributes_;
}

ConstSmartPtr<zv2d::Texture> RenderInfo::GetTexture() const {
    zvk::ReadGuard guard(lock_);
    return texture_;
}

bool RenderInfo::GetFillBackground() const {
    zvk::ReadGuard guard(lock_);
    return fillBackground_;
}

bool RenderInfo::GetHighlight() const {
    zvk::ReadGuard guard(lock_);
    return highlight_;
}

bool RenderInfo::GetDim() const {
    zvk::ReadGuard guard(lock_);
    return dim_;
}

bool RenderInfo::IsVisible() const {
    zvk::ReadGuard guard(lock_);
    return visible_;
}

void RenderInfo::SetZv2dGraphics(SmartPtr<figk::Zv2dGraphics> const& graphics) {
    zvk::WriteGuard guard(lock_);
    graphics_ = graphics;
}

void RenderInfo::SetColor(Color const& color) {
    zvk::WriteGuard guard(lock_);
    if (color_ == color) return;
    color_ = color;
    displayColorDirty_ = true;
}

void RenderInfo::SetBackgroundColor(Color const& color) {
    zvk::WriteGuard guard(lock_);
    backgroundColor_ = color;
}

void RenderInfo::SetLineAttributes(ConstSmartPtr<zv2d::LineAttributes> const& attributes) {
    zvk::WriteGuard guard(lock_);
    lineAttributes_ = attributes;
}

void RenderInfo::SetFillAttributes(ConstSmartPtr<attrs::FillAttr> const& attributes) {
    zvk::WriteGuard guard(lock_);
    fillAttributes_ = attributes;
}

void RenderInfo::SetTexture(ConstSmartPtr<zv2d::Texture> const& texture) {
    zvk::WriteGuard guard(lock_);
    texture_ = texture ? s_texture_list.FindTexture(texture, true) : texture;
}

void RenderInfo::SetFillBackground(bool fill) {
    zvk::WriteGuard guard(lock_);
    fillBackground_ = fill;
}

void RenderInfo::SetHighlight(bool on) {
    zvk::WriteGuard guard(lock_);
    if (highlight_ == on) return;
    highlight_ = on;
    displayColorDirty_ = true;
}

void RenderInfo::SetDim(bool on) {
    zvk::WriteGuard guard(lock_);
    if (dim_ == on) return;
    dim_ = on;
    displayColorDirty_ = true;
}

void RenderInfo::SetVisibility(bool visible) {
    zvk::WriteGuard guard(lock_);
    visible_ = visible;
}

}  // namespace figrep
