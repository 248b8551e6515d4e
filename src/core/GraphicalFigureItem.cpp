#include <figrep/GraphicalFigureItem.h>

#include <zvk/ReadWriteLock.h>

namespace figrep {

GraphicalFigureItem::GraphicalFigureItem(SmartPtr<zvk::ReadWriteLock> const& lock,
                                         SmartPtr<figk::AbstractItem> const& item)
    : AbstractFigureItem(lock, item), GraphicGroup(SmartPtr<figk::Group>()) {}

GraphicalFigureItem::GraphicalFigureItem(SmartPtr<zvk::ReadWriteLock> const& lock,
                                         std::string const& name)
    : AbstractFigureItem(lock, name), GraphicGroup(SmartPtr<figk::Group>()) {}

GraphicalFigureItem::~GraphicalFigureItem() = default;

void GraphicalFigureItem::SetHighlight(bool on) {
    zvk::WriteGuard guard(GetLock());
    SetMemberHighlight(on);
}

void GraphicalFigureItem::SetPreselectHighlight(bool on) {
    zvk::WriteGuard guard(GetLock());
    SetMemberPreselectHighlight(on);
}

void GraphicalFigureItem::SetVisibility(bool on) {
    zvk::WriteGuard guard(GetLock());
    SetMemberVisibility(on);
}

void GraphicalFigureItem::Accept(AbstractFigureVisitor& visitor) {
    GraphicGroup::Accept(visitor);
}

DBox2D GraphicalFigureItem::GetExtents() {
    return GetMemberExtents();
}

}  // namespace figrep
