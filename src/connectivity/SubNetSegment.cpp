#include <figrep/SubNetSegment.h>

#include <figrep/Figure.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <zvk/ReadWriteLock.h>

#include "settings/Inheritance.h"

namespace figrep {

SubNetSegment::SubNetSegment(SmartPtr<SubNet> const& subNet,
                             SmartPtr<zvk::ReadWriteLock> const& lock,
                             SmartPtr<figk::AbstractItem> const& item,
                             SmartPtr<ConnectionNode> const& predecessor)
    : Segment(lock, item, predecessor), subNet_(subNet) {}

SubNetSegment::SubNetSegment(SmartPtr<SubNet> const& subNet,
                             SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& start,
                             DPoint2D const& end, SmartPtr<ConnectionNode> const& predecessor)
    : Segment(lock, start, end, predecessor), subNet_(subNet) {}

SubNetSegment::~SubNetSegment() = default;

SmartPtr<SubNet> SubNetSegment::GetSubNet() const {
    zvk::ReadGuard const guard(GetLock());
    return subNet_;
}

bool SubNetSegment::Visit(SmartPtr<SubNet> const& subNet) const {
    zvk::ReadGuard const guard(GetLock());
    return subNet_ == subNet;
}

void SubNetSegment::Remove(SmartPtr<SubNet> const& subNet) {
    zvk::WriteGuard const guard(GetLock());
    if (subNet_ == subNet) subNet_ = nullptr;
}

SmartPtr<Figure> SubNetSegment::GetFigure() const {
    zvk::ReadGuard const guard(GetLock());
    return subNet_ ? subNet_->GetFigure() : nullptr;
}

SmartPtr<Figure> SubNetSegment::GetNodeFigure() const {
    return GetFigure();
}

Symbol SubNetSegment::GetTextOwnerId() const {
    zvk::ReadGuard const guard(GetLock());
    return subNet_ ? subNet_->GetId() : Symbol::EMPTY;
}

unsigned int SubNetSegment::GetNextTextLabelId() {
    zvk::WriteGuard const guard(GetLock());
    return subNet_ ? subNet_->GetNextTextLabelId() : 0;
}

ConstSmartPtr<figk::Setting> SubNetSegment::GetInheritedSetting(Setting::RepKey key,
                                                                unsigned int& depth,
                                                                bool inheritableOnly) const {
    return subNet_ ? SettingOf(subNet_, key, depth, inheritableOnly) : nullptr;
}

void SubNetSegment::GetAllInheritedAttributes(figk::AttributeSet& out) const {
    if (!subNet_) return;
    subNet_->GetAllAttributes(out);
    subNet_->GetAllInheritedAttributes(out);
}

SmartPtr<figk::Attribute> SubNetSegment::GetInheritedAttribute(Symbol const& name) const {
    return AttributeOf(subNet_, name);
}

void SubNetSegment::OwnerWiresChanged() {
    if (subNet_) subNet_->WiresChanged();
}

void SubNetSegment::OwnerTextLabelAdded(SmartPtr<TextGraphic> const& text) {
    if (subNet_) subNet_->TextLabelAdded(text);
}

}  // namespace figrep
