#include "ChangedWires.h"

#include <figrep/AbstractFigureItem.h>

#include <algorithm>

namespace figrep {

ChangedWires::ChangedWires() = default;
ChangedWires::~ChangedWires() = default;

void ChangedWires::Note(SmartPtr<AbstractFigureItem> const& wire, bool isNew) {
    auto const [entry, added] = index_.emplace(wire.Get(), entries_.size());
    if (added) entries_.push_back({wire, isNew});
}

void ChangedWires::Forget(AbstractFigureItem const& wire) {
    auto const entry = index_.find(&wire);
    if (entry == index_.end()) return;
    entries_[entry->second].wire = {};
    index_.erase(entry);
}

std::vector<ChangedWires::Entry> ChangedWires::Take() {
    std::vector<Entry> taken;
    taken.swap(entries_);
    index_.clear();
    taken.erase(std::remove_if(taken.begin(), taken.end(),
                               [](Entry const& entry) { return !entry.wire; }),
                taken.end());
    return taken;
}

void ChangedWires::Clear() {
    entries_.clear();
    index_.clear();
}

}  // namespace figrep
