#include <figk/ArrowStyle.h>

#include <sstream>

namespace figk {

ArrowStyle::ArrowStyle() = default;

ArrowStyle::ArrowStyle(PatternType pattern, double spacing,
                       ConstSmartPtr<zv2d::Definition> const& shape,
                       ConstSmartPtr<zv2d::Attributes> const& attributes, bool fillBackground)
    : pattern_(pattern),
      spacing_(spacing),
      shape_(shape),
      attributes_(attributes),
      fillBackground_(fillBackground) {}

bool ArrowStyle::operator==(ArrowStyle const& other) const {
    return pattern_ == other.pattern_ && spacing_ == other.spacing_ && shape_ == other.shape_ &&
           attributes_ == other.attributes_ && fillBackground_ == other.fillBackground_;
}

std::string ArrowStyle::ToString() const {
    std::ostringstream text;
    text << "arrow style " << pattern_ << " at " << spacing_;
    return text.str();
}

}  // namespace figk
