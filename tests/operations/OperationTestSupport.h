// What the tests of operations and queries need.
#pragma once

#include <core/Fakes.h>
#include <deltas/DeltaTestSupport.h>
#include <figk/SettingValue.h>
#include <figrep/Setting.h>
#include <support/DrawingOfAll.h>
#include <zvk/Operation.h>

#include <algorithm>

namespace figrep::testing {

using test::HiddenOn;
using test::LabelsOf;
using Items = Figure::Items;

inline SmartPtr<Setting> Visibility(bool visible,
                                    figk::Setting::Level level = figk::Setting::LEVEL_FIGURE) {
    ConstSmartPtr<figk::BaseSettingValue> const value = new figk::SettingValue<bool>(visible);
    return new Setting(Setting::ITEM_VISIBILITY, value, level, true);
}

inline SmartPtr<zvk::Operation> NewOperation() {
    return new zvk::Operation(Symbol("test"), {}, true);
}

/// The item's own visibility setting; null where it inherits or has none.
inline ConstSmartPtr<figk::Setting> OwnVisibility(SmartPtr<AbstractFigureItem> const& item) {
    unsigned depth = 0;
    auto const setting = item->SettingList::GetSetting(Setting::ITEM_VISIBILITY, depth);
    return depth == 0 ? setting : ConstSmartPtr<figk::Setting>();
}

/// A figure of the sheet that has something of everything.
class FigureOfAll : public ::testing::Test {
protected:
    /// The item that tests call by this label.
    SmartPtr<AbstractFigureItem> Item(std::string const& label) const {
        for (auto const& item : test::ItemsThatShow(figure)) {
            if (test::LabelOf(item) == label) return item;
        }
        ADD_FAILURE() << "no item " << label;
        return {};
    }
    Items ItemList(Strings const& labels) const {
        Items items;
        for (auto const& label : labels)
            items.push_back(Item(label));
        return items;
    }
    /// All that can be hidden but those, sorted.
    Strings AllBut(Strings const& labels) const {
        auto all = LabelsOf(test::ItemsThatShow(figure));
        std::erase_if(all, [&](auto const& label) {
            return std::find(labels.begin(), labels.end(), label) != labels.end();
        });
        std::sort(all.begin(), all.end());
        return all;
    }

    InstalledDesign installed{test::DrawingOfAll().Source()};
    SmartPtr<Figure> figure = test::FramedFigure(installed.Sheet());
};

}  // namespace figrep::testing
