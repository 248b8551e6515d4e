// Shapes that many instances share.
#pragma once

#include <dg/Box.h>
#include <dg/Matrix.h>
#include <du/SmartPtr.h>
#include <zv2d/Entity.h>

#include <vector>

namespace zv2d {

/// A list of entities in one frame, drawn in order. Filled once, before it is shared.
class Definition : public virtual du::RefCounted {
public:
    using Entities = std::vector<du::ConstSmartPtr<Entity>>;

    Definition();
    ~Definition() override;

    /// Null is left out.
    void Add(du::ConstSmartPtr<Entity> const& entity);

    Entities const& GetEntities() const { return entities_; }
    Entities::const_iterator begin() const { return entities_.begin(); }
    Entities::const_iterator end() const { return entities_.end(); }
    bool IsEmpty() const { return entities_.empty(); }

    /// EMPTY without entities. Kept, so the call is cheap.
    dg::DBox2D const& GetExtents() const { return extents_; }

    /// The exact box under a matrix. Cost: the points of all entities, unless the matrix keeps the
    /// directions of the axes.
    dg::DBox2D GetExtents(dg::DMat33 const& matrix) const;
    /// Whether any entity under `matrix` shares a point with the box.
    bool Overlaps(dg::DBox2D const& box, dg::DMat33 const& matrix) const;
    /// Whether all entities under `matrix` lie in the box; false without any.
    bool ContainedIn(dg::DBox2D const& box, dg::DMat33 const& matrix) const;

private:
    Entities entities_;
    dg::DBox2D extents_;
};

}  // namespace zv2d
