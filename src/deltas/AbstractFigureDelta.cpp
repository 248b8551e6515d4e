#include <figrep/AbstractFigureDelta.h>

#include <figrep/AbstractFigureItem.h>

namespace figrep {

AbstractFigureDelta::AbstractFigureDelta(Action const& action, bool primary)
    : figk::AbstractDelta(action), primary_(primary) {}

AbstractFigureDelta::AbstractFigureDelta(AbstractFigureDelta const&) = default;
AbstractFigureDelta::~AbstractFigureDelta() = default;

bool AbstractFigureDelta::IsAppearanceOnly() const {
    return false;
}

void AbstractFigureDelta::TakeChangedItems(std::vector<SmartPtr<AbstractFigureItem>>& out) {
    out.insert(out.end(), changedItems_.begin(), changedItems_.end());
    changedItems_.clear();
}

void AbstractFigureDelta::NoteChangedItem(SmartPtr<AbstractFigureItem> const& item) {
    if (item) changedItems_.push_back(item);
}

}  // namespace figrep
