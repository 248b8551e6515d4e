// A snapshot of items that travels with an event.
#pragma once

#include <du/RefCounted.h>
#include <figrep/Fwd.h>

#include <cstddef>
#include <vector>

namespace figrep {

/// Items handed to observers. It holds the items and their figure, so that both outlive the
/// message, and doesn't change once it is posted.
class SchematicFigureItemsContainer : virtual public du::RefCounted {
public:
    using Items = std::vector<SmartPtr<AbstractFigureItem>>;

    /// `flag` is the visibility for a visibility event and false for any other.
    SchematicFigureItemsContainer(SmartPtr<Figure> const& figure, Items const& items, bool flag);
    SchematicFigureItemsContainer(SchematicFigureItemsContainer const&);
    SchematicFigureItemsContainer(SchematicFigureItemsContainer&&) noexcept;
    SchematicFigureItemsContainer& operator=(SchematicFigureItemsContainer const&);
    SchematicFigureItemsContainer& operator=(SchematicFigureItemsContainer&&) noexcept;
    ~SchematicFigureItemsContainer() override;

    /// Unchecked: `index` must be below `size()`.
    SmartPtr<AbstractFigureItem> const& operator[](std::size_t index) const {
        return items_[index];
    }
    Items::const_iterator begin() const { return items_.begin(); }
    Items::const_iterator end() const { return items_.end(); }
    bool empty() const { return items_.empty(); }
    std::size_t size() const { return items_.size(); }

    SmartPtr<Figure> const& GetFigure() const { return figure_; }
    bool GetFlag() const { return flag_; }

private:
    Items items_;
    SmartPtr<Figure> figure_;
    bool flag_ = false;
};

}  // namespace figrep
