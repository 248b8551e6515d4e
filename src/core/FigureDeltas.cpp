// The list of recorded changes of a figure, and how they are applied.
#include <figk/AbstractDelta.h>
#include <figk/AbstractDeltaGenerator.h>
#include <figrep/AbstractFigureDelta.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>
#include <iterator>

namespace figrep {

namespace {

// The status of a delta whose target the kernel no longer has; it ends a run of deltas.
constexpr int MISSING_TARGET = 1;

bool StopsRun(figk::AbstractDelta const& delta) {
    return static_cast<int>(delta.GetStatus()) == MISSING_TARGET;
}

void AppendNotNull(Figure::Deltas& deltas, Figure::Deltas const& more) {
    std::copy_if(more.begin(), more.end(), std::back_inserter(deltas),
                 [](auto const& delta) { return static_cast<bool>(delta); });
}

bool RefreshAndApply(AbstractFigureDelta& delta, figk::AbstractDeltaReceiver& receiver,
                     bool refresh) {
    if (refresh) delta.Refresh();
    return delta.Apply(receiver);
}

}  // namespace

void Figure::GenerateDeltas(figk::AbstractDeltaGenerator& generator) {
    generator.Generate();
    zvk::WriteGuard guard(GetLock());
    Deltas generated;
    generator.GetDeltas(generated);
    AppendNotNull(deltas_, generated);
}

void Figure::ApplyDeltas(bool refresh) {
    zvk::WriteGuard guard(GetLock());
    Items collected;
    // A copy, since a delta may record further ones while it is applied.
    for (auto const& entry : GetDeltas()) {
        auto const delta = du::DynamicCast<AbstractFigureDelta>(entry);
        if (!delta) continue;
        if (!RefreshAndApply(*delta, *this, refresh)) {
            NoteFailure(delta);
            if (StopsRun(*delta)) break;
        }
        delta->TakeChangedItems(collected);
    }
    ProcessNewContent();
    if (!collected.empty()) PostItemsChanged(collected);
    loaded_ = true;
}

void Figure::AddAndApplyDelta(SmartPtr<figk::AbstractDelta> const& entry, bool refresh,
                              bool notify) {
    if (!entry) return;
    {
        zvk::WriteGuard guard(GetLock());
        hasChanged_ = true;
        deltas_.push_back(entry);
    }
    auto const delta = du::DynamicCast<AbstractFigureDelta>(entry);
    if (!delta) return;
    if (!RefreshAndApply(*delta, *this, refresh)) NoteFailure(delta);
    Items collected;
    delta->TakeChangedItems(collected);
    bool const appearanceOnly = delta->IsAppearanceOnly();
    if (!appearanceOnly) ProcessNewContent();
    if (!notify) return;
    if (!collected.empty()) PostItemsChanged(collected);
    PostEvent(appearanceOnly ? APPEARANCE_CHANGED_EVENT : ITEM_CHANGED_EVENT);
}

void Figure::AddAndApplyDeltas(Deltas const& list, bool refresh) {
    {
        zvk::WriteGuard guard(GetLock());
        hasChanged_ = true;
        AppendNotNull(deltas_, list);
    }
    Items collected;
    for (auto const& entry : list) {
        auto const delta = du::DynamicCast<AbstractFigureDelta>(entry);
        if (!delta) continue;
        if (!RefreshAndApply(*delta, *this, refresh)) {
            NoteFailure(delta);
            if (StopsRun(*delta)) break;
        }
        delta->TakeChangedItems(collected);
    }
    ProcessNewContent();
    if (!collected.empty()) PostItemsChanged(collected);
    PostChangedEvent();
}

Figure::Deltas Figure::GetDeltas() const {
    zvk::ReadGuard guard(GetLock());
    return deltas_;
}

bool Figure::HasDeltaFailures() const {
    zvk::ReadGuard guard(GetLock());
    return !deltaFailures_.empty();
}

void Figure::TakeDeltaFailures(Deltas& out) {
    zvk::WriteGuard guard(GetLock());
    out.insert(out.end(), deltaFailures_.begin(), deltaFailures_.end());
    deltaFailures_.clear();
}

void Figure::NoteFailure(SmartPtr<figk::AbstractDelta> const& delta) {
    zvk::WriteGuard guard(GetLock());
    deltaFailures_.push_back(delta);
}

void Figure::RemoveDelta(SmartPtr<figk::AbstractDelta> const& delta) {
    zvk::WriteGuard guard(GetLock());
    auto const found = std::find(deltas_.rbegin(), deltas_.rend(), delta);
    if (!delta || found == deltas_.rend()) return;
    auto const hold = delta;
    deltas_.erase(std::next(found).base());
    hold->Reset();
}

void Figure::RemoveDeltas(Deltas const& list) {
    std::for_each(list.rbegin(), list.rend(), [this](auto const& delta) { RemoveDelta(delta); });
}

void Figure::RemoveEndDeltas(SmartPtr<figk::AbstractDelta> const&,
                             SmartPtr<figk::AbstractDelta> const&) {
    if (deltas_.size() >= 2) deltas_.resize(deltas_.size() - 2);
}

}  // namespace figrep
