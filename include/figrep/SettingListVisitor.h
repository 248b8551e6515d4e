// Sees the settings of a list one by one.
#pragma once

#include <figk/SettingList.h>
#include <figrep/Setting.h>

namespace figrep {

/// Sees settings with the key under which a figure's list holds them. Settings of the kernel come
/// without one. False stops the walk.
class SettingListVisitor : public figk::SettingListVisitor {
public:
    bool Visit(du::ConstSmartPtr<figk::Setting> const& setting) override = 0;
    virtual bool Visit(Setting::RepKey const& key,
                       du::ConstSmartPtr<figk::Setting> const& setting) = 0;
};

}  // namespace figrep
