// What holds the markups of a view.
#pragma once

#include <du/SmartPtr.h>
#include <zvk/Markup.h>

#include <vector>

namespace zvk {

/// A pile of markups, the one that was added last on top.
class MarkupHolder {
public:
    struct Picked {
        du::SmartPtr<Markup> markup;  ///< null for nothing
        zvmu::PickedModel on;
    };

    MarkupHolder(MarkupHolder const&) = delete;
    MarkupHolder& operator=(MarkupHolder const&) = delete;

    /// Puts a markup on top, taking it away from another holder. Null and a markup that is here
    /// already change nothing.
    void AddMarkup(du::SmartPtr<Markup> const& markup);
    /// A markup that isn't here changes nothing.
    void RemoveMarkup(du::SmartPtr<Markup> const& markup);
    /// From bottom to top.
    std::vector<du::SmartPtr<Markup>> const& GetMarkups() const { return markups_; }

    /// The topmost markup that the pointer touches.
    Picked PickMarkup(zvmu::PickPoint const& pointer) const;

protected:
    MarkupHolder();
    virtual ~MarkupHolder();

    /// A markup came, or looks different now.
    virtual void MarkupChanged(Markup& markup);
    virtual void MarkupRemoved(Markup& markup);

private:
    friend class Markup;

    std::vector<du::SmartPtr<Markup>> markups_;
};

}  // namespace zvk
