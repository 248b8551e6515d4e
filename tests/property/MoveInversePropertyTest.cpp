// Every move followed by its inverse brings each point of the figure back to where it was.
#include <figk/Design.h>
#include <figk/Format.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figk/TitleBlock.h>
#include <figk/Zv2dGraphics.h>
#include <figkernel/DesignBuilder.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwaySegment.h>
#include <figrep/MirrorAction.h>
#include <figrep/NetSegment.h>
#include <figrep/PortNode.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TableInstance.h>
#include <figrep/TextGraphic.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockGraphicsGenerator.h>
#include <figrep/TransformAction.h>
#include <figrep/UnroutedConnection.h>
#include <support/FindableItems.h>
#include <support/GeneratedDesign.h>
#include <support/InverseMove.h>
#include <support/Random.h>
#include <support/RandomEdits.h>
#include <zv2d/CircularArc.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>
#include <zv2d/TexPolyline.h>
#include <zv2d/Text.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace figrep {

namespace {

using Points = std::vector<DPoint2D>;
using Item = AbstractFigureItem;

/// The points of a picture, each where it is drawn.
class ShapePoints : public zv2d::EntityVisitor {
public:
    ShapePoints(Points& points, DMat33 const& matrix) : points_(points), matrix_(matrix) {}

    void Visit(zv2d::TexPolyline const& line) override {
        for (auto const& vertex : line.GetVertices())
            Add(vertex);
    }
    void Visit(zv2d::CircularArc const& arc) override { Add(arc.GetArc().GetCentre()); }
    // A text has a direction, too.
    void Visit(zv2d::Text const& text) override {
        Add(text.GetPosition());
        Add(text.GetPosition() + DVec2(1, 0));
        Add(text.GetPosition() + DVec2(0, 1));
    }
    using zv2d::EntityVisitor::Visit;

private:
    void Add(DPoint2D const& point) { points_.push_back(matrix_ * point); }

    Points& points_;
    DMat33 matrix_;
};

/// All points of a figure in the order of a walk, and the types of the items that have one.
class PointCollector : public AbstractFigureVisitor {
public:
    Points points;
    std::vector<std::string> owners;  // of the points, by type and id
    std::set<int> types;

    using AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<NetSegment> const& item) override { return AddWire(*item); }
    bool Visit(SmartPtr<HighwaySegment> const& item) override { return AddWire(*item); }
    bool Visit(SmartPtr<UnroutedConnection> const& item) override { return AddWire(*item); }
    bool Visit(SmartPtr<PortNode> const& item) override { return Add(*item, item->GetPosition()); }
    bool Visit(SmartPtr<ConnectorInstance> const& item) override {
        return Add(*item, item->GetPosition());
    }
    bool Visit(SmartPtr<Format> const& item) override { return Add(*item, item->GetPosition()); }
    bool Visit(SmartPtr<TitleBlock> const& item) override { return AddBox(*item); }
    bool Visit(SmartPtr<GenericGraphic> const& item) override { return AddPicture(*item); }
    bool Visit(SmartPtr<TextGraphic> const& item) override { return AddPicture(*item); }

private:
    bool Add(AbstractFigureItem const& item, DPoint2D const& point) {
        types.insert(item.GetType());
        points.push_back(point);
        owners.push_back(NameOf(item));
        return true;
    }
    static std::string NameOf(AbstractFigureItem const& item) {
        return std::to_string(item.GetType()) + " " + item.GetId().GetString();
    }
    bool AddWire(Segment const& wire) {
        DPoint2D start;
        DPoint2D end;
        wire.GetEnds(start, end);
        return Add(wire, start) && Add(wire, end);
    }
    bool AddBox(AbstractFigureItem& item) {
        DBox2D const box = item.GetExtents();
        if (box == DBox2D::EMPTY) return true;
        return Add(item, {box[0], box[1]}) && Add(item, {box[2], box[3]});
    }
    bool AddPicture(BaseGraphic const& graphic) {
        auto const picture = graphic.GetZv2dGraphics();
        if (!picture) return true;
        types.insert(graphic.GetType());
        for (auto const& instance : picture->GetInstances()) {
            ShapePoints shapes(points, instance->GetMatrix());
            for (auto const& entity : *instance->GetDefinition())
                entity->Accept(shapes);
        }
        owners.resize(points.size(), NameOf(graphic));
        return true;
    }
};

Points PointsOf(SmartPtr<Figure> const& figure) {
    PointCollector collector;
    figure->Accept(collector);
    return collector.points;
}

/// The largest coordinate, at least 1.
double ReachOf(Points const& points) {
    double reach = 1;
    for (auto const& point : points)
        reach = std::max({reach, std::abs(point.x), std::abs(point.y)});
    return reach;
}

struct Distance {
    double value = 0;
    std::size_t at = 0;
};

Distance GreatestDistance(Points const& a, Points const& b) {
    Distance greatest;
    for (std::size_t i = 0; i < a.size(); ++i) {
        double const distance = (b[i] - a[i]).Norm();
        if (!(distance <= greatest.value)) greatest = {distance, i};
    }
    return greatest;
}

std::string WordsOf(FigureMoveDelta const& move) {
    std::string words;
    for (auto const& transform : move.GetTransforms())
        words += " transform " + std::to_string(transform->GetType());
    for (auto const& item : move.GetItems())
        words += ", " + std::to_string(item->GetType()) + " " + item->GetId().GetString();
    return words;
}

/// Lays a title block out as a box at its format's place.
class BoxLayout : public TitleBlockGraphicsGenerator {
public:
    void GenerateGraphics(SmartPtr<TitleBlock> const& titleBlock) override {
        GenericGraphic::Create(titleBlock->GetLock(), BoxOf(*titleBlock), titleBlock);
    }
    void GenerateExtents(SmartPtr<TitleBlock> const& titleBlock) override {
        titleBlock->SetExtents(BoxOf(*titleBlock));
    }

private:
    static DBox2D BoxOf(TitleBlock const& titleBlock) {
        DPoint2D const at = titleBlock.GetFormat()->GetPosition();
        return DBox2D(at.x, at.y, at.x + 30, at.y + 10);
    }
};

class MoveInverse : public ::testing::Test {
protected:
    /// A sheet with something of every kind, wires that a move pulled apart and drawn ones.
    void Open(std::uint64_t seed) {
        test::GridOptions options;
        options.seed = seed;
        options.segments = 30;
        options.pinsPerSide = 2;
        options.blocksPerRow = 5;
        options.oddments = true;
        design_ =
            figkernel::Build(test::GenerateGrid(options), figk::SchematicKernel::GetKernelLock())
                .design;
        auto const sheet = design_->GetSheets().at(0);
        figure_ = new Figure();
        figure_->Receive(SmartPtr<Format>(new Format(figure_->GetLock(), sheet->GetFormat())));
        figure_->SetTitleBlockGraphicsGenerator(new BoxLayout());
        figure_->Receive(SmartPtr<TitleBlock>(
            new TitleBlock(figure_->GetLock(), sheet->GetTitleBlock(), nullptr)));
        SmartPtr<FigureSheetDeltaGenerator> const generator = new FigureSheetDeltaGenerator(sheet);
        figure_->GenerateDeltas(*generator);
        figure_->ApplyDeltas(false);
        test::RandomEdits edits(figure_, seed);
        edits.Edit(test::RandomEdits::PART);
        edits.Edit(test::RandomEdits::DRAW);
    }

    SmartPtr<FigureMoveDelta> SomeMove(test::Random& random) {
        auto items = test::FindableItems(figure_);
        random.Shuffle(items);
        items.resize(1 + random.Below(random.OneIn(3) ? items.size() : 4));
        // A port by itself isn't scaled, with its wire or the wire's cable it is; a list with both
        // has no inverse.
        bool const hasPorts = random.OneIn(2);
        items.erase(std::remove_if(items.begin(), items.end(),
                                   [&](auto const& item) {
                                       bool const isPort = item->GetType() == Item::ITEM_PORT_NODE;
                                       bool const isWire =
                                           item->GetType() == Item::ITEM_SUB_NET ||
                                           item->GetType() == Item::ITEM_CABLE_INSTANCE ||
                                           item->GetType() == Item::ITEM_SUB_HIGHWAY;
                                       return hasPorts ? isWire : isPort;
                                   }),
                    items.end());
        FigureMoveDelta::Transforms transforms;
        for (std::size_t i = random.Below(8); i > 0; --i)
            transforms.push_back(SomeTransform(random));
        DPoint2D const offset(random.Unit() * 200 - 100, random.Unit() * 200 - 100);
        return new FigureMoveDelta(items, transforms, offset, false);
    }

    SmartPtr<Figure> figure_;

private:
    static SmartPtr<TransformAction> SomeTransform(test::Random& random) {
        DPoint2D const about(random.Unit() * 100 - 50, random.Unit() * 100 - 50);
        switch (random.Below(3)) {
            case 0:
                return new MirrorAction(about, random.OneIn(2));
            case 1:
                return new RotateAction(about, random.Unit() * 7 - 3.5);
            default:
                return new ScaleAction(about, (random.Unit() + 0.4) * (random.OneIn(4) ? -1 : 1));
        }
    }

    SmartPtr<figk::Design> design_;
};

TEST_F(MoveInverse, ReturnsEveryPointOfEveryKindOfItem) {
    std::set<int> types;
    std::size_t moved = 0;
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        Open(seed);
        test::Random random(seed);
        for (int round = 0; round < 10; ++round) {
            auto const forward = SomeMove(random);
            PointCollector before;
            figure_->Accept(before);
            types.insert(before.types.begin(), before.types.end());
            ASSERT_TRUE(forward->Apply(*figure_));
            Points const there = PointsOf(figure_);
            ASSERT_TRUE(test::InverseOf(*forward)->Apply(*figure_));
            Points const back = PointsOf(figure_);
            ASSERT_EQ(back.size(), before.points.size());
            ASSERT_EQ(there.size(), before.points.size());
            if (GreatestDistance(before.points, there).value > 1e-3) ++moved;
            // What the transforms took far away, or near, comes back with so much less accuracy.
            double const rounding = 1e-10 * std::max(ReachOf(there), ReachOf(before.points)) * 100;
            Distance const off = GreatestDistance(before.points, back);
            ASSERT_LE(off.value, rounding) << before.owners[off.at] << ", seed " << seed
                                           << " round " << round << ":" << WordsOf(*forward);
        }
    }
    EXPECT_GT(moved, 300u);
    for (int const type :
         {Item::ITEM_CONNECTOR_INSTANCE, Item::ITEM_FORMAT, Item::ITEM_GENERIC_GRAPHIC,
          Item::ITEM_HIGHWAY_SEGMENT, Item::ITEM_NET_SEGMENT, Item::ITEM_PORT_NODE,
          Item::ITEM_TEXT_GRAPHIC, Item::ITEM_TITLE_BLOCK, Item::ITEM_UNROUTED_CONNECTION})
        EXPECT_TRUE(types.count(type)) << type;
}

}  // namespace

}  // namespace figrep
