// The settings that a kernel record carries.
#pragma once

#include <figk/Setting.h>

#include <vector>

namespace figk {

/// Sees settings one by one.
class SettingListVisitor {
public:
    SettingListVisitor();
    SettingListVisitor(SettingListVisitor const& other);
    SettingListVisitor& operator=(SettingListVisitor const& other);
    virtual ~SettingListVisitor();

    /// False stops the walk.
    virtual bool Visit(ConstSmartPtr<Setting> const& setting) = 0;
};

/// One setting per key, in the order of keys. Complete; a kernel with a store of its own overrides
/// the queries. Takes no lock: a record's list is filled before anybody else sees it.
class SettingList : public virtual du::RefCounted {
public:
    SettingList();
    SettingList(SettingList const& other);
    ~SettingList() override;

    /// The setting of `key`, or null. `depth` is how far up the kernel found it, 0 for the record
    /// itself; it stays untouched when nothing is found.
    virtual ConstSmartPtr<Setting> GetSetting(Setting::Key const& key, unsigned int& depth) const;
    virtual bool Empty() const;
    /// Shows the visitor the settings of `level` (`LEVEL_ALL`: all) in the order of keys, until it
    /// answers false. Answers whether it came to the end.
    virtual bool Visit(SettingListVisitor& visitor, Setting::Level level) const;

    /// Replaces what is held under the setting's key. Null does nothing.
    void Add(ConstSmartPtr<Setting> const& setting);

private:
    std::vector<ConstSmartPtr<Setting>> settings_;
};

}  // namespace figk
