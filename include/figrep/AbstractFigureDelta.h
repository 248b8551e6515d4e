// The base of every recorded change of a figure.
#pragma once

#include <figk/AbstractDelta.h>
#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// A change that verifies its targets, applies itself to a figure and writes itself down.
/// A delta on a figure's list is applied by one thread at a time.
class AbstractFigureDelta : public figk::AbstractDelta {
public:
    /// Whether the delta brings content in, as against changing what is there. For the host.
    bool IsPrimary() const { return primary_; }

    /// Whether the delta changes looks only, so that crossings and arrows need no new pass.
    virtual bool IsAppearanceOnly() const;

    /// Appends what the latest application touched to `out` and forgets it.
    void TakeChangedItems(std::vector<SmartPtr<AbstractFigureItem>>& out);

protected:
    AbstractFigureDelta(Action const& action, bool primary);
    AbstractFigureDelta(AbstractFigureDelta const&);
    ~AbstractFigureDelta() override;

    /// Notes an item as touched; null is left out.
    void NoteChangedItem(SmartPtr<AbstractFigureItem> const& item);

private:
    std::vector<SmartPtr<AbstractFigureItem>> changedItems_;
    bool primary_;
};

}  // namespace figrep
