// How items take the settings and attributes of what they belong to.
#pragma once

#include <figk/Attribute.h>
#include <figrep/AttributeList.h>
#include <figrep/Fwd.h>
#include <figrep/Setting.h>
#include <figrep/SettingList.h>

namespace figrep {

/// What the parent has under this key or inherits itself; null without a parent. `depth` tells how
/// far up it stands, one step further than the parent says.
template <class Parent>
ConstSmartPtr<figk::Setting> SettingOf(Parent const& parent, Setting::RepKey key,
                                       unsigned int& depth, bool inheritableOnly = true) {
    ConstSmartPtr<figk::Setting> setting;
    if (parent) setting = parent->SettingList::GetSetting(key, depth, inheritableOnly);
    ++depth;
    return setting;
}

/// The parent's own attribute of that name, else what the parent inherits; null without a parent.
template <class Parent>
SmartPtr<figk::Attribute> AttributeOf(Parent const& parent, Symbol const& name) {
    return parent ? parent->AttributeList::GetAttribute(name, true) : SmartPtr<figk::Attribute>();
}

}  // namespace figrep
