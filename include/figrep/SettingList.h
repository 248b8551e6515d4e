// What makes a figure and its items configurable.
#pragma once

#include <dg/Color.h>
#include <du/SmartPtr.h>
#include <figk/SettingValue.h>
#include <figrep/Setting.h>
#include <figrep/SettingListVisitor.h>
#include <zvk/ReadWriteLock.h>

#include <memory>
#include <vector>

namespace attrs {
class FillAttr;
}

namespace figk {
class ArrowStyle;
class SettingList;
}  // namespace figk

namespace zv2d {
class LineAttributes;
class Texture;
}  // namespace zv2d

namespace figrep {

/// Settings of an item's own, with those that it inherits and those of its kernel record behind
/// them.
///
/// A lookup yields one setting. Levels 7, 6 and 5 of the item's own outrank everything, also an
/// inherited setting of the same level. Else the higher level wins, and of equal ones the nearest:
/// own, then inherited, then the kernel's. The *depth* that comes with it counts the steps up to
/// the holder. Nothing is cached or pushed down.
///
/// Lock: the figure's shared one, for reading in queries and for writing in changes; it may be
/// null. An item without settings of its own pays for three pointers.
class SettingList : public virtual du::RefCounted {
public:
    ~SettingList() override;

    /// Levels 3, 5, 6 and 7 replace what the level holds under the key. Every other level shares
    /// one place per key, where the higher level stays; a setting equal to the kernel's isn't kept,
    /// and takes out an own one that isn't above it. Null does nothing. `notify` is for overrides.
    virtual void AddSetting(du::ConstSmartPtr<Setting> const& setting, bool notify);

    /// Empties one of the levels 3, 5, 6 and 7; true when it held anything. Other levels stay as
    /// they are.
    virtual bool ClearSettingList(figk::Setting::Level level, bool notify);

    /// Takes out what `level` holds under the key and answers it, or null. Levels other than 3, 5,
    /// 6 and 7 share one place, which is emptied whatever level its setting has.
    du::ConstSmartPtr<figk::Setting> RemoveSetting(Setting::RepKey key, figk::Setting::Level level);

    /// Whether neither the list nor the kernel's holds anything. Levels 5 and 6 aren't looked at.
    bool Empty() const;

    /// The setting that counts, or null. For a member of a composite, the composite where that
    /// outranks it.
    du::ConstSmartPtr<figk::Setting> GetSetting(Setting::RepKey key, unsigned int& depth) const;

    /// The lookup without regard to composites. `inheritableOnly` sees only settings that may be
    /// inherited, and leaves the kernel's list out: children and members ask this way.
    du::ConstSmartPtr<figk::Setting> GetSetting(Setting::RepKey key, unsigned int& depth,
                                                bool inheritableOnly) const;

    // Typed queries. True when a setting with a value of the type was found; what they write stays
    // untouched otherwise.

    /// Of a complex key, also the colour of line attributes.
    bool GetColorSetting(Setting::RepKey key, dg::Color& out) const;
    bool GetColorSetting(Setting::RepKey key, dg::Color& out, figk::Setting::Level& level,
                         unsigned int& depth) const;
    bool GetBooleanSetting(Setting::RepKey key, bool& out) const;
    bool GetBooleanSetting(Setting::RepKey key, bool& out, figk::Setting::Level& level,
                           unsigned int& depth) const;
    bool GetFloatSetting(Setting::RepKey key, float& out) const;
    bool GetFloatSetting(Setting::RepKey key, float& out, figk::Setting::Level& level,
                         unsigned int& depth) const;
    bool GetCrossingPointStyleSetting(Setting::RepKey key, figk::CrossingPointStyle& out) const;
    bool GetCrossingPointStyleSetting(Setting::RepKey key, figk::CrossingPointStyle& out,
                                      figk::Setting::Level& level, unsigned int& depth) const;
    bool GetArrowStyleSetting(Setting::RepKey key, figk::ArrowStyle& out) const;
    bool GetArrowStyleSetting(Setting::RepKey key, figk::ArrowStyle& out,
                              figk::Setting::Level& level, unsigned int& depth) const;
    /// Of a complex key, also the weight of line attributes.
    bool GetWeightSetting(Setting::RepKey key, figk::WeightAttr& out) const;
    bool GetWeightSetting(Setting::RepKey key, figk::WeightAttr& out, figk::Setting::Level& level,
                          unsigned int& depth) const;
    /// Of a complex key, also the style of line attributes.
    bool GetLineStyleSetting(Setting::RepKey key, figk::LineStyleAttr& out) const;
    bool GetLineStyleSetting(Setting::RepKey key, figk::LineStyleAttr& out,
                             figk::Setting::Level& level, unsigned int& depth) const;

    bool GetZv2dTextureSetting(figk::Setting::Key key, du::ConstSmartPtr<zv2d::Texture>& out) const;
    bool GetZv2dTextureSetting(figk::Setting::Key key, du::ConstSmartPtr<zv2d::Texture>& out,
                               figk::Setting::Level& level, unsigned int& depth) const;
    bool GetZv2dFillAttributesSetting(figk::Setting::Key key,
                                      du::ConstSmartPtr<attrs::FillAttr>& out) const;
    bool GetZv2dFillAttributesSetting(figk::Setting::Key key,
                                      du::ConstSmartPtr<attrs::FillAttr>& out,
                                      figk::Setting::Level& level, unsigned int& depth) const;

    /// Line attributes put together from the whole and from the colour, weight and style that
    /// outrank it; `level` and `depth` are then the largest of the parts'. False for any key but
    /// that of line attributes, which changes nothing; nothing found leaves `out` null, `level` and
    /// `depth` 0. Without members the result is the setting's own object, else a new one.
    bool GetZv2dLineAttributesSetting(figk::Setting::Key key,
                                      du::ConstSmartPtr<zv2d::LineAttributes>& out) const;
    bool GetZv2dLineAttributesSetting(figk::Setting::Key key,
                                      du::ConstSmartPtr<zv2d::LineAttributes>& out,
                                      figk::Setting::Level& level, unsigned int& depth) const;

    /// Shows the visitor the kernel's settings, if wanted, and then the own ones; false when the
    /// visitor stopped it. `LEVEL_ALL` shows levels 7, 3 and the rest, in this order; 7 or 3 that
    /// level; any other level what stands before the first setting of yet another level, and false
    /// when there was one. Settings of levels 5 and 6 are never shown.
    bool Visit(SettingListVisitor& visitor, bool includeKernel, figk::Setting::Level level) const;
    bool Visit(figk::SettingListVisitor& visitor, bool includeKernel,
               figk::Setting::Level level) const;

protected:
    /// Both may be null.
    SettingList(du::SmartPtr<zvk::ReadWriteLock> const& lock,
                du::ConstSmartPtr<figk::SettingList> const& kernelSettings);
    SettingList(SettingList const& other);
    SettingList& operator=(SettingList const&) = delete;

    /// What the item gets from where it stands; null when it stands nowhere. An override asks its
    /// parent with `inheritableOnly` set and adds 1 to the depth.
    virtual du::ConstSmartPtr<figk::Setting> GetInheritedSetting(Setting::RepKey key,
                                                                 unsigned int& depth,
                                                                 bool inheritableOnly) const;

    /// What a child gets from this list, which itself inherits `inherited` from `depth` steps away:
    /// `GetSetting` with `inheritableOnly` for whoever walks a chain of parents from the top.
    /// `depth` becomes that of the answer.
    du::ConstSmartPtr<figk::Setting> GetSettingOver(
        du::ConstSmartPtr<figk::Setting> const& inherited, Setting::RepKey key,
        unsigned int& depth) const;

    /// Called, with the lock held, after every change of the list's contents.
    virtual void SettingsChanged();

    /// Empties all levels.
    void ClearSettingList();

    du::ConstSmartPtr<figk::Setting> GetComplexSetting(Setting::RepKey key,
                                                       unsigned int& depth) const;
    du::ConstSmartPtr<figk::Setting> GetKernelSetting(figk::Setting::Key key, unsigned int& depth,
                                                      bool inheritableOnly) const;

private:
    class Store;
    struct LineParts;

    Store& OwnStore();
    bool FindOwn(Setting::RepKey key, bool inheritableOnly,
                 du::ConstSmartPtr<figk::Setting>& best) const;
    bool IsKernelValue(Setting const& setting) const;
    bool AddLocalSetting(du::ConstSmartPtr<Setting> const& setting);
    LineParts FindLineParts() const;
    template <typename See>
    bool VisitOwn(See const& see, figk::Setting::Level level) const;

    du::ConstSmartPtr<figk::SettingList> kernelSettings_;
    std::unique_ptr<Store> store_;  // null while there are no settings of its own
    du::SmartPtr<zvk::ReadWriteLock> settingsLock_;
};

}  // namespace figrep
