// The sheet frame of a figure: border, grid lines, grid references and title block.
#pragma once

#include <dg/Point.h>
#include <figrep/Fwd.h>
#include <figrep/GraphicalFigureItem.h>
#include <figrep/TextLabelContainer.h>

namespace figrep {

/// The frame that the figure's sheet is drawn in; a figure has at most one.
///
/// Sizes and grid arithmetic are the kernel's; the figure adds where the frame has been moved to
/// and whether the grid lines show. It is only ever moved as a whole: rotating, scaling and
/// mirroring leave position, title block and hidden grid lines as they are.
class Format : public GraphicalFigureItem, public TextLabelContainer {
public:
    Format(SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<figk::Format> const& kernelFormat);
    ~Format() override;

    FigureItemType GetType() const override { return ITEM_FORMAT; }
    SmartPtr<figk::Format> GetKernelFormat() const;
    /// In figure units; 0 without a kernel record.
    double GetWidth() const;
    double GetHeight() const;
    /// How far the frame has been moved from where the kernel has it.
    DPoint2D GetPosition() const;
    /// The names of the grid cell that holds `point`, a point of the figure. Without a kernel
    /// record both stay untouched.
    void CalculateGridLocation(DPoint2D const& point, Symbol& a, Symbol& b) const;

    using TextLabelContainer::Add;
    /// Takes the title block in and tells it its format.
    void Add(SmartPtr<TitleBlock> const& titleBlock);
    /// Stores the title block and does nothing else.
    void SetTitleBlock(SmartPtr<TitleBlock> const& titleBlock);
    /// May be null.
    SmartPtr<TitleBlock> GetTitleBlock() const;

    /// The lines are a member of the format's group only while they show.
    void SetGridLines(SmartPtr<GraphicGroup> const& gridLines);
    void SetShowGrid(bool on);
    bool GetShowGrid() const;

    void SetVisibility(bool visible) override;
    bool GetVisibility() const;

    void MoveItem(double dx, double dy) override;
    void RotateItem(DPoint2D const& centre, double radians) override;
    /// A factor of 0 or one that isn't finite does nothing.
    void ScaleItem(DPoint2D const& centre, double factor) override;
    void MirrorItem(DPoint2D const& point, bool axis) override;
    void Accept(AbstractFigureVisitor& visitor) override;
    Symbol GetTextOwnerId() const override { return GetId(); }

protected:
    virtual void Move(double dx, double dy);
    virtual void Rotate(DPoint2D const& centre, double radians);
    virtual void Scale(DPoint2D const& centre, double factor);
    virtual void Mirror(DPoint2D const& point, bool axis);
    ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key, unsigned& depth,
                                                     bool inheritableOnly) const override;
    void GetAllInheritedAttributes(figk::AttributeSet& out) const override;
    SmartPtr<figk::Attribute> GetInheritedAttribute(Symbol const& name) const override;

private:
    void DeriveId() override;
    void ReleaseTitleBlock();

    SmartPtr<TitleBlock> titleBlock_;
    bool showGrid_ = false;
    bool visible_ = true;
    SmartPtr<GraphicGroup> gridLines_;
    DPoint2D position_;
};

}  // namespace figrep
