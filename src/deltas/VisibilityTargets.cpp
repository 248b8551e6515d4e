#include "deltas/VisibilityTargets.h"

#include <figrep/AbstractFigureItem.h>
#include <figrep/BaseBlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/SubNet.h>

#include <algorithm>
#include <unordered_set>

#include "deltas/BoolSetting.h"

namespace figrep {

namespace {

using Items = std::vector<SmartPtr<AbstractFigureItem>>;
using Blocks = std::vector<SmartPtr<BaseBlockInstance>>;

ConstSmartPtr<figk::Setting> VisibilityOf(AbstractFigureItem const& item) {
    unsigned depth = 0;
    return item.SettingList::GetSetting(Setting::ITEM_VISIBILITY, depth);
}

class TargetCollector {
public:
    explicit TargetCollector(bool visible) : visible_(visible) {}

    void Collect(SmartPtr<AbstractFigureItem> const& item) {
        auto const block = du::DynamicCast<BaseBlockInstance>(item);
        if (block) CollectFamily(block);
        auto const setting = VisibilityOf(*item);
        if (!setting || (!block && Differs(setting))) Insert(item);
    }

    Items const& GetTargets() const { return targets_; }

private:
    // Parents before children here, so from the end children come before their parents.
    void CollectFamily(SmartPtr<BaseBlockInstance> const& top) {
        Blocks family;
        Blocks pending{top};
        while (!pending.empty()) {
            auto const block = pending.back();
            pending.pop_back();
            if (!seenBlocks_.insert(block).second) continue;
            family.push_back(block);
            auto const children = block->GetChildren();
            pending.insert(pending.end(), children.begin(), children.end());
        }
        for (auto block = family.rbegin(); block != family.rend(); ++block)
            CollectBlock(*block);
    }

    void CollectBlock(SmartPtr<BaseBlockInstance> const& block) {
        if (auto const cable = du::DynamicCast<CableInstance>(block)) {
            for (auto const& subNet : cable->GetSubNets())
                InsertIfDifferent(subNet);
        }
        InsertIfDifferent(block);
    }

    void InsertIfDifferent(SmartPtr<AbstractFigureItem> const& item) {
        auto const setting = VisibilityOf(*item);
        if (setting && Differs(setting)) Insert(item);
    }

    bool Differs(ConstSmartPtr<figk::Setting> const& setting) const {
        return BoolValue(setting.Get()) != visible_;
    }

    void Insert(SmartPtr<AbstractFigureItem> const& item) {
        if (known_.insert(item).second) targets_.push_back(item);
    }

    bool visible_;
    Items targets_;
    std::unordered_set<SmartPtr<AbstractFigureItem>> known_;
    std::unordered_set<SmartPtr<BaseBlockInstance>> seenBlocks_;
};

}  // namespace

Items FindVisibilityTargets(Items const& items, bool visible) {
    TargetCollector collector(visible);
    for (auto const& item : items) {
        if (item) collector.Collect(item);
    }
    return collector.GetTargets();
}

}  // namespace figrep
