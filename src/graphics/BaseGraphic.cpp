#include <figrep/BaseGraphic.h>

#include <figk/BaseGraphic.h>
#include <figk/Zv2dGraphics.h>
#include <figrep/Figure.h>
#include <figrep/GraphicGroup.h>
#include <figrep/TextLabelContainerGroup.h>
#include <zvk/ReadWriteLock.h>

#include "connectivity/Transforms.h"
#include "graphics/FigureGroups.h"

namespace figrep {

namespace {

/// The item or figure that the group belongs to; null for a free group.
SmartPtr<Figure> FigureOfGroup(SmartPtr<figk::Group> const& head) {
    if (auto const item = du::DynamicCast<AbstractFigureItem>(head)) return item->GetFigure();
    auto const labels = du::DynamicCast<TextLabelContainerGroup>(head);
    if (!labels) return nullptr;
    SmartPtr<TextLabelContainer> const container = labels->GetTextLabelContainer();
    if (auto const item = du::DynamicCast<AbstractFigureItem>(container)) return item->GetFigure();
    return du::DynamicCast<Figure>(container);
}

}  // namespace

BaseGraphic::BaseGraphic(SmartPtr<zvk::ReadWriteLock> const& lock,
                         SmartPtr<figk::AbstractItem> const& kernelItem)
    : AbstractFigureItem(lock, kernelItem) {}

BaseGraphic::BaseGraphic(SmartPtr<zvk::ReadWriteLock> const& lock, std::string const& name)
    : AbstractFigureItem(lock, name) {}

BaseGraphic::~BaseGraphic() = default;

void BaseGraphic::Initialise(SmartPtr<figk::Group> const& group) {
    if (group) group->Insert(this);
}

// The item.

void BaseGraphic::SetHighlight(bool on) {
    zvk::WriteGuard const guard(GetLock());
    SmartPtr<GraphicGroup> const owner = GetOwner();
    if (!owner) return;
    if (du::DynamicCast<TextLabelContainerGroup>(owner)) {
        SetMemberHighlight(on);
    } else {
        owner->SetMemberHighlight(on);
    }
}

void BaseGraphic::SetPreselectHighlight(bool on) {
    zvk::WriteGuard const guard(GetLock());
    SmartPtr<GraphicGroup> const owner = GetOwner();
    if (!owner) return;
    if (du::DynamicCast<TextLabelContainerGroup>(owner)) {
        SetMemberPreselectHighlight(on);
    } else {
        owner->SetMemberPreselectHighlight(on);
    }
}

void BaseGraphic::SetVisibility(bool on) {
    zvk::WriteGuard const guard(GetLock());
    SmartPtr<GraphicGroup> const owner = GetOwner();
    if (!owner) return;
    if (du::DynamicCast<TextLabelContainerGroup>(owner)) {
        SetMemberVisibility(on);
    } else {
        owner->SetMemberVisibility(on);
    }
}

std::string const& BaseGraphic::GetName() const {
    return AbstractFigureItem::GetName();
}

void BaseGraphic::MoveItem(double dx, double dy) {
    zvk::WriteGuard guard(GetLock());
    Move(dx, dy);
}

void BaseGraphic::RotateItem(DPoint2D const& centre, double radians) {
    zvk::WriteGuard guard(GetLock());
    Rotate(centre, radians);
}

void BaseGraphic::ScaleItem(DPoint2D const& centre, double factor) {
    zvk::WriteGuard guard(GetLock());
    Scale(centre, factor);
}

void BaseGraphic::MirrorItem(DPoint2D const& point, bool axis) {
    zvk::WriteGuard guard(GetLock());
    Mirror(point, axis);
}

SmartPtr<Figure> BaseGraphic::GetFigure() const {
    zvk::ReadGuard guard(GetLock());
    if (SmartPtr<Figure> own = AbstractFigureItem::GetFigure()) return own;
    return FigureOfGroup(GetHeadGroup());
}

SmartPtr<figk::Zv2dGraphics> BaseGraphic::GetZv2dGraphics() const {
    {
        zvk::ReadGuard guard(GetLock());
        if (graphics_) return graphics_;
        if (GetKernelItem()) return AbstractFigureItem::GetZv2dGraphics();
    }
    zvk::WriteGuard guard(GetLock());
    if (!graphics_) GenerateZv2dGraphics();
    return graphics_;
}

void BaseGraphic::SetOwnGraphics(SmartPtr<figk::Zv2dGraphics> const& graphics) const {
    graphics_ = graphics;
}

void BaseGraphic::InvalidateExtents() {
    ResetCachedExtents();
    if (SmartPtr<GraphicGroup> const owner = GetOwner()) owner->InvalidateMemberExtents();
}

// Transforms.

void BaseGraphic::CopyKernelZv2dGraphics() {
    auto const kernelGraphic = du::DynamicCast<figk::BaseGraphic>(GetKernelItem());
    if (!kernelGraphic) return;
    if (SmartPtr<figk::Zv2dGraphics> const picture = kernelGraphic->GetZv2dGraphics()) {
        graphics_ = new figk::Zv2dGraphics(*picture);
    }
}

template <typename Transform>
void BaseGraphic::TransformGraphics(Transform const& transform) {
    if (!graphics_) CopyKernelZv2dGraphics();
    if (graphics_) transform(*graphics_);
    InvalidateExtents();
}

void BaseGraphic::Move(double dx, double dy) {
    TransformGraphics([&](figk::Zv2dGraphics& graphics) { graphics.Move(dx, dy); });
}

void BaseGraphic::Rotate(DPoint2D const& centre, double radians) {
    TransformGraphics([&](figk::Zv2dGraphics& graphics) { graphics.Rotate(centre, radians); });
}

void BaseGraphic::Scale(DPoint2D const& centre, double factor) {
    if (!IsUsableFactor(factor)) return;
    TransformGraphics([&](figk::Zv2dGraphics& graphics) { graphics.Scale(centre, factor); });
}

void BaseGraphic::Mirror(DPoint2D const& point, bool axis) {
    TransformGraphics([&](figk::Zv2dGraphics& graphics) { graphics.Mirror(point, axis); });
}

void BaseGraphic::MoveGraphics(double dx, double dy) {
    BaseGraphic::MoveItem(dx, dy);
}

void BaseGraphic::RotateGraphics(DPoint2D const& centre, double radians) {
    BaseGraphic::RotateItem(centre, radians);
}

void BaseGraphic::ScaleGraphics(DPoint2D const& centre, double factor) {
    BaseGraphic::ScaleItem(centre, factor);
}

void BaseGraphic::MirrorGraphics(DPoint2D const& point, bool axis) {
    BaseGraphic::MirrorItem(point, axis);
}

// The member of a group.

DBox2D BaseGraphic::GetMemberExtents() {
    return GetExtents();
}

void BaseGraphic::SetMemberHighlight(bool on) {
    zvk::WriteGuard guard(GetLock());
    highlight_ = on;
    highlightIsSelection_ = true;
    UpdateHighlight();
}

void BaseGraphic::SetMemberPreselectHighlight(bool on) {
    zvk::WriteGuard guard(GetLock());
    preselectHighlight_ = on;
    highlightIsSelection_ = false;
    UpdateHighlight();
}

void BaseGraphic::SetMemberVisibility(bool on) {
    zvk::WriteGuard guard(GetLock());
    visible_ = on;
    GetRenderInfoForUpdate().SetVisibility(on);
}

// Draw state.

RenderInfo const& BaseGraphic::GetRenderInfo() const {
    {
        zvk::ReadGuard guard(GetLock());
        if (renderInfo_) return *renderInfo_;
    }
    zvk::WriteGuard guard(GetLock());
    if (!renderInfo_) renderInfo_ = new RenderInfo(GetLock());
    return *renderInfo_;
}

RenderInfo& BaseGraphic::GetRenderInfoForUpdate() {
    return const_cast<RenderInfo&>(GetRenderInfo());
}

void BaseGraphic::UpdateHighlight() {
    bool useLowlight = false;
    GetBooleanSetting(Setting::SELECTION_USE_LOWLIGHT, useLowlight);
    GetBooleanSetting(Setting::PRESELECTION_USE_LOWLIGHT, useLowlight);
    bool noPreselection = false;
    GetBooleanSetting(Setting::PRESELECTION_NONE, noPreselection);
    if (noPreselection) preselectHighlight_ = false;
    bool dim = false;
    GetBooleanSetting(Setting::DIM, dim);
    RenderInfo& info = GetRenderInfoForUpdate();
    info.SetHighlight(highlight_ || preselectHighlight_);
    info.SetDim(dim);
}

void BaseGraphic::UpdateRenderInfoBase() {
    zvk::WriteGuard guard(GetLock());
    RenderInfo& info = GetRenderInfoForUpdate();
    info.SetZv2dGraphics(GetZv2dGraphics());
    Color color = Color::BLACK;
    info.SetColor(GetColorFromSettings(color) ? color : Color::BLACK);
    Color background;
    if (info.GetFillBackground() && GetColorSetting(Setting::BACKGROUND_COLOR, background)) {
        info.SetBackgroundColor(background);
    }
    UpdateHighlight();
    bool visible = visible_;
    if (visible) GetBooleanSetting(Setting::ITEM_VISIBILITY, visible);
    info.SetVisibility(visible);
    UpdateRenderInfo();
}

bool BaseGraphic::GetColorFromSettings(Color& out) const {
    return GetColorSetting(Setting::COLOR, out);
}

SmartPtr<RenderInfo> BaseGraphic::CloneRenderInfo() const {
    return GetRenderInfo().Clone();
}

bool BaseGraphic::GetFillBackground() const {
    zvk::ReadGuard guard(GetLock());
    return fillBackground_;
}

void BaseGraphic::SetFillBackground(bool fill) {
    zvk::WriteGuard guard(GetLock());
    fillBackground_ = fill;
}

bool BaseGraphic::GetHighlight() const {
    zvk::ReadGuard guard(GetLock());
    return highlight_ && preselectHighlight_ ? highlightIsSelection_ : highlight_;
}

bool BaseGraphic::GetPreselectHighlight() const {
    zvk::ReadGuard guard(GetLock());
    return preselectHighlight_;
}

bool BaseGraphic::GetVisible() const {
    zvk::ReadGuard guard(GetLock());
    return visible_;
}

// Settings.

ConstSmartPtr<figk::Setting> BaseGraphic::GetInheritedSetting(Setting::RepKey key, unsigned& depth,
                                                              bool inheritableOnly) const {
    zvk::ReadGuard guard(GetLock());
    ConstSmartPtr<figk::Setting> found = GetGroupSetting(key, depth, inheritableOnly);
    if (!found && !inheritableOnly) {
        // A free text on the figure takes the look of what it is grouped with.
        if (auto const group = GroupOnFigure(*this)) {
            found = group->GetSettingFromContent(this, key, depth);
        }
    }
    ++depth;
    return found;
}

}  // namespace figrep
