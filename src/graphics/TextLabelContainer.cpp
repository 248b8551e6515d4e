#include <figrep/TextLabelContainer.h>

#include <figrep/AbstractFigureVisitor.h>
#include <figrep/TextLabelContainerGroup.h>
#include <zvk/ReadWriteLock.h>

namespace figrep {

TextLabelContainer::TextLabelContainer(SmartPtr<zvk::ReadWriteLock> const& lock)
    : labelLock_(lock) {}

TextLabelContainer::TextLabelContainer(TextLabelContainer const& other)
    : du::RefCounted(other), labelLock_(other.labelLock_) {}

TextLabelContainer& TextLabelContainer::operator=(TextLabelContainer const&) {
    return *this;
}

TextLabelContainer::~TextLabelContainer() {
    zvk::WriteGuard guard(labelLock_);
    if (textGroup_) textGroup_->container_ = nullptr;
}

unsigned TextLabelContainer::GetNextTextLabelId() {
    return 0;
}

void TextLabelContainer::Add(SmartPtr<GraphicGroupMember> const& member) {
    if (!member) return;
    zvk::WriteGuard guard(labelLock_);
    if (SmartPtr<TextLabelContainerGroup> const group = GetTextLabelContainerGroup()) {
        group->Insert(member);
    }
}

SmartPtr<TextLabelContainerGroup> TextLabelContainer::GetTextLabelContainerGroup() const {
    {
        zvk::ReadGuard guard(labelLock_);
        if (textGroup_ || disowned_) return textGroup_;
    }
    zvk::WriteGuard guard(labelLock_);
    if (!textGroup_ && !disowned_) {
        textGroup_ = new TextLabelContainerGroup(const_cast<TextLabelContainer*>(this));
    }
    return textGroup_;
}

bool TextLabelContainer::HasTextLabels() const {
    SmartPtr<TextLabelContainerGroup> const group = ExistingGroup();
    return group && !group->IsEmpty();
}

SmartPtr<TextLabelContainerGroup> TextLabelContainer::ExistingGroup() const {
    zvk::ReadGuard guard(labelLock_);
    return textGroup_;
}

void TextLabelContainer::ClearTextContainer() {
    zvk::WriteGuard guard(labelLock_);
    if (textGroup_) textGroup_->Clear();
}

void TextLabelContainer::DisownText() {
    disowned_ = true;
    if (!textGroup_) return;
    textGroup_->Clear();
    textGroup_->container_ = nullptr;
    textGroup_.Reset();
}

void TextLabelContainer::Accept(AbstractFigureVisitor& visitor) {
    if (!visitor.VisitTextLabelContainer(SmartPtr<TextLabelContainer>(this))) return;
    if (SmartPtr<TextLabelContainerGroup> const group = ExistingGroup()) group->Accept(visitor);
}

void TextLabelContainer::MoveText(double dx, double dy) {
    if (auto const group = ExistingGroup()) group->MoveText(dx, dy);
}

void TextLabelContainer::RotateText(DPoint2D const& centre, double radians) {
    if (auto const group = ExistingGroup()) group->RotateText(centre, radians);
}

void TextLabelContainer::ScaleText(DPoint2D const& centre, double factor) {
    if (auto const group = ExistingGroup()) group->ScaleText(centre, factor);
}

void TextLabelContainer::MirrorText(DPoint2D const& point, bool axis) {
    if (auto const group = ExistingGroup()) group->MirrorText(point, axis);
}

void TextLabelContainer::SetTextHighlight(bool on) {
    if (auto const group = ExistingGroup()) group->SetMemberHighlight(on);
}

void TextLabelContainer::SetTextPreselectHighlight(bool on) {
    if (auto const group = ExistingGroup()) group->SetMemberPreselectHighlight(on);
}

void TextLabelContainer::SetTextVisibility(bool on) {
    if (auto const group = ExistingGroup()) group->SetMemberVisibility(on);
}

}  // namespace figrep
