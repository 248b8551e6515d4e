#include <zvk/Markup.h>

#include <zvk/MarkupHolder.h>

namespace zvk {

MarkupContent::MarkupContent() = default;

MarkupContent::~MarkupContent() = default;

Markup::Markup(du::SmartPtr<ReadWriteLock> const& lock)
    : ObjectWithRWLock(lock), link_(new du::Link<Markup>(this)) {}

Markup::~Markup() {
    link_->Clear();
}

void Markup::SetContent(du::SmartPtr<MarkupContent> const& content, bool notify) {
    content_ = content;
    if (notify) NotifyContentChanged();
}

void Markup::NotifyContentChanged() {
    if (holder_) holder_->MarkupChanged(*this);
}

zvmu::PickedModel Markup::Pick(zvmu::PickPoint const& pointer) const {
    if (!content_ || !content_->GetModelBase()) return {};
    return content_->GetModelBase()->Pick(pointer);
}

bool Markup::BeginDrag(zvmu::PickedModel const& /*picked*/, bool /*together*/) {
    return false;
}

void Markup::ContinueDrag(dg::DVec3 const& /*fromStart*/) {}

void Markup::EndDrag() {}

void Markup::AbandonDrag() {}

void Markup::Enter(du::SmartPtr<zvmu::ModelBase> const& /*model*/) {}

void Markup::Leave() {}

bool Markup::GetCursorOver(du::SmartPtr<zvmu::ModelBase> const& /*model*/,
                           du::Symbol& /*cursor*/) const {
    return false;
}

}  // namespace zvk
