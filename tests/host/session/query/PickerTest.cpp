#include <session/query/Picker.h>

#include <figk/AbstractDelta.h>
#include <figk/SchematicKernel.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/BaseGraphic.h>
#include <figrep/BlockInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/HighwaySegment.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/NetSegment.h>
#include <figrep/Segment.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <host/session/ExampleSession.h>
#include <session/edits/ShowHide.h>
#include <session/items/ForEachItem.h>
#include <session/query/FindItems.h>
#include <support/Corpus.h>
#include <support/Drawing.h>
#include <support/GeneratedDesign.h>
#include <support/Random.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace fighost {
namespace {

using figrep::AbstractFigureItem;
using figrep::SmartPtr;
using figrep::test::Drawing;
using Items = std::vector<SmartPtr<AbstractFigureItem>>;
using Names = std::vector<std::string>;

// A figure drawn by hand, with the design that it rests on.
struct Drawn {
    explicit Drawn(Drawing const& drawing) : Drawn(drawing.BuildDesign()) {}
    explicit Drawn(figkernel::DesignSource const& source)
        : Drawn(figkernel::Build(source, figk::SchematicKernel::GetKernelLock()).design) {}
    explicit Drawn(SmartPtr<figk::Design> const& built) : design(built) {
        figure = figrep::KernelToFigureFactory().CreateFigure();
        for (auto const& sheet : design->GetSheets()) {
            figrep::FigureSheetDeltaGenerator generator(sheet);
            figure->GenerateDeltas(generator);
        }
        figure->ApplyDeltas(false);
        figure->UpdateContent();
    }
    SmartPtr<figk::Design> design;
    SmartPtr<figrep::Figure> figure;
};

std::string Named(SmartPtr<AbstractFigureItem> const& item) {
    return item->GetTypeName() + " " + DisplayNameOf(*item);
}

Names NamesOf(Items const& items) {
    Names names;
    for (auto const& item : items)
        names.push_back(Named(item));
    return names;
}

Names NamesOf(std::vector<Picker::Hit> const& hits) {
    Names names;
    for (Picker::Hit const& hit : hits)
        names.push_back(Named(hit.item));
    return names;
}

// Two wires that cross, a block around one of their ends, a text beside.
Drawing Small() {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 20, 0).Wire("B", 10, -10, 10, 10).Wire("D", 40, 0, 60, 20);
    drawing.Box("U1", 20, -5, 30, 5).Pin("A", "U1", "1", 20, 0);
    drawing.Text("note", 0, 20);
    return drawing;
}

TEST(Picker, TheNearestComesFirst) {
    Drawn const drawn(Small());
    Picker picker(drawn.figure);
    auto const hits = picker.At({10.3, 0.1}, 0.5);
    EXPECT_EQ(NamesOf(hits), (Names{"NetSegment A", "NetSegment B"}));
    EXPECT_NEAR(hits.at(0).distance, 0.1, 1e-9);
    EXPECT_NEAR(hits.at(1).distance, 0.3, 1e-9);
    EXPECT_EQ(NamesOf(picker.At({10.1, 0.3}, 0.5)), (Names{"NetSegment B", "NetSegment A"}));
}

TEST(Picker, NothingBeyondTheToleranceIsHit) {
    Drawn const drawn(Small());
    Picker picker(drawn.figure);
    EXPECT_TRUE(picker.At({5, 0.6}, 0.5).empty());
    EXPECT_EQ(picker.At({5, 0.6}, 0.7).size(), 1u);
    EXPECT_EQ(picker.At({5, 0}, 0).size(), 1u);
    EXPECT_EQ(picker.At({5, 0}, -1).size(), 1u) << "as a tolerance of 0";
}

TEST(Picker, ASlantedWireIsHitOnItsLineAndNotInItsBox) {
    Drawn const drawn(Small());
    Picker picker(drawn.figure);
    EXPECT_EQ(NamesOf(picker.At({50, 10}, 0.1)), Names{"NetSegment D"});
    EXPECT_TRUE(picker.At({58, 2}, 0.5).empty());
    EXPECT_TRUE(picker.Touching({55, 1, 59, 5}).empty());
}

TEST(Picker, APointInAnEmptyBlockHitsTheBlockLast) {
    Drawn const drawn(Small());
    Picker picker(drawn.figure);
    auto const inside = picker.At({25, 3}, 0.1);
    ASSERT_FALSE(inside.empty());
    EXPECT_EQ(Named(inside.back().item), "BlockInstance U1");
    EXPECT_TRUE(inside.back().isAround);
    auto const edge = picker.At({25, 5}, 0.1);
    ASSERT_FALSE(edge.empty());
    EXPECT_FALSE(edge.front().isAround);
}

TEST(Picker, AWindowTakesWholeNets) {
    Drawing drawing;
    drawing.Wire("A", 0, 0, 10, 0).Wire("A", 10, 0, 10, 10).Wire("B", 2, 2, 4, 2);
    Drawn const drawn(drawing);
    Picker picker(drawn.figure);
    EXPECT_EQ(NamesOf(picker.Inside({-1, -1, 11, 5})), Names{"NetSegment B"})
        << "a part of net A is outside";
    Names const all = NamesOf(picker.Inside({-1, -1, 11, 11}));
    EXPECT_EQ(std::count(all.begin(), all.end(), "NetSegment A"), 2);
    Names const touched = NamesOf(picker.Touching({-1, -1, 5, 1}));
    EXPECT_EQ(touched, Names{"NetSegment A"});
}

TEST(Picker, AWindowTakesWholeHighwaysWithoutTurningThemUnderAWalk) {
    Drawing drawing;
    drawing.Bus("H", 0, 0, 20, 0).Tap("A", "H", 5, 0, 5, 2).Wire("A", 5, 2, 5, 10);
    drawing.Tap("A", "H", 15, 0, 15, 2).Wire("A", 15, 2, 15, 10);
    Drawn const drawn(drawing);
    Picker picker(drawn.figure);
    Names const all = NamesOf(picker.Inside({-1, -1, 21, 11}));
    EXPECT_GE(std::count(all.begin(), all.end(), "HighwaySegment H"), 1);
    EXPECT_GE(std::count(all.begin(), all.end(), "NetSegment A"), 2);
    Names const cut = NamesOf(picker.Inside({-1, -1, 18, 11}));
    EXPECT_EQ(std::count(cut.begin(), cut.end(), "HighwaySegment H"), 0) << "its end is outside";
    EXPECT_GE(std::count(cut.begin(), cut.end(), "NetSegment A"), 2) << "its part of it is inside";
}

TEST(Picker, WhatIsHiddenIsNotPicked) {
    Drawn const drawn(Small());
    drawn.figure->HideItems({drawn.figure->GetSubNets().at(0)}, nullptr);
    std::string const hidden = drawn.figure->GetSubNets().at(0)->GetName();
    for (auto const& hit : Picker(drawn.figure).At({10, 0}, 0.5))
        EXPECT_NE(hit.item->GetName(), hidden);
    drawn.figure->UnHideItems({drawn.figure->GetSubNets().at(0)}, nullptr);
    EXPECT_EQ(Picker(drawn.figure).At({10, 0}, 0.5).size(), 2u);
    for (auto const& subNet : drawn.figure->GetSubNets())
        subNet->SetVisibility(false);
    EXPECT_TRUE(Picker(drawn.figure).At({10, 0}, 0.5).empty());
}

TEST(Picker, NothingThatIsNoNumberHitsAnything) {
    Drawn const drawn(Small());
    Picker picker(drawn.figure);
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const infinity = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(picker.At({nan, 0}, 0.5).empty());
    EXPECT_TRUE(picker.At({0, 0}, nan).empty());
    EXPECT_TRUE(picker.At({0, 0}, infinity).empty());
    EXPECT_TRUE(picker.Inside({0, 0, nan, 1}).empty());
    EXPECT_TRUE(picker.Touching(dg::DBox2D::EMPTY).empty());
    Picker nothing(nullptr);
    EXPECT_TRUE(nothing.At({0, 0}, 1).empty());
    EXPECT_TRUE(nothing.Inside({0, 0, 1, 1}).empty());
    EXPECT_TRUE(nothing.Touching({0, 0, 1, 1}).empty());
    EXPECT_TRUE(Picker(figrep::KernelToFigureFactory().CreateFigure()).At({0, 0}, 1).empty());
}

bool Holds(Items const& items, SmartPtr<AbstractFigureItem> const& item) {
    return std::find(items.begin(), items.end(), item) != items.end();
}

// Every wire is hit in its middle, every block in the middle of its body, and a window around the
// sheet takes them all.
void ExpectEverythingCanBePicked(SessionSheet const& sheet) {
    Items wires, blocks;
    ForEachItem(sheet.figure, [&](SmartPtr<AbstractFigureItem> const& item) {
        if (du::DynamicCast<figrep::Segment>(item)) wires.push_back(item);
        if (du::DynamicCast<figrep::BlockInstance>(item)) blocks.push_back(item);
    });
    Picker picker(sheet.figure);
    Items const inside = picker.Inside({-1e5, -1e5, 1e5, 1e5});
    Items const touching = picker.Touching({-1e5, -1e5, 1e5, 1e5});
    for (auto const& wire : wires) {
        dg::DPoint2D start, end;
        du::DynamicCast<figrep::Segment>(wire)->GetEnds(start, end);
        Items hit;
        for (auto const& found : picker.At({(start.x + end.x) / 2, (start.y + end.y) / 2}, 0.01))
            hit.push_back(found.item);
        EXPECT_TRUE(Holds(hit, wire)) << sheet.path << " " << wire->GetId().GetString();
        EXPECT_TRUE(Holds(inside, wire)) << sheet.path << " " << wire->GetId().GetString();
        EXPECT_TRUE(Holds(touching, wire)) << sheet.path << " " << wire->GetId().GetString();
    }
    for (auto const& block : blocks) {
        if (du::DynamicCast<figrep::BlockInstance>(block)->IsEmpty()) continue;
        EXPECT_TRUE(Holds(inside, block)) << sheet.path << " " << block->GetName();
        EXPECT_TRUE(Holds(touching, block)) << sheet.path << " " << block->GetName();
    }
}

// A wire as a scan sees it.
struct ScannedWire {
    AbstractFigureItem const* item;
    dg::DPoint2D from, to;
    AbstractFigureItem const* whole;  // its net or highway
};

dg::DPoint2D Between(ScannedWire const& wire, double share) {
    return {wire.from.x + (wire.to.x - wire.from.x) * share,
            wire.from.y + (wire.to.y - wire.from.y) * share};
}

double DistanceTo(ScannedWire const& wire, dg::DPoint2D const& point) {
    double const dx = wire.to.x - wire.from.x;
    double const dy = wire.to.y - wire.from.y;
    double const along = (point.x - wire.from.x) * dx + (point.y - wire.from.y) * dy;
    auto const nearest = Between(wire, std::clamp(along / (dx * dx + dy * dy), 0.0, 1.0));
    return std::hypot(point.x - nearest.x, point.y - nearest.y);
}

bool IsIn(dg::DPoint2D const& point, dg::DBox2D const& box) {
    return point.x >= box.XMin() && point.x <= box.XMax() && point.y >= box.YMin() &&
           point.y <= box.YMax();
}

// Cuts the wire down to what lies between the sides of the window, one pair after the other.
bool Crosses(ScannedWire const& wire, dg::DBox2D const& box) {
    double first = 0;
    double last = 1;
    auto const cut = [&](double from, double to, double low, double high) {
        if (from == to) return from >= low && from <= high;
        double const a = (low - from) / (to - from);
        double const b = (high - from) / (to - from);
        first = std::max(first, std::min(a, b));
        last = std::min(last, std::max(a, b));
        return first <= last;
    };
    return cut(wire.from.x, wire.to.x, box.XMin(), box.XMax()) &&
           cut(wire.from.y, wire.to.y, box.YMin(), box.YMax());
}

class ScannedFigure {
public:
    explicit ScannedFigure(SmartPtr<figrep::Figure> const& figure) {
        ForEachItem(figure, [&](SmartPtr<AbstractFigureItem> const& item) {
            if (auto const piece = du::DynamicCast<figrep::NetSegment>(item)) {
                Add(*piece, piece->GetSubNet().Get());
            } else if (auto const part = du::DynamicCast<figrep::HighwaySegment>(item)) {
                Add(*part, part->GetSubHighway().Get());
                for (auto const& subNet : part->GetSubNets())
                    alongHighways_.push_back({part.Get(), subNet.Get()});
            }
        });
    }

    std::vector<ScannedWire> wires;

    // Whether all of the wire's net is in the window, and of the highways what the net runs along.
    bool IsWholeIn(ScannedWire const& wire, dg::DBox2D const& box) const {
        return std::all_of(wires.begin(), wires.end(), [&](ScannedWire const& other) {
            bool const belongs =
                other.whole == wire.whole ||
                std::find(alongHighways_.begin(), alongHighways_.end(),
                          std::pair(other.item, wire.whole)) != alongHighways_.end();
            return !belongs || (IsIn(other.from, box) && IsIn(other.to, box));
        });
    }

private:
    void Add(figrep::Segment const& segment, AbstractFigureItem const* whole) {
        ScannedWire wire{&segment, {}, {}, whole};
        segment.GetEnds(wire.from, wire.to);
        wires.push_back(wire);
    }

    std::vector<std::pair<AbstractFigureItem const*, AbstractFigureItem const*>> alongHighways_;
};

template <class Test>
std::set<AbstractFigureItem const*> Scan(ScannedFigure const& scanned, Test const& test) {
    std::set<AbstractFigureItem const*> found;
    for (ScannedWire const& wire : scanned.wires) {
        bool const isPoint = wire.from == wire.to;  // nothing that a user sees
        if (!isPoint && test(wire)) found.insert(wire.item);
    }
    return found;
}

std::set<AbstractFigureItem const*> WiresAmong(Items const& items) {
    std::set<AbstractFigureItem const*> wires;
    for (auto const& item : items) {
        auto const segment = du::DynamicCast<figrep::Segment>(item);
        dg::DPoint2D from, to;
        if (segment) segment->GetEnds(from, to);
        if (segment && !(from == to)) wires.insert(item.Get());
    }
    return wires;
}

TEST(Picker, FindsTheWiresThatAScanOfAllOfThemFinds) {
    std::size_t at = 0, touching = 0, inside = 0;
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE(seed);
        Drawn const drawn(figrep::test::GenerateTangle(seed));
        ScannedFigure const scanned(drawn.figure);
        dg::DBox2D const all = drawn.figure->GetExtents();
        figrep::test::Random random(seed);
        auto const somewhere = [&](double more) {
            double const x = random.Unit() * (1 + 2 * more) - more;
            double const y = random.Unit() * (1 + 2 * more) - more;
            return dg::DPoint2D(all.XMin() + x * all.Size().x, all.YMin() + y * all.Size().y);
        };
        Picker picker(drawn.figure);
        for (int i = 0; i < 20; ++i) {
            auto const point = somewhere(0);
            double const tolerance = random.Unit() * all.Size().x / 20;
            Items hit;
            for (auto const& found : picker.At(point, tolerance))
                hit.push_back(found.item);
            EXPECT_EQ(WiresAmong(hit), Scan(scanned, [&](ScannedWire const& wire) {
                          return DistanceTo(wire, point) <= tolerance;
                      }));
            at += WiresAmong(hit).size();
            dg::DBox2D const window{somewhere(0.4), somewhere(0.4)};
            auto const touched = WiresAmong(picker.Touching(window));
            EXPECT_EQ(touched, Scan(scanned, [&](ScannedWire const& wire) {
                          return Crosses(wire, window);
                      }));
            touching += touched.size();
            auto const whole = WiresAmong(picker.Inside(window));
            EXPECT_EQ(whole, Scan(scanned, [&](ScannedWire const& wire) {
                          return scanned.IsWholeIn(wire, window);
                      }));
            inside += whole.size();
        }
    }
    EXPECT_GT(at, 50u);
    EXPECT_GT(touching, 1000u);
    EXPECT_GT(inside, 100u);
}

TEST(Picker, EverythingOfTheExampleCanBePicked) {
    auto const session = test::OpenExample();
    ASSERT_TRUE(session);
    for (SessionSheet const& sheet : session->GetSheets())
        ExpectEverythingCanBePicked(sheet);
}

TEST(Picker, EverythingOfARealDesignCanBePicked) {
    SKIP_WITHOUT_CORPUS();
    for (std::string const& root : corpus::RootSheets()) {
        if (root.find("glasgow-revc-v8") == std::string::npos) continue;
        auto const session = test::OpenDesign(root);
        ASSERT_TRUE(session);
        for (SessionSheet const& sheet : session->GetSheets())
            ExpectEverythingCanBePicked(sheet);
    }
}

TEST(Picker, AFigureCanBeHiddenAwayCompletely) {
    auto const session = test::OpenExample();
    ASSERT_TRUE(session);
    SessionSheet const& sheet = *session->FindSheets("/Controller/").at(0);
    ASSERT_FALSE(ShowOnly(*session, {{"U2"}, {}}));
    for (auto const& item : Picker(sheet.figure).Touching({-1e5, -1e5, 1e5, 1e5})) {
        auto const type = item->GetType();
        bool const isFrame =
            type == AbstractFigureItem::ITEM_FORMAT || type == AbstractFigureItem::ITEM_TITLE_BLOCK;
        bool const isPartOfU2 = type == AbstractFigureItem::ITEM_BLOCK_INSTANCE ||
                                type == AbstractFigureItem::ITEM_CONNECTOR_INSTANCE ||
                                type == AbstractFigureItem::ITEM_TEXT_GRAPHIC;
        EXPECT_TRUE(isFrame || isPartOfU2) << Named(item);
    }
}

}  // namespace
}  // namespace fighost
