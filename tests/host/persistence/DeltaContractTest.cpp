// Every kind of recorded change: made, saved and made again on a fresh figure it gives the same
// figure; on a design that has lost its target it changes nothing, is reported and is kept.
#include <functional>
#include <numbers>
#include <ostream>
#include <set>

#include <figk/Attribute.h>
#include <figk/SettingValue.h>
#include <figk/SubNet.h>
#include <figrep/DeltaVertexNode.h>
#include <figrep/FigureItemDeleteDelta.h>
#include <figrep/FigureItemSettingDelta.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/FigureSubNetDelta.h>
#include <figrep/ItemAttrInfo.h>
#include <figrep/MirrorAction.h>
#include <figrep/Port.h>
#include <figrep/PortNode.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <support/FindableItems.h>
#include <support/GeneratedDesign.h>
#include <support/RandomEdits.h>

#include "SavedFigureSupport.h"

namespace fighost::testing {
namespace {

using namespace figrep;           // NOLINT: the tests speak of both sides
using namespace figrep::testing;  // NOLINT
using figrep::Symbol;
using test::RandomEdits;

using Item = AbstractFigureItem;
using ItemPtr = SmartPtr<AbstractFigureItem>;
using Deltas = Figure::Deltas;
using Transforms = FigureMoveDelta::Transforms;

/// A small sheet with something of everything, buses and nested blocks included.
figkernel::DesignSource Oddments(std::uint64_t seed) {
    test::GridOptions options;
    options.seed = seed;
    options.segments = 30;
    options.pinsPerSide = 2;
    options.blocksPerRow = 5;
    options.oddments = true;
    return test::GenerateGrid(options);
}

/// The same design without anything on its sheet.
figkernel::DesignSource Emptied(figkernel::DesignSource source) {
    auto& sheet = source.sheets.at(0);
    figkernel::SheetSource bare;
    bare.id = sheet.id;
    bare.name = sheet.name;
    sheet = bare;
    return source;
}

SmartPtr<Setting> BoolSetting(Setting::RepKey key, bool value, figk::Setting::Level level) {
    ConstSmartPtr<figk::BaseSettingValue> const held = new figk::SettingValue<bool>(value);
    return new Setting(key, held, level, true);
}

SmartPtr<Setting> Visibility(bool visible) {
    return BoolSetting(Setting::ITEM_VISIBILITY, visible, figk::Setting::LEVEL_FIGURE);
}

ItemPtr FirstOf(SmartPtr<Figure> const& figure, Item::FigureItemType type) {
    for (auto const& item : test::FindableItems(figure)) {
        if (item->GetType() == type) return item;
    }
    ADD_FAILURE() << "no item of type " << type;
    return {};
}

ItemPtr PortNodeOnABus(SmartPtr<Figure> const& figure) {
    for (auto const& item : test::FindableItems(figure)) {
        auto const node = du::DynamicCast<PortNode>(item);
        if (node && node->GetPort()->OnHighwayNotNet()) return node;
    }
    ADD_FAILURE() << "no port on a bus";
    return {};
}

SmartPtr<figk::AbstractDelta> MoveBy(SmartPtr<Figure> const& figure, Transforms const& transforms,
                                     DPoint2D const& offset) {
    return new FigureMoveDelta(
        {FirstOf(figure, Item::ITEM_BLOCK_INSTANCE), FirstOf(figure, Item::ITEM_SUB_NET),
         FirstOf(figure, Item::ITEM_SUB_HIGHWAY)},
        transforms, offset, false);
}

SmartPtr<figk::AbstractDelta> DeletionOf(SmartPtr<Figure> const& figure,
                                         Item::FigureItemType type) {
    return new FigureItemDeleteDelta(FirstOf(figure, type));
}

SmartPtr<figk::SubNet> SomeNet(SmartPtr<Figure> const& figure) {
    return du::DynamicCast<SubNet>(FirstOf(figure, Item::ITEM_SUB_NET))->GetKernelSubNet();
}

SmartPtr<figk::AbstractDelta> Drawn(SmartPtr<Figure> const& figure,
                                    SmartPtr<ItemAttrInfo> const& info) {
    SmartPtr<DeltaVertexNode> const head = new DeltaVertexNode(nullptr, DPoint2D(0, 0), nullptr);
    SmartPtr<DeltaVertexNode> const bend = new DeltaVertexNode(nullptr, DPoint2D(0, 10), head);
    SmartPtr<DeltaVertexNode>(new DeltaVertexNode(nullptr, DPoint2D(20, 10), bend));
    return new FigureSubNetDelta(head, info, figk::AbstractDelta::ACTION_CREATE, SomeNet(figure));
}

SmartPtr<ItemAttrInfo> Label() {
    SmartPtr<ItemAttrInfo> info = new ItemAttrInfo();
    info->label = Symbol("drawn <&> \"here\"");
    info->attributes.push_back(new figk::Attribute(Symbol("a"), Symbol("b")));
    return info;
}

/// One kind of change with a name.
struct Kind {
    char const* name;
    std::function<void(SmartPtr<Figure> const&)> change;
};

std::ostream& operator<<(std::ostream& out, Kind const& kind) {
    return out << kind.name;
}

/// A kind that is one delta.
template <class Make>
Kind One(char const* name, Make const& make) {
    return {name, [make](SmartPtr<Figure> const& figure) {
                SmartPtr<figk::AbstractDelta> const delta = make(figure);
                figure->AddAndApplyDelta(delta, false, false);
            }};
}

/// A kind as a user's edits make it.
Kind Edits(char const* name, std::vector<RandomEdits::Kind> const& kinds) {
    return {name, [kinds](SmartPtr<Figure> const& figure) {
                RandomEdits edits(figure, 7);
                for (auto const kind : kinds)
                    edits.Edit(kind);
            }};
}

std::vector<Kind> MoveKinds() {
    DPoint2D const about(3, 4);
    auto const move = [](Transforms const& transforms) {
        return [transforms](auto const& figure) {
            return MoveBy(figure, transforms, DPoint2D(0.1, -2));
        };
    };
    return {
        One("MoveAlone", move({})),
        One("MirrorX", move({new MirrorAction(about, false)})),
        One("MirrorY", move({new MirrorAction(about, true)})),
        One("Rotate", move({new RotateAction(about, 0.7)})),
        One("QuarterTurn", move({new RotateAction(about, std::numbers::pi / 2)})),
        One("Scale", move({new ScaleAction(about, 1.0 / 3)})),
        One("AllTransforms", move({new MirrorAction(about, true), new RotateAction(about, 0.7),
                                   new ScaleAction(DPoint2D(5, 6), 1.0 / 3),
                                   new MirrorAction(DPoint2D(-1, 0), false)})),
    };
}

std::vector<Kind> SettingKinds() {
    return {
        One("Hide",
            [](auto const& figure) {
                return new FigureSettingDelta(Visibility(false),
                                              {FirstOf(figure, Item::ITEM_BLOCK_INSTANCE),
                                               FirstOf(figure, Item::ITEM_SUB_NET)});
            }),
        One("FillAtALowLevel",
            [](auto const& figure) {
                return new FigureSettingDelta(
                    BoolSetting(Setting::BACKGROUND_COLOR, true, figk::Setting::LEVEL_BASE),
                    {FirstOf(figure, Item::ITEM_TABLE_INSTANCE)});
            }),
        One("HideOne",
            [](auto const& figure) {
                return new FigureItemSettingDelta(Visibility(false),
                                                  FirstOf(figure, Item::ITEM_CABLE_INSTANCE));
            }),
        One("ShowOne",
            [](auto const& figure) {
                return new FigureItemSettingDelta(Visibility(true),
                                                  FirstOf(figure, Item::ITEM_TEXT_GRAPHIC));
            }),
        One("HideAPortOnABus",
            [](auto const& figure) {
                return new FigureItemSettingDelta(Visibility(false), PortNodeOnABus(figure));
            }),
    };
}

std::vector<Kind> ContentKinds() {
    return {
        One("DeleteBlock",
            [](auto const& figure) { return DeletionOf(figure, Item::ITEM_BLOCK_INSTANCE); }),
        One("DeleteSubNet",
            [](auto const& figure) { return DeletionOf(figure, Item::ITEM_SUB_NET); }),
        One("DeleteSubHighway",
            [](auto const& figure) { return DeletionOf(figure, Item::ITEM_SUB_HIGHWAY); }),
        One("DeleteFormat",
            [](auto const& figure) { return DeletionOf(figure, Item::ITEM_FORMAT); }),
        One("Copy",
            [](auto const& figure) {
                return new FigureSubNetDelta(SomeNet(figure), figk::AbstractDelta::ACTION_COPY);
            }),
        One("Draw", [](auto const& figure) { return Drawn(figure, nullptr); }),
        One("DrawWithALabel", [](auto const& figure) { return Drawn(figure, Label()); }),
        Edits("Part", {RandomEdits::PART}),
        // They come back but for a rounding.
        Edits("PartAndRejoin", {RandomEdits::PART, RandomEdits::REJOIN}),
        Edits("Publish", {RandomEdits::PUBLISH}),
    };
}

std::vector<Kind> AllKinds() {
    auto kinds = MoveKinds();
    for (auto const& more : {SettingKinds(), ContentKinds()})
        kinds.insert(kinds.end(), more.begin(), more.end());
    return kinds;
}

class DeltaContractTest : public ::testing::TestWithParam<Kind> {
protected:
    InstalledDesign drawing{Oddments(1)};
    SmartPtr<Figure> figure = LoadedWithFrame(drawing.Sheet());
};

TEST_P(DeltaContractTest, AppliedSavedAndAppliedAfreshItGivesTheSameFigure) {
    Strings const before = DumpOf(figure);
    GetParam().change(figure);
    ASSERT_FALSE(figure->HasDeltaFailures());
    ASSERT_GE(figure->GetDeltas().size(), 2u);
    ASSERT_NE(DumpOf(figure), before);
    std::string const bytes = Save(figure);
    Loaded const loaded(bytes, FramedFigure(drawing.Sheet()));
    EXPECT_TRUE(loaded.AllApplied()) << loaded.Reports();
    EXPECT_EQ(Difference(loaded.figure, figure), "");
    EXPECT_EQ(Save(loaded.figure), bytes);
    EXPECT_EQ(loaded.SaveAgain(), bytes);
    EXPECT_FALSE(loaded.figure->HasChanged());
    EXPECT_TRUE(loaded.figure->GetLoaded());
}

TEST_P(DeltaContractTest, OnADesignThatLostTheTargetItIsReportedAndKept) {
    GetParam().change(figure);
    std::string const bytes = Save(figure);
    InstalledDesign const revision(Emptied(Oddments(1)));
    auto const untouched = LoadedWithFrame(revision.Sheet());
    Loaded const loaded(bytes, FramedFigure(revision.Sheet()));
    ASSERT_GE(loaded.reports.size(), 2u);
    EXPECT_EQ(loaded.reports[0].outcome, DeltaReport::APPLIED);
    for (std::size_t i = 1; i < loaded.reports.size(); ++i) {
        EXPECT_EQ(loaded.reports[i].outcome, DeltaReport::FAILED) << loaded.Report(i);
        EXPECT_NE(loaded.Report(i).find(" gone"), std::string::npos) << loaded.Report(i);
    }
    EXPECT_EQ(Difference(loaded.figure, untouched), "");
    EXPECT_EQ(loaded.SaveAgain(), bytes) << "saving on a revision that lost a target loses nothing";
}

INSTANTIATE_TEST_SUITE_P(Kinds, DeltaContractTest, ::testing::ValuesIn(AllKinds()),
                         [](auto const& kind) { return std::string(kind.param.name); });

TEST(DeltaContract, ItemsOfEveryKindAreMovedAndHiddenAsTheSavedChangeSays) {
    InstalledDesign const drawing(Oddments(2));
    std::set<int> types;
    for (auto const& sample : test::FindableItems(LoadedWithFrame(drawing.Sheet()))) {
        if (!types.insert(sample->GetType()).second) continue;
        SCOPED_TRACE(sample->GetType());
        auto const figure = LoadedWithFrame(drawing.Sheet());
        auto const item = figure->Find(sample->GetId());
        Transforms const transforms{new MirrorAction(DPoint2D(1, 2), true),
                                    new RotateAction(DPoint2D(3, 4), 0.7),
                                    new ScaleAction(DPoint2D(5, 6), 1.5)};
        figure->AddAndApplyDelta(new FigureMoveDelta({item}, transforms, DPoint2D(1, 1), false),
                                 false, false);
        figure->AddAndApplyDelta(new FigureItemSettingDelta(Visibility(false), item), false, false);
        std::string const bytes = Save(figure);
        Loaded const loaded(bytes, FramedFigure(drawing.Sheet()));
        EXPECT_TRUE(loaded.AllApplied()) << loaded.Reports();
        EXPECT_EQ(Difference(loaded.figure, figure), "");
    }
    // All kinds that have ids to be found by, miscellaneous items aside, which are for one mode.
    EXPECT_EQ(types,
              (std::set<int>{Item::ITEM_BLOCK_INSTANCE, Item::ITEM_CABLE_INSTANCE,
                             Item::ITEM_CONNECTOR_INSTANCE, Item::ITEM_FORMAT,
                             Item::ITEM_GENERIC_GRAPHIC, Item::ITEM_PORT_NODE,
                             Item::ITEM_SUB_HIGHWAY, Item::ITEM_SUB_NET, Item::ITEM_TABLE_INSTANCE,
                             Item::ITEM_TEXT_GRAPHIC, Item::ITEM_TITLE_BLOCK}));
}

/// Random changes of all kinds on a sheet, saved and made again.
void ExpectRandomChangesComeBack(figkernel::DesignSource const& source, std::uint64_t seed) {
    InstalledDesign const drawing(source);
    auto const figure = LoadedWithFrame(drawing.Sheet());
    RandomEdits edits(figure, seed);
    for (int i = 0; i < 20; ++i)
        edits.Edit();
    std::string const bytes = Save(figure);
    Loaded const loaded(bytes, FramedFigure(drawing.Sheet()));
    ASSERT_TRUE(loaded.AllApplied()) << "seed " << seed << "\n" << loaded.Reports();
    ASSERT_EQ(Difference(loaded.figure, figure), "") << "seed " << seed << "\n" << loaded.Reports();
    ASSERT_EQ(loaded.figure->GetExtents(), figure->GetExtents()) << "seed " << seed;
    ASSERT_EQ(loaded.SaveAgain(), bytes) << "seed " << seed;
}

TEST(RandomChanges, OfSchematicsComeBackExactly) {
    for (std::uint64_t seed = 1; seed <= 60; ++seed) {
        test::GridOptions options;
        options.seed = seed;
        options.segments = 30 + 10 * (seed % 10);
        options.pinsPerSide = 1 + seed % 5;
        options.oddments = seed % 4 != 0;
        ExpectRandomChangesComeBack(test::GenerateGrid(options), seed);
        if (HasFatalFailure()) return;
    }
}

TEST(RandomChanges, OfTanglesComeBackExactly) {
    for (std::uint64_t seed = 1; seed <= 120; ++seed) {
        ExpectRandomChangesComeBack(test::GenerateTangle(seed), seed);
        if (HasFatalFailure()) return;
    }
}

TEST(RandomChanges, OfOneKindComeBackExactly) {
    for (int kind = 0; kind < RandomEdits::KINDS; ++kind) {
        InstalledDesign const drawing(Oddments(static_cast<std::uint64_t>(kind)));
        auto const figure = LoadedWithFrame(drawing.Sheet());
        RandomEdits edits(figure, 1);
        for (int i = 0; i < 10; ++i) {
            if (kind == RandomEdits::REJOIN) edits.Edit(RandomEdits::PART);
            edits.Edit(static_cast<RandomEdits::Kind>(kind));
        }
        // A saved change of each kind stands on the list, so none is passed over unseen.
        EXPECT_GE(figure->GetDeltas().size(), 5u) << "kind " << kind;
        std::string const bytes = Save(figure);
        Loaded const loaded(bytes, FramedFigure(drawing.Sheet()));
        EXPECT_TRUE(loaded.AllApplied()) << loaded.Reports();
        EXPECT_EQ(Difference(loaded.figure, figure), "") << "kind " << kind;
        EXPECT_EQ(loaded.SaveAgain(), bytes);
    }
}

}  // namespace
}  // namespace fighost::testing
