// The looks of a drawing: colours and widths by what a thing is, made into settings.
#pragma once

#include <map>
#include <optional>
#include <tuple>

#include <attrs/FillAttr.h>
#include <figkernel/DesignSource.h>
#include <readers/Role.h>
#include <readers/kicad/file/SheetFile.h>
#include <zv2d/Attributes.h>

namespace fighost::kicad {

inline constexpr double LINE_WIDTH = 0.1524;     // mm, of wires and shapes
inline constexpr double BUS_WIDTH = 0.3048;      // mm
inline constexpr double FRAME_WIDTH = 0.15;      // mm
inline constexpr double JUNCTION_SIZE = 0.9144;  // mm, diameter

/// The colour of a role on a light background.
dg::Color ColorOf(Role role);
/// What fills the bodies of symbols.
dg::Color BodyFillColor();

/// Settings of a design, each made once and shared. All of them name the role, and tell by the
/// level of the colour whether the file chose it.
class Looks {
public:
    explicit Looks(figkernel::DesignSource& source) : design(source) {}

    /// The role and the colour: for shapes and texts, which bring their own widths.
    figkernel::SourceIndex Colored(Role role, std::optional<dg::Color> const& chosen = {});
    /// The same with width and dashes: for wires and buses.
    figkernel::SourceIndex Lined(Role role, Stroke const& stroke);

private:
    using Key = std::tuple<Role, bool, float, float, float, float, double, int>;

    figkernel::SourceIndex Make(Role role, std::optional<dg::Color> const& chosen, double width,
                                Stroke::Type type);

    figkernel::DesignSource& design;
    std::map<Key, figkernel::SourceIndex> known;
};

/// Interned attributes of a line. A width of 0 stands for `otherwise`, a negative one for no line.
du::ConstSmartPtr<zv2d::Attributes> LineAttributesOf(Stroke const& stroke,
                                                     double otherwise = LINE_WIDTH);
/// The same with a fill.
du::ConstSmartPtr<zv2d::Attributes> ShapeAttributesOf(Stroke const& stroke, Fill const& fill,
                                                      double otherwise = LINE_WIDTH);

}  // namespace fighost::kicad
