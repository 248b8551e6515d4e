#include <figrep/SchematicFigureItemsContainer.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>

namespace figrep {

using Container = SchematicFigureItemsContainer;

Container::SchematicFigureItemsContainer(SmartPtr<Figure> const& figure, Items const& items,
                                         bool flag)
    : items_(items), figure_(figure), flag_(flag) {}

Container::SchematicFigureItemsContainer(Container const&) = default;
Container::SchematicFigureItemsContainer(Container&& other) noexcept
    : items_(std::move(other.items_)), figure_(std::move(other.figure_)), flag_(other.flag_) {}
Container& Container::operator=(Container const&) = default;

Container& Container::operator=(Container&& other) noexcept {
    items_ = std::move(other.items_);
    figure_ = std::move(other.figure_);
    flag_ = other.flag_;
    return *this;
}

Container::~SchematicFigureItemsContainer() = default;

}  // namespace figrep
