// The frame of a sheet.
#pragma once

#include <dg/Point.h>
#include <figk/AbstractItem.h>
#include <figk/Group.h>
#include <figk/TextLabelContainer.h>

namespace figk {

/// Its graphics are the group: border and marks, from (0, 0) to (width, height) in figure units.
class Format : public AbstractItem, public Group, public TextLabelContainer {
public:
    ~Format() override;

    virtual double GetWidth() const = 0;
    virtual double GetHeight() const = 0;
    /// Names the cell of the reference grid in which `point` lies: `x` names the column, `y` the
    /// row. Both stay empty for a point outside the frame and for a frame without a grid.
    virtual void CalculateGridLocation(dg::DPoint2D const& point, Symbol& x, Symbol& y) const = 0;

    /// Shows the format, then its graphics and labels.
    void Accept(AbstractVisitor& visitor) override;
    TypeDefinitions::KernelItemType GetKernelItemType() const override;
};

}  // namespace figk
