#include <figrep/SettingList.h>

#include "SettingStore.h"

#include <figk/SettingList.h>

namespace figrep {

using FoundSetting = du::ConstSmartPtr<figk::Setting>;

namespace {

/// Puts a setting from elsewhere in the place of the best so far if its level is higher.
void Prefer(FoundSetting const& other, unsigned int otherDepth, FoundSetting& best,
            unsigned int& depth) {
    if (!other || (best && other->GetLevel() <= best->GetLevel())) return;
    best = other;
    depth = otherDepth;
}

}  // namespace

SettingList::SettingList(du::SmartPtr<zvk::ReadWriteLock> const& lock,
                         du::ConstSmartPtr<figk::SettingList> const& kernelSettings)
    : kernelSettings_(kernelSettings), settingsLock_(lock) {}

SettingList::SettingList(SettingList const& other)
    : du::RefCounted(other),
      kernelSettings_(other.kernelSettings_),
      store_(other.store_ ? std::make_unique<Store>(*other.store_) : nullptr),
      settingsLock_(other.settingsLock_) {}

SettingList::~SettingList() = default;

SettingList::Store& SettingList::OwnStore() {
    if (!store_) store_ = std::make_unique<Store>();
    return *store_;
}

void SettingList::AddSetting(du::ConstSmartPtr<Setting> const& setting, bool /*notify*/) {
    if (!setting) return;
    zvk::WriteGuard const guard(settingsLock_);
    Store::Tier const tier = Store::TierOf(setting->GetLevel());
    if (tier != Store::LOCAL) {
        OwnStore().Put(tier, setting->GetRepKey(), setting);
    } else if (!AddLocalSetting(setting)) {
        return;
    }
    SettingsChanged();
}

bool SettingList::AddLocalSetting(du::ConstSmartPtr<Setting> const& setting) {
    Setting::RepKey const key = setting->GetRepKey();
    figk::Setting const* const present = store_ ? store_->Find(Store::LOCAL, key) : nullptr;
    bool const outranked = present && present->GetLevel() > setting->GetLevel();
    if (outranked) return false;
    if (!IsKernelValue(*setting)) {
        OwnStore().Put(Store::LOCAL, key, setting);
        return true;
    }
    if (present) store_->Take(Store::LOCAL, key);
    return present != nullptr;
}

bool SettingList::IsKernelValue(Setting const& setting) const {
    unsigned int depth = 0;
    FoundSetting const kernel =
        GetKernelSetting(Setting::GetKernelKey(setting.GetRepKey()), depth, false);
    if (!kernel || !kernel->GetBaseValue() || !setting.GetBaseValue()) return false;
    return *setting.GetBaseValue() == *kernel->GetBaseValue();
}

FoundSetting SettingList::RemoveSetting(Setting::RepKey key, figk::Setting::Level level) {
    zvk::WriteGuard const guard(settingsLock_);
    if (!store_) return nullptr;
    FoundSetting const removed = store_->Take(Store::TierOf(level), key);
    if (!removed) return nullptr;
    if (store_->IsEmpty()) store_.reset();
    SettingsChanged();
    return removed;
}

bool SettingList::ClearSettingList(figk::Setting::Level level, bool /*notify*/) {
    Store::Tier const tier = Store::TierOf(level);
    if (tier == Store::LOCAL) return false;
    zvk::WriteGuard const guard(settingsLock_);
    if (!store_ || !store_->Clear(tier)) return false;
    if (store_->IsEmpty()) store_.reset();
    SettingsChanged();
    return true;
}

void SettingList::ClearSettingList() {
    zvk::WriteGuard const guard(settingsLock_);
    if (!store_) return;
    store_.reset();
    SettingsChanged();
}

bool SettingList::Empty() const {
    zvk::ReadGuard const guard(settingsLock_);
    bool const own = store_ && (store_->Has(Store::FIGURE) || store_->Has(Store::PROFILE) ||
                                store_->Has(Store::LOCAL));
    return !own && (!kernelSettings_ || kernelSettings_->Empty());
}

FoundSetting SettingList::GetSetting(Setting::RepKey key, unsigned int& depth) const {
    if (Setting::IsComplexKey(key)) return GetComplexSetting(key, depth);
    return GetSetting(key, depth, false);
}

/// Looks at the list's own settings; true when what was found outranks anything from elsewhere.
bool SettingList::FindOwn(Setting::RepKey key, bool inheritableOnly, FoundSetting& best) const {
    auto const own = [&](Store::Tier tier) -> figk::Setting const* {
        figk::Setting const* const found = store_ ? store_->Find(tier, key) : nullptr;
        return found && (found->CanBeInherited() || !inheritableOnly) ? found : nullptr;
    };
    for (Store::Tier const tier : {Store::FIGURE, Store::UPPER_B, Store::UPPER_A}) {
        best = own(tier);
        if (best) return true;
    }
    best = own(Store::PROFILE);
    figk::Setting const* const local = own(Store::LOCAL);
    if (local && (!best || local->GetLevel() == figk::Setting::LEVEL_FORCED)) best = local;
    return false;
}

FoundSetting SettingList::GetSetting(Setting::RepKey key, unsigned int& depth,
                                     bool inheritableOnly) const {
    zvk::ReadGuard const guard(settingsLock_);
    depth = 0;
    FoundSetting best;
    if (FindOwn(key, inheritableOnly, best)) return best;
    unsigned int furtherDepth = 0;
    FoundSetting further = GetInheritedSetting(key, furtherDepth, inheritableOnly);
    Prefer(further, furtherDepth, best, depth);
    if (!inheritableOnly && !Setting::IsComplexKey(key)) {
        furtherDepth = 0;
        further = GetKernelSetting(Setting::GetKernelKey(key), furtherDepth, false);
        Prefer(further, furtherDepth, best, depth);
    }
    return best;
}

FoundSetting SettingList::GetSettingOver(FoundSetting const& inherited, Setting::RepKey key,
                                         unsigned int& depth) const {
    zvk::ReadGuard const guard(settingsLock_);
    unsigned int const inheritedDepth = depth;
    depth = 0;
    FoundSetting best;
    if (!FindOwn(key, true, best)) Prefer(inherited, inheritedDepth, best, depth);
    return best;
}

FoundSetting SettingList::GetInheritedSetting(Setting::RepKey /*key*/, unsigned int& /*depth*/,
                                              bool /*inheritableOnly*/) const {
    return nullptr;
}

void SettingList::SettingsChanged() {}

FoundSetting SettingList::GetKernelSetting(figk::Setting::Key key, unsigned int& depth,
                                           bool inheritableOnly) const {
    if (!kernelSettings_) return nullptr;
    FoundSetting const found = kernelSettings_->GetSetting(key, depth);
    return found && inheritableOnly && !found->CanBeInherited() ? nullptr : found;
}

FoundSetting SettingList::GetComplexSetting(Setting::RepKey key, unsigned int& depth) const {
    zvk::ReadGuard const guard(settingsLock_);
    FoundSetting const member = GetSetting(key, depth, false);
    if (!Setting::HasKernelKey(key)) return member;
    if (depth == 0 && member && member->GetLevel() == figk::Setting::LEVEL_FIGURE) return member;
    unsigned int wholeDepth = 0;
    FoundSetting const whole = GetSetting(Setting::GetCompositeKey(key), wholeDepth, false);
    if (!whole) return member;
    bool const wholeWins = !member || member->GetLevel() < whole->GetLevel() ||
                           (member->GetLevel() == whole->GetLevel() && depth > wholeDepth);
    if (!wholeWins) return member;
    depth = wholeDepth;
    return whole;
}

template <typename See>
bool SettingList::VisitOwn(See const& see, figk::Setting::Level level) const {
    if (!store_) return true;
    std::vector<Store::Entry> const entries =
        store_->GetEntries();  // a visitor may change the list
    for (Store::Entry const& entry : entries) {
        if (!Store::IsShown(entry.tier, level)) continue;
        bool const other = level != figk::Setting::LEVEL_ALL && entry.setting->GetLevel() != level;
        if (other || !see(entry)) return false;
    }
    return true;
}

bool SettingList::Visit(SettingListVisitor& visitor, bool includeKernel,
                        figk::Setting::Level level) const {
    zvk::ReadGuard const guard(settingsLock_);
    if (includeKernel && kernelSettings_ && !kernelSettings_->Visit(visitor, level)) return false;
    return VisitOwn([&](auto const& entry) { return visitor.Visit(entry.key, entry.setting); },
                    level);
}

bool SettingList::Visit(figk::SettingListVisitor& visitor, bool includeKernel,
                        figk::Setting::Level level) const {
    zvk::ReadGuard const guard(settingsLock_);
    if (includeKernel && kernelSettings_ && !kernelSettings_->Visit(visitor, level)) return false;
    return VisitOwn([&](auto const& entry) { return visitor.Visit(entry.setting); }, level);
}

}  // namespace figrep
