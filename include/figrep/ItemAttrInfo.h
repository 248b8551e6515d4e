// An item's label and attributes on their way into a figure.
#pragma once

#include <du/SmartPtr.h>
#include <du/Symbol.h>
#include <figk/Attribute.h>

#include <vector>

namespace figrep {

/// Carries the label and the attributes of a wire that is made by a recorded change.
class ItemAttrInfo : public virtual du::RefCounted {
public:
    du::Symbol label;
    std::vector<du::SmartPtr<figk::Attribute>> attributes;
};

}  // namespace figrep
