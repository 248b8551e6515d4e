// How items hand on the attributes of where they stand.
#pragma once

#include <figrep/AttributeList.h>
#include <figrep/Fwd.h>

namespace figrep {

/// The parent's own attribute of that name, else what the parent inherits; null without a parent.
template <class Parent>
SmartPtr<figk::Attribute> AttributeOf(Parent const& parent, Symbol const& name) {
    return parent ? parent->AttributeList::GetAttribute(name, true) : SmartPtr<figk::Attribute>();
}

}  // namespace figrep
