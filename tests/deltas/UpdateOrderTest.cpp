// When pictures are made doesn't show in them: drawn after every edit they are those drawn once.
#include <core/PictureDump.h>
#include <figk/SettingValue.h>
#include <figrep/BlockInstance.h>
#include <figrep/Setting.h>
#include <gtest/gtest.h>

#include <random>

#include "Drawings.h"

namespace figrep::testing {
namespace {

/// The same random edits for any figure of one drawing.
class Edits {
public:
    explicit Edits(unsigned seed) : random_(seed) {}

    void ApplyOne(Figure& figure) {
        auto const wires = Wires(figure);
        auto const wire = wires[Pick(wires.size())];
        DPoint2D const about(Grid(), Grid());
        switch (Pick(9)) {
            case 0:
                figure.MoveItem(wire, Grid() - 6, Grid() - 6);
                break;
            case 1:
                figure.RotateItem(wire, about, 0.5);
                break;
            case 2:
                figure.MirrorItem(wire, about, Pick(2) != 0);
                break;
            case 3:
                figure.AddItemSetting(wire, Style(), false);
                break;
            case 4:
                figure.AddSetting(Style(), false);
                break;
            case 5:
                figure.RemoveItemSetting(wire, Setting::CROSSING_POINT_STYLE,
                                         figk::Setting::LEVEL_FIGURE, false);
                break;
            case 6:
                figure.SetItemHighlight(wire, Pick(2) != 0);
                break;
            case 7:
                RemoveAndReturn(figure);
                break;
            default:
                MoveABlock(figure);
                break;
        }
    }

private:
    static std::vector<SmartPtr<AbstractFigureItem>> Wires(Figure const& figure) {
        std::vector<SmartPtr<AbstractFigureItem>> wires;
        for (auto const& subNet : figure.GetSubNets())
            wires.push_back(subNet);
        for (auto const& subHighway : figure.GetSubHighways())
            wires.push_back(subHighway);
        return wires;
    }

    void RemoveAndReturn(Figure& figure) {
        auto const subNets = figure.GetSubNets();
        auto const subNet = subNets[Pick(subNets.size())];
        figure.RemoveItem(subNet);
        figure.Receive(subNet);
    }

    void MoveABlock(Figure& figure) {
        auto const blocks = figure.GetBlockInstances();
        figure.MoveItem(blocks[Pick(blocks.size())], Grid(), Grid());
    }

    ConstSmartPtr<Setting> Style() {
        auto const style = static_cast<figk::CrossingPointStyle>(Pick(3));
        ConstSmartPtr<figk::BaseSettingValue> const value =
            new figk::SettingValue<figk::CrossingPointStyle>(style);
        return new Setting(Setting::CROSSING_POINT_STYLE, value, figk::Setting::LEVEL_FIGURE, true);
    }

    double Grid() { return static_cast<double>(Pick(13)); }
    std::size_t Pick(std::size_t count) { return random_() % count; }

    std::mt19937 random_;
};

figkernel::DesignSource BusAndBlocks() {
    auto source = BusOf(4);
    auto& sheet = source.sheets[0];
    sheet.blocks = {BlockWith("U1", {Pin("1", DPoint2D(20, 5), 0), Pin("2", DPoint2D(20, 15), 1)}),
                    BlockWith("U2", {Pin("1", DPoint2D(80, 8), 0)})};
    sheet.wires.push_back(WireOf(2, DPoint2D(20, 25), DPoint2D(20, 60)));
    return source;
}

class UpdateOrder : public ::testing::TestWithParam<unsigned> {};

TEST_P(UpdateOrder, DoesNotShowInThePictures) {
    InstalledDesign const drawing(BusAndBlocks());
    auto const eager = LoadedFigure(drawing.Sheet());
    auto const lazy = LoadedFigure(drawing.Sheet());
    Edits eagerEdits(GetParam());
    Edits lazyEdits(GetParam());
    eager->UpdateContent();
    for (int i = 0; i < 30; ++i) {
        eagerEdits.ApplyOne(*eager);
        eager->UpdateContent();
        lazyEdits.ApplyOne(*lazy);
    }
    lazy->UpdateContent();
    EXPECT_EQ(PictureDump::Of(eager), PictureDump::Of(lazy));
}

INSTANTIATE_TEST_SUITE_P(Seeds, UpdateOrder, ::testing::Range(1u, 41u));

}  // namespace
}  // namespace figrep::testing
