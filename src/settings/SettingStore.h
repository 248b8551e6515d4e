// The settings of an item's own, by level and key.
#pragma once

#include <figrep/SettingList.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace figrep {

/// Settings in tiers: one for each level that outranks or replaces as a whole, and one for all
/// other levels together. Within a tier there is one setting per key, in the order of keys.
///
/// Items have few settings of their own, so one sorted vector serves all tiers.
class SettingList::Store {
public:
    enum Tier { FIGURE, UPPER_B, UPPER_A, PROFILE, LOCAL };

    struct Entry {
        Tier tier;
        Setting::RepKey key;
        du::ConstSmartPtr<figk::Setting> setting;

        bool IsBefore(Tier otherTier, Setting::RepKey otherKey) const {
            return std::pair<int, int>(tier, key) < std::pair<int, int>(otherTier, otherKey);
        }
    };

    static Tier TierOf(figk::Setting::Level level) {
        switch (level) {
            case figk::Setting::LEVEL_FIGURE:
                return FIGURE;
            case figk::Setting::LEVEL_UPPER_B:
                return UPPER_B;
            case figk::Setting::LEVEL_UPPER_A:
                return UPPER_A;
            case figk::Setting::LEVEL_PROFILE:
                return PROFILE;
            default:
                return LOCAL;
        }
    }

    /// Whether a visitor of `level` is shown this tier. The two upper ones are never shown.
    static bool IsShown(Tier tier, figk::Setting::Level level) {
        if (tier == UPPER_A || tier == UPPER_B) return false;
        if (level == figk::Setting::LEVEL_ALL) return true;
        Tier const wanted = TierOf(level);
        return tier == (wanted == FIGURE || wanted == PROFILE ? wanted : LOCAL);
    }

    figk::Setting const* Find(Tier tier, Setting::RepKey key) const {
        auto const found = LowerBound(tier, key);
        return IsAt(found, tier, key) ? found->setting.Get() : nullptr;
    }

    void Put(Tier tier, Setting::RepKey key, du::ConstSmartPtr<figk::Setting> const& setting) {
        auto const place = entries_.begin() + (LowerBound(tier, key) - entries_.cbegin());
        if (IsAt(place, tier, key)) {
            place->setting = setting;
        } else {
            entries_.insert(place, Entry{tier, key, setting});
        }
    }

    /// What was taken out; null when there was nothing.
    du::ConstSmartPtr<figk::Setting> Take(Tier tier, Setting::RepKey key) {
        auto const found = LowerBound(tier, key);
        if (!IsAt(found, tier, key)) return nullptr;
        du::ConstSmartPtr<figk::Setting> const taken = found->setting;
        entries_.erase(found);
        return taken;
    }

    bool Clear(Tier tier) {
        return std::erase_if(entries_, [&](Entry const& entry) { return entry.tier == tier; }) != 0;
    }

    bool Has(Tier tier) const {
        return std::ranges::any_of(entries_, [&](Entry const& e) { return e.tier == tier; });
    }

    bool IsEmpty() const { return entries_.empty(); }
    std::vector<Entry> const& GetEntries() const { return entries_; }

private:
    using Place = std::vector<Entry>::const_iterator;

    Place LowerBound(Tier tier, Setting::RepKey key) const {
        return std::ranges::partition_point(
            entries_, [&](Entry const& entry) { return entry.IsBefore(tier, key); });
    }
    bool IsAt(Place place, Tier tier, Setting::RepKey key) const {
        return place != entries_.end() && place->tier == tier && place->key == key;
    }

    std::vector<Entry> entries_;
};

}  // namespace figrep
