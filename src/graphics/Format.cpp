#include <figk/Attribute.h>
#include <figrep/Format.h>

#include <figk/Format.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/TitleBlock.h>
#include <zvk/ReadWriteLock.h>

#include <cmath>

#include "connectivity/Transforms.h"
#include "settings/Inheritance.h"

namespace figrep {

namespace {

Symbol const& BadId() {
    static Symbol const id("ERROR - BAD ID");
    return id;
}

}  // namespace

Format::Format(SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<figk::Format> const& kernelFormat)
    : GraphicalFigureItem(lock, SmartPtr<figk::AbstractItem>(kernelFormat)),
      TextLabelContainer(lock) {
    DeriveId();
}

Format::~Format() {
    ReleaseTitleBlock();
}

void Format::DeriveId() {
    SmartPtr<figk::AbstractItem> const item = GetKernelItem();
    SetId(item ? item->GetId() : BadId());
}

void Format::ReleaseTitleBlock() {
    if (titleBlock_) titleBlock_->LeaveFormat(this);
    titleBlock_.Reset();
}

SmartPtr<figk::Format> Format::GetKernelFormat() const {
    return GetKernelItemAs<figk::Format>();
}

double Format::GetWidth() const {
    zvk::ReadGuard guard(GetLock());
    auto const kernel = GetKernelFormat();
    return kernel ? kernel->GetWidth() : 0.0;
}

double Format::GetHeight() const {
    zvk::ReadGuard guard(GetLock());
    auto const kernel = GetKernelFormat();
    return kernel ? kernel->GetHeight() : 0.0;
}

DPoint2D Format::GetPosition() const {
    zvk::ReadGuard guard(GetLock());
    return position_;
}

void Format::CalculateGridLocation(DPoint2D const& point, Symbol& a, Symbol& b) const {
    zvk::ReadGuard guard(GetLock());
    auto const kernel = GetKernelFormat();
    if (kernel) kernel->CalculateGridLocation(point - DVec2(position_), a, b);
}

// Title block and grid.

void Format::Add(SmartPtr<TitleBlock> const& titleBlock) {
    zvk::WriteGuard guard(GetLock());
    if (titleBlock != titleBlock_) {
        ReleaseTitleBlock();
        titleBlock_ = titleBlock;
    }
    if (titleBlock_) titleBlock_->SetFormat(this);
}

void Format::SetTitleBlock(SmartPtr<TitleBlock> const& titleBlock) {
    zvk::WriteGuard guard(GetLock());
    if (titleBlock != titleBlock_) ReleaseTitleBlock();
    titleBlock_ = titleBlock;
}

SmartPtr<TitleBlock> Format::GetTitleBlock() const {
    zvk::ReadGuard guard(GetLock());
    return titleBlock_;
}

void Format::SetGridLines(SmartPtr<GraphicGroup> const& gridLines) {
    zvk::WriteGuard guard(GetLock());
    if (showGrid_ && gridLines != gridLines_) {
        if (gridLines_) Erase(gridLines_);
        if (gridLines) Insert(gridLines);
    }
    gridLines_ = gridLines;
    if (SmartPtr<Figure> const figure = GetFigure()) SetShowGrid(figure->GetFormatGridOn());
}

void Format::SetShowGrid(bool on) {
    zvk::WriteGuard guard(GetLock());
    if (on == showGrid_) return;
    showGrid_ = on;
    if (!gridLines_) return;
    if (on) {
        Insert(gridLines_);
    } else {
        Erase(gridLines_);
    }
}

bool Format::GetShowGrid() const {
    zvk::ReadGuard guard(GetLock());
    return showGrid_;
}

void Format::SetVisibility(bool visible) {
    zvk::WriteGuard guard(GetLock());
    visible_ = visible;
}

bool Format::GetVisibility() const {
    zvk::ReadGuard guard(GetLock());
    return visible_;
}

// Transforms.

void Format::Move(double dx, double dy) {
    MoveGraphics(dx, dy);
    MoveText(dx, dy);
    position_ += DVec2(dx, dy);
    if (titleBlock_) titleBlock_->Move(dx, dy);
    if (!showGrid_ && gridLines_) gridLines_->MoveGraphics(dx, dy);
}

void Format::Rotate(DPoint2D const& centre, double radians) {
    RotateGraphics(centre, radians);
    RotateText(centre, radians);
}

void Format::Scale(DPoint2D const& centre, double factor) {
    ScaleGraphics(centre, factor);
    ScaleText(centre, factor);
}

void Format::Mirror(DPoint2D const& point, bool axis) {
    MirrorGraphics(point, axis);
    MirrorText(point, axis);
}

void Format::MoveItem(double dx, double dy) {
    if (dx == 0.0 && dy == 0.0) return;
    zvk::WriteGuard guard(GetLock());
    Move(dx, dy);
}

void Format::RotateItem(DPoint2D const& centre, double radians) {
    if (radians == 0.0) return;
    zvk::WriteGuard guard(GetLock());
    Rotate(centre, radians);
}

void Format::ScaleItem(DPoint2D const& centre, double factor) {
    if (!IsUsableFactor(factor)) return;
    zvk::WriteGuard guard(GetLock());
    Scale(centre, factor);
}

void Format::MirrorItem(DPoint2D const& point, bool axis) {
    zvk::WriteGuard guard(GetLock());
    Mirror(point, axis);
}

void Format::Accept(AbstractFigureVisitor& visitor) {
    zvk::WriteGuard guard(GetLock());
    if (!visitor.Visit(SmartPtr<Format>(this))) return;
    GraphicalFigureItem::Accept(visitor);
    TextLabelContainer::Accept(visitor);
    if (SmartPtr<TitleBlock> const titleBlock = titleBlock_) titleBlock->Accept(visitor);
}

ConstSmartPtr<figk::Setting> Format::GetInheritedSetting(Setting::RepKey key, unsigned& depth,
                                                         bool) const {
    zvk::ReadGuard guard(GetLock());
    return SettingOf(GetFigure(), key, depth);
}

void Format::GetAllInheritedAttributes(figk::AttributeSet& out) const {
    if (auto const figure = GetFigure()) figure->GetAllAttributes(out);
}

SmartPtr<figk::Attribute> Format::GetInheritedAttribute(Symbol const& name) const {
    return AttributeOf(GetFigure(), name);
}

}  // namespace figrep
