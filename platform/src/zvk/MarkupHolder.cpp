#include <zvk/MarkupHolder.h>

#include <algorithm>

namespace zvk {

MarkupHolder::MarkupHolder() = default;

MarkupHolder::~MarkupHolder() {
    for (auto const& markup : markups_)
        markup->holder_ = nullptr;
}

void MarkupHolder::AddMarkup(du::SmartPtr<Markup> const& markup) {
    if (!markup || markup->holder_ == this) return;
    du::SmartPtr<Markup> const added = markup;  // the argument may be an entry of the other holder
    if (added->holder_) added->holder_->RemoveMarkup(added);
    markups_.push_back(added);
    added->holder_ = this;
    MarkupChanged(*added);
}

void MarkupHolder::RemoveMarkup(du::SmartPtr<Markup> const& markup) {
    if (!markup || markup->holder_ != this) return;
    auto const found = std::find(markups_.begin(), markups_.end(), markup);
    du::SmartPtr<Markup> removed;  // the argument may be the entry itself
    removed.Swap(*found);
    markups_.erase(found);
    removed->holder_ = nullptr;
    MarkupRemoved(*removed);
}

MarkupHolder::Picked MarkupHolder::PickMarkup(zvmu::PickPoint const& pointer) const {
    for (auto markup = markups_.rbegin(); markup != markups_.rend(); ++markup) {
        zvmu::PickedModel const on = (*markup)->Pick(pointer);
        if (on.model) return {*markup, on};
    }
    return {};
}

void MarkupHolder::MarkupChanged(Markup& /*markup*/) {}

void MarkupHolder::MarkupRemoved(Markup& /*markup*/) {}

}  // namespace zvk
