// Something to hit when a wire is picked; never drawn.
#pragma once

#include <figrep/BaseGraphic.h>

namespace figrep {

/// The stretch between two points, in figure coordinates, as a pickable member of a wire's group.
class PickGraphicProxy : public BaseGraphic {
public:
    static SmartPtr<PickGraphicProxy> Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                             SmartPtr<figk::Group> const& group,
                                             DPoint2D const& start, DPoint2D const& end);
    ~PickGraphicProxy() override;

    FigureItemType GetType() const override { return ITEM_PICK_GRAPHIC_PROXY; }
    void Accept(AbstractFigureVisitor& visitor) override;
    DBox2D GetExtents() override;
    /// The check of the item that owns the proxy; true without an owner.
    bool FineContentCheck(DBox2D const& box) const override;
    DPoint2D GetStart() const;
    DPoint2D GetEnd() const;

    void Move(double dx, double dy) override;
    void Rotate(DPoint2D const& centre, double radians) override;
    void Scale(DPoint2D const& centre, double factor) override;
    void Mirror(DPoint2D const& point, bool axis) override;
    /// Both do nothing: a proxy has no looks.
    void UpdateRenderInfo() override;
    void UpdateRenderInfoBase() override;

protected:
    void GenerateZv2dGraphics() const override;

private:
    PickGraphicProxy(SmartPtr<zvk::ReadWriteLock> const& lock, DPoint2D const& start,
                     DPoint2D const& end);
    void DeriveId() override;
    template <typename Transform>
    void TransformEnds(Transform const& transform);

    DPoint2D start_;
    DPoint2D end_;
};

}  // namespace figrep
