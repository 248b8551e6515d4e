// How the direction arrows of a net look and where they stand.
#pragma once

#include <figk/Fwd.h>
#include <zv2d/Attributes.h>
#include <zv2d/Definition.h>

#include <string>

namespace figk {

/// A plain value. The default is spaced arrows without a shape at spacing 0, which draws nothing.
class ArrowStyle {
public:
    enum PatternType {
        PATTERN_SPACED = 0,   ///< along every segment, at every spacing
        PATTERN_CENTRE = 1,   ///< one, at the midpoint of the path from first leaf to head
        PATTERN_END = 2,      ///< one at the end of each segment that no segment follows
        PATTERN_FRACTION = 3  ///< one on every segment, at that fraction of its length
    };

    ArrowStyle();
    ArrowStyle(PatternType pattern, double spacing, ConstSmartPtr<zv2d::Definition> const& shape,
               ConstSmartPtr<zv2d::Attributes> const& attributes, bool fillBackground);

    PatternType GetPattern() const { return pattern_; }
    /// Figure units, or a fraction of the segment for `PATTERN_FRACTION`.
    double GetSpacing() const { return spacing_; }
    /// The arrow at the origin, pointing along x; null for none.
    ConstSmartPtr<zv2d::Definition> GetShape() const { return shape_; }
    /// What the arrow is drawn with; null for the wire's own looks.
    ConstSmartPtr<zv2d::Attributes> GetAttributes() const { return attributes_; }
    bool GetFillBackground() const { return fillBackground_; }

    /// Shapes and attributes compare by identity.
    bool operator==(ArrowStyle const& other) const;
    bool operator!=(ArrowStyle const& other) const { return !(*this == other); }

    std::string ToString() const;

private:
    PatternType pattern_ = PATTERN_SPACED;
    double spacing_ = 0;
    ConstSmartPtr<zv2d::Definition> shape_;
    ConstSmartPtr<zv2d::Attributes> attributes_;
    bool fillBackground_ = false;
};

}  // namespace figk
