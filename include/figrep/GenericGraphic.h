// Any picture: a kernel graphic, or ready 2D instances.
#pragma once

#include <figrep/BaseGraphic.h>

#include <vector>

namespace figrep {

/// The workhorse graphic: symbols, wires' polylines, crossing symbols, arrows, frames.
class GenericGraphic : public BaseGraphic {
public:
    /// Each makes a graphic that stands in `group`; a null group leaves it free.
    static SmartPtr<GenericGraphic> Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                           SmartPtr<figk::GenericGraphic> const& kernelGraphic,
                                           SmartPtr<figk::Group> const& group);
    static SmartPtr<GenericGraphic> Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                           SmartPtr<zv2d::Instance> const& instance,
                                           SmartPtr<figk::Group> const& group);
    /// `extents` is the box of the instances where the caller knows it; EMPTY: computed on demand.
    static SmartPtr<GenericGraphic> Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                           std::vector<SmartPtr<zv2d::Instance>> const& instances,
                                           DBox2D const& extents,
                                           SmartPtr<figk::Group> const& group);
    /// A plain box.
    static SmartPtr<GenericGraphic> Create(SmartPtr<zvk::ReadWriteLock> const& lock,
                                           DBox2D const& box, SmartPtr<figk::Group> const& group);
    ~GenericGraphic() override;

    FigureItemType GetType() const override { return ITEM_GENERIC_GRAPHIC; }
    SmartPtr<figk::GenericGraphic> GetKernelGenericGraphic() const;
    /// Named by the first text beside it in a sub-group of its item, else by its own name.
    /// Cost: the size of the group.
    std::string const& GetName() const override;
    void Accept(AbstractFigureVisitor& visitor) override;

    /// True for all but the graphics of a format, which are tested exactly.
    bool FineOverlapCheck(DPoint2D const& point) const override;
    bool FineOverlapCheck(DBox2D const& box) const override;
    bool FineContentCheck(DBox2D const& box) const override;

    bool GetColorFromSettings(Color& out) const override;
    void UpdateRenderInfo() override;

protected:
    void GenerateZv2dGraphics() const override;

private:
    GenericGraphic(SmartPtr<zvk::ReadWriteLock> const& lock,
                   SmartPtr<figk::GenericGraphic> const& kernelGraphic);
    explicit GenericGraphic(SmartPtr<zvk::ReadWriteLock> const& lock);

    static SmartPtr<GenericGraphic> CreateWith(SmartPtr<zvk::ReadWriteLock> const& lock,
                                               SmartPtr<figk::Zv2dGraphics> const& graphics,
                                               SmartPtr<figk::Group> const& group);
    void Initialise(SmartPtr<figk::Group> const& group);
    void DeriveId() override;
    bool IsFormatGraphic() const;
    void UpdateTexture();
};

}  // namespace figrep
