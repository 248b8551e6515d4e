#include <figk/Attribute.h>
#include <figrep/TitleBlock.h>

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/TitleBlockGraphicsGenerator.h>
#include <figrep/TitleBlockTextSection.h>
#include <figrep/TokenObserver.h>
#include <zvk/ReadWriteLock.h>

#include "settings/Inheritance.h"

namespace figrep {

namespace {

Symbol const& BadId() {
    static Symbol const id("ERROR - BAD ID");
    return id;
}

}  // namespace

TitleBlock::TitleBlock(SmartPtr<zvk::ReadWriteLock> const& lock,
                       SmartPtr<figk::TitleBlock> const& kernelTitleBlock,
                       SmartPtr<TokenObserver> const& tokenObserver)
    : GraphicalFigureItem(lock, SmartPtr<figk::AbstractItem>(kernelTitleBlock)),
      TextLabelContainer(lock),
      tokenObserver_(tokenObserver) {
    Initialise();
    DeriveId();
}

TitleBlock::TitleBlock(TitleBlock const& other)
    : du::RefCounted(other),
      figk::GroupMember(other),
      GraphicalFigureItem(other.GetLock(), other.GetKernelItem()),
      TextLabelContainer(other),
      generator_(other.generator_),
      corner_(other.corner_),
      offsetX_(other.offsetX_),
      offsetY_(other.offsetY_),
      widthParam_(other.widthParam_),
      tokenObserver_(other.tokenObserver_) {
    std::vector<SmartPtr<TitleBlockTextSection>> sections;
    for (auto const& section : other.textSections_) {
        sections.push_back(new TitleBlockTextSection(*section));
    }
    AdoptSections(sections);
    DeriveId();
}

TitleBlock::~TitleBlock() {
    for (auto const& section : textSections_)
        section->LeaveTitleBlock(this);
}

void TitleBlock::Initialise() {
    SmartPtr<figk::TitleBlock> const kernel = GetKernelTitleBlock();
    if (!kernel) return;
    corner_ = kernel->GetCorner();
    offsetX_ = kernel->GetOffsetX();
    offsetY_ = kernel->GetOffsetY();
    AcquireTextSections(kernel);
}

void TitleBlock::DeriveId() {
    SmartPtr<figk::AbstractItem> const item = GetKernelItem();
    SetId(item ? item->GetId() : BadId());
}

void TitleBlock::AcquireTextSections(SmartPtr<figk::TitleBlock> const& kernelTitleBlock) {
    std::vector<SmartPtr<figk::TitleBlockTextSection>> kernelSections;
    kernelTitleBlock->GetTextSections(kernelSections);
    std::vector<SmartPtr<TitleBlockTextSection>> sections;
    for (auto const& kernelSection : kernelSections) {
        sections.push_back(new TitleBlockTextSection(kernelSection));
    }
    AdoptSections(sections);
}

void TitleBlock::AdoptSections(std::vector<SmartPtr<TitleBlockTextSection>> const& sections) {
    for (auto const& section : textSections_)
        section->LeaveTitleBlock(this);
    textSections_.clear();
    for (auto const& section : sections) {
        if (!section) continue;
        section->SetTitleBlock(this);
        textSections_.push_back(section);
    }
}

SmartPtr<figk::TitleBlock> TitleBlock::GetKernelTitleBlock() const {
    return GetKernelItemAs<figk::TitleBlock>();
}

SmartPtr<Figure> TitleBlock::GetFigure() const {
    zvk::ReadGuard guard(GetLock());
    if (SmartPtr<Figure> own = GraphicalFigureItem::GetFigure()) return own;
    return format_ ? format_->GetFigure() : nullptr;
}

// What the kernel says.

Color TitleBlock::GetBackgroundColor() const {
    zvk::ReadGuard guard(GetLock());
    auto const kernel = GetKernelTitleBlock();
    return kernel ? kernel->GetBackgroundColor() : Color::WHITE;
}

Color TitleBlock::GetLineColor() const {
    zvk::ReadGuard guard(GetLock());
    auto const kernel = GetKernelTitleBlock();
    return kernel ? kernel->GetLineColor() : Color::BLACK;
}

double TitleBlock::GetLineWeight() const {
    zvk::ReadGuard guard(GetLock());
    auto const kernel = GetKernelTitleBlock();
    return kernel ? kernel->GetLineWeight() : 0.0;
}

double TitleBlock::GetMargin() const {
    zvk::ReadGuard guard(GetLock());
    auto const kernel = GetKernelTitleBlock();
    return kernel ? kernel->GetMargin() : 0.0;
}

double TitleBlock::GetMinHeight() const {
    zvk::ReadGuard guard(GetLock());
    auto const kernel = GetKernelTitleBlock();
    return kernel ? kernel->GetMinHeight() : 0.0;
}

double TitleBlock::GetMinWidth() const {
    zvk::ReadGuard guard(GetLock());
    auto const kernel = GetKernelTitleBlock();
    return kernel ? kernel->GetMinWidth() : 0.0;
}

// Parameters.

TitleBlock::Corner TitleBlock::GetCorner() const {
    zvk::ReadGuard guard(GetLock());
    return corner_;
}

double TitleBlock::GetOffsetX() const {
    zvk::ReadGuard guard(GetLock());
    return offsetX_;
}

double TitleBlock::GetOffsetY() const {
    zvk::ReadGuard guard(GetLock());
    return offsetY_;
}

double TitleBlock::GetWidthParam() const {
    zvk::ReadGuard guard(GetLock());
    return widthParam_;
}

template <typename Value>
void TitleBlock::ChangeParameter(Value& field, Value const& value) {
    zvk::WriteGuard guard(GetLock());
    ClearTextAndGraphics();
    field = value;
}

void TitleBlock::SetCorner(Corner corner) {
    ChangeParameter(corner_, corner);
}

void TitleBlock::SetOffsetX(double offset) {
    ChangeParameter(offsetX_, offset);
}

void TitleBlock::SetOffsetY(double offset) {
    ChangeParameter(offsetY_, offset);
}

void TitleBlock::SetWidthParam(double width) {
    ChangeParameter(widthParam_, width);
}

std::vector<SmartPtr<TitleBlockTextSection>> TitleBlock::GetTextSections() const {
    zvk::ReadGuard guard(GetLock());
    return textSections_;
}

void TitleBlock::SetTextSections(std::vector<SmartPtr<TitleBlockTextSection>> const& sections) {
    zvk::WriteGuard guard(GetLock());
    ClearTextAndGraphics();
    AdoptSections(sections);
}

void TitleBlock::SetFormat(Format* format) {
    zvk::WriteGuard guard(GetLock());
    format_ = format;
}

void TitleBlock::LeaveFormat(Format const* format) {
    zvk::WriteGuard guard(GetLock());
    if (format_ == format) format_ = nullptr;
}

SmartPtr<Format> TitleBlock::GetFormat() const {
    zvk::ReadGuard guard(GetLock());
    return SmartPtr<Format>(format_);
}

void TitleBlock::SetGraphicsGenerator(SmartPtr<TitleBlockGraphicsGenerator> const& generator) {
    zvk::WriteGuard guard(GetLock());
    generator_ = generator;
}

// Layout.

// The generator lays out in the format's corner; where the block was moved to, it doesn't know.
void TitleBlock::UpdateGraphics() {
    zvk::WriteGuard guard(GetLock());
    if (!IsEmpty() || !generator_) return;
    generator_->GenerateGraphics(SmartPtr<TitleBlock>(this));
    MoveGraphics(ownMove_.x, ownMove_.y);
    MoveText(ownMove_.x, ownMove_.y);
}

void TitleBlock::UpdateExtents() {
    if (!(layoutExtents_ == DBox2D::EMPTY) || !generator_) return;
    generator_->GenerateExtents(SmartPtr<TitleBlock>(this));
    layoutExtents_.Translate(ownMove_);
}

void TitleBlock::ClearLayout() {
    Clear();
    ClearTextContainer();
    layoutExtents_ = DBox2D::EMPTY;
}

void TitleBlock::TextsChanged() {
    zvk::WriteGuard guard(GetLock());
    ClearLayout();
}

void TitleBlock::ClearTextAndGraphics() {
    zvk::WriteGuard guard(GetLock());
    ClearLayout();
    ownMove_ = DVec2(0, 0);
    for (auto const& section : textSections_)
        section->SetTextTokensOutOfDate();
}

DBox2D TitleBlock::GetExtents() {
    zvk::WriteGuard guard(GetLock());
    UpdateExtents();
    return layoutExtents_;
}

void TitleBlock::SetExtents(DBox2D const& extents) {
    zvk::WriteGuard guard(GetLock());
    layoutExtents_ = extents;
}

void TitleBlock::Move(double dx, double dy) {
    MoveGraphics(dx, dy);
    MoveText(dx, dy);
    layoutExtents_.Translate(DVec2(dx, dy));
}

void TitleBlock::MoveItem(double dx, double dy) {
    if (dx == 0.0 && dy == 0.0) return;
    zvk::WriteGuard guard(GetLock());
    Move(dx, dy);
    ownMove_ = ownMove_ + DVec2(dx, dy);
}

void TitleBlock::SetPreselectHighlight(bool on) {
    GraphicalFigureItem::SetPreselectHighlight(on);
    SetTextPreselectHighlight(on);
}

void TitleBlock::Accept(AbstractFigureVisitor& visitor) {
    zvk::WriteGuard guard(GetLock());
    UpdateGraphics();
    SmartPtr<TitleBlock> const self(this);
    if (visitor.Visit(self)) {
        GraphicalFigureItem::Accept(visitor);
        TextLabelContainer::Accept(visitor);
    }
    visitor.VisitComplete(self);
}

ConstSmartPtr<figk::Setting> TitleBlock::GetInheritedSetting(Setting::RepKey key, unsigned& depth,
                                                             bool) const {
    zvk::ReadGuard guard(GetLock());
    return SettingOf(format_, key, depth);
}

void TitleBlock::GetAllInheritedAttributes(figk::AttributeSet& out) const {
    zvk::ReadGuard guard(GetLock());
    if (format_) format_->GetAllAttributes(out);
}

SmartPtr<figk::Attribute> TitleBlock::GetInheritedAttribute(Symbol const& name) const {
    zvk::ReadGuard guard(GetLock());
    return AttributeOf(format_, name);
}

}  // namespace figrep
