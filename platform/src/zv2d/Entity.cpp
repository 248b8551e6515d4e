#include <zv2d/Entity.h>

namespace zv2d {

void EntityVisitor::Visit(TexPolyline const&) {}
void EntityVisitor::Visit(CircularArc const&) {}
void EntityVisitor::Visit(Text const&) {}
void EntityVisitor::Visit(Picture const&) {}

Entity::Entity(du::ConstSmartPtr<Attributes> const& attributes) : attributes_(attributes) {}

Entity::Entity(Entity const&) = default;

Entity::~Entity() = default;

}  // namespace zv2d
