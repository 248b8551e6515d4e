// Labels, flags, sheet pins and marks at wires. Private to the writer of designs.
#pragma once

#include <figkernel/DesignSource.h>
#include <readers/kicad/file/SheetFile.h>
#include <readers/kicad/pictures/Looks.h>
#include <readers/kicad/pictures/Shapes.h>

namespace fighost::kicad {

/// Draws labels. All operations append to `group`; texts are given with escapes worked out.
class LabelPictures {
public:
    LabelPictures(Looks& palette, Frame const& sheetFrame) : looks(palette), frame(sheetFrame) {}

    /// A local label: text above the wire.
    void DrawLocal(Label const& label, std::string const& text, figkernel::GroupSource& group);
    /// A global label: text in a flag that shows the direction.
    void DrawGlobal(Label const& label, std::string const& text, figkernel::GroupSource& group);
    /// A hierarchical label: a small sign, then text.
    void DrawHierarchical(Label const& label, std::string const& text,
                          figkernel::GroupSource& group);
    /// A net class flag: a stem with a sign at its end.
    void DrawFlag(Label const& label, figkernel::GroupSource& group);
    /// A sheet pin: a sign and a text inside the sheet's frame.
    void DrawSheetPin(SheetPin const& pin, std::string const& text, figkernel::GroupSource& group);

    void DrawJunction(Junction const& junction, bool onBus, figkernel::GroupSource& group);
    void DrawNoConnect(NoConnect const& mark, figkernel::GroupSource& group);
    /// A bus entry that is no part of any net.
    void DrawEntry(BusEntry const& entry, figkernel::GroupSource& group);

private:
    /// A place with a direction to the text's far end.
    struct Axis {
        dg::DPoint2D origin;
        dg::DVec2 along;
        dg::DVec2 across;

        dg::DPoint2D At(double u, double v) const { return origin + along * u + across * v; }
    };

    Axis AxisOf(Point at, int quarterTurns) const;
    static Stand StandAlong(Axis const& axis, double u, double v, int vertical);
    void AddGraphic(std::string const& id, std::vector<EntityPtr> const& entities,
                    figkernel::SourceIndex settings, figkernel::GroupSource& group);
    void AddText(std::string const& id, std::string const& text, Stand const& stand,
                 TextStyle const& style, Role role, figkernel::GroupSource& group);
    void DrawSign(std::string const& id, std::string const& shape, Axis const& axis, double size,
                  figkernel::SourceIndex settings, figkernel::GroupSource& group);

    Looks& looks;
    Frame frame;
};

}  // namespace fighost::kicad
