// However often the pictures were brought up to date in between, they are those of a figure that
// saw the same edits before its first picture.
#include <figk/ArrowStyle.h>
#include <figk/Design.h>
#include <figk/SchematicKernel.h>
#include <figk/SettingValue.h>
#include <figk/Sheet.h>
#include <figk/Zv2dGraphics.h>
#include <figkernel/DesignBuilder.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/CrossingPoint.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/GenericGraphic.h>
#include <figrep/HighwaySegment.h>
#include <figrep/NetSegment.h>
#include <figrep/PickGraphicProxy.h>
#include <figrep/Setting.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <support/GeneratedDesign.h>
#include <support/Random.h>
#include <zv2d/CircularArc.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>
#include <zv2d/TexPolyline.h>

#include <gtest/gtest.h>

#include <functional>
#include <numbers>
#include <sstream>

namespace figrep {

namespace {

/// Writes polylines and arcs with all digits.
class ShapeWriter : public zv2d::EntityVisitor {
public:
    ShapeWriter(std::ostream& out, DMat33 const& matrix) : out_(out), matrix_(matrix) {}

    void Visit(zv2d::TexPolyline const& line) override {
        out_ << " line";
        for (auto const& vertex : line.GetVertices())
            Write(vertex);
    }
    void Visit(zv2d::CircularArc const& arc) override {
        out_ << " arc " << arc.GetArc().GetRadius() << ' ' << arc.GetArc().GetStartAngle();
        Write(arc.GetArc().GetCentre());
    }
    using zv2d::EntityVisitor::Visit;

private:
    void Write(DPoint2D const& point) {
        DPoint2D const at = matrix_ * point;
        out_ << " (" << at.x << ' ' << at.y << ')';
    }

    std::ostream& out_;
    DMat33 matrix_;
};

/// Everything that the wires of a figure show, in the order of a walk.
class PictureWriter : public AbstractFigureVisitor {
public:
    static std::string Write(SmartPtr<Figure> const& figure) {
        PictureWriter writer;
        writer.out_.precision(17);
        figure->Accept(writer);
        return writer.out_.str();
    }

    bool Visit(SmartPtr<SubNet> const& item) override { return Line("net", item->GetId()); }
    bool Visit(SmartPtr<SubHighway> const& item) override { return Line("bus", item->GetId()); }
    bool Visit(SmartPtr<NetSegment> const& item) override { return WriteSegment(*item); }
    bool Visit(SmartPtr<HighwaySegment> const& item) override { return WriteSegment(*item); }
    bool Visit(SmartPtr<PickGraphicProxy> const& proxy) override {
        DBox2D const box = proxy->GetExtents();
        out_ << "  pick " << box[0] << ' ' << box[1] << ' ' << box[2] << ' ' << box[3] << '\n';
        return true;
    }
    bool Visit(SmartPtr<GenericGraphic> const& graphic) override {
        out_ << "  graphic";
        auto const picture = graphic->GetZv2dGraphics();
        if (!picture) return true;
        for (auto const& instance : picture->GetInstances()) {
            ShapeWriter shapes(out_, instance->GetMatrix());
            for (auto const& entity : *instance->GetDefinition())
                entity->Accept(shapes);
        }
        out_ << '\n';
        return true;
    }
    using AbstractFigureVisitor::Visit;

private:
    bool Line(char const* kind, Symbol const& id) {
        out_ << kind << ' ' << id.GetString() << '\n';
        return true;
    }
    bool WriteSegment(Segment const& segment) {
        Line(" wire", segment.GetId());
        std::vector<SmartPtr<CrossingPoint>> crossings;
        segment.GetCrossingPoints(crossings);
        for (auto const& crossing : crossings) {
            auto const other = crossing->GetOtherSegment(&segment);
            out_ << "  crosses " << other->GetId().GetString() << '\n';
        }
        return true;
    }

    std::ostringstream out_;
};

/// One edit that can be done on any figure of the sheet.
using Edit = std::function<void(SmartPtr<Figure> const&)>;

template <class Value>
ConstSmartPtr<Setting> MakeSetting(Setting::RepKey key, Value const& value) {
    ConstSmartPtr<figk::BaseSettingValue> const holder(new figk::SettingValue<Value>(value));
    return new Setting(key, holder, figk::Setting::LEVEL_FIGURE, true);
}

ConstSmartPtr<Setting> MakeWidth(float width) {
    ConstSmartPtr<zv2d::LineAttributes> const line(new zv2d::LineAttributes(
        1, 2, zv2d::LineStyleList::GetDefault(), width, zv2d::LineAttributes::KIND_DRAWING, 0.0F,
        zv2d::LineAttributes::KIND_DRAWING, Color::BLACK, Color::BLACK));
    return MakeSetting(Setting::LINE_ATTRIBUTES, line);
}

class Editor {
public:
    Editor(std::uint64_t seed, SmartPtr<Figure> const& figure) : random_(seed) {
        for (auto const& subNet : figure->GetSubNets())
            wires_.push_back(subNet->GetId());
        for (auto const& subHighway : figure->GetSubHighways()) {
            wires_.push_back(subHighway->GetId());
        }
        shape_ = new zv2d::Definition;
        shape_->Add(new zv2d::TexPolyline(std::vector<DPoint2D>{{0, 0}, {-1, 1}}));
    }

    bool HasWires() const { return !wires_.empty(); }

    Edit Next() {
        Symbol const id = wires_[random_.Below(wires_.size())];
        switch (random_.Below(8)) {
            case 0:
            case 1:
            case 2:
                return Move(id);
            case 3:
                return Turn(id);
            case 4:
                return ForItem(id, MakeSetting(Setting::TOP_SEGMENT_VERTICAL, random_.OneIn(2)));
            case 5:
                return ForItem(id, MakeSetting(Setting::ARROW_STYLE, NextArrow()));
            case 6:
                return ForItem(id, MakeWidth(static_cast<float>(random_.Below(3)) * 0.5F));
            default:
                return ForFigure();
        }
    }

private:
    Edit Move(Symbol const& id) {
        double const dx = (static_cast<double>(random_.Below(9)) - 4.0) * 1.27;
        double const dy = (static_cast<double>(random_.Below(9)) - 4.0) * 1.27;
        return [=](SmartPtr<Figure> const& figure) { figure->MoveItem(figure->Find(id), dx, dy); };
    }
    Edit Turn(Symbol const& id) {
        bool const mirror = random_.OneIn(2);
        return [=](SmartPtr<Figure> const& figure) {
            auto const item = figure->Find(id);
            if (mirror) {
                figure->MirrorItem(item, DPoint2D(10, 10), true);
            } else {
                figure->RotateItem(item, DPoint2D(10, 10), std::numbers::pi / 2);
            }
        };
    }
    static Edit ForItem(Symbol const& id, ConstSmartPtr<Setting> const& setting) {
        return [=](SmartPtr<Figure> const& figure) {
            figure->AddItemSetting(figure->Find(id), setting, false);
        };
    }
    Edit ForFigure() {
        auto const style = static_cast<figk::CrossingPointStyle>(random_.Below(3));
        auto const setting = MakeSetting(Setting::CROSSING_POINT_STYLE, style);
        return [=](SmartPtr<Figure> const& figure) { figure->AddSetting(setting, false); };
    }
    figk::ArrowStyle NextArrow() {
        auto const pattern = static_cast<figk::ArrowStyle::PatternType>(random_.Below(4));
        return figk::ArrowStyle(pattern, random_.OneIn(2) ? 0.5 : 3.0, shape_, nullptr, false);
    }

    test::Random random_;
    std::vector<Symbol> wires_;
    SmartPtr<zv2d::Definition> shape_;
};

SmartPtr<Figure> LoadedFigure(SmartPtr<figk::Sheet> const& sheet) {
    SmartPtr<Figure> figure(new Figure);
    SmartPtr<FigureSheetDeltaGenerator> const generator(new FigureSheetDeltaGenerator(sheet));
    figure->GenerateDeltas(*generator);
    figure->ApplyDeltas(false);
    return figure;
}

/// Edits a figure with updates in between, and a second one without, and compares the pictures.
void ComparePictures(figkernel::DesignSource const& source, std::uint64_t seed) {
    auto const design = figkernel::Build(source, figk::SchematicKernel::GetKernelLock()).design;
    auto const sheet = design->GetSheets().at(0);
    auto const edited = LoadedFigure(sheet);
    Editor editor(seed, edited);
    if (!editor.HasWires()) return;
    std::vector<Edit> edits;
    for (int round = 0; round < 5; ++round) {
        edited->UpdateContent();
        for (int i = 0; i < 4; ++i) {
            edits.push_back(editor.Next());
            edits.back()(edited);
        }
    }
    edited->UpdateContent();
    auto const fresh = LoadedFigure(sheet);
    for (auto const& edit : edits)
        edit(fresh);
    fresh->UpdateContent();
    ASSERT_EQ(PictureWriter::Write(edited), PictureWriter::Write(fresh)) << "seed " << seed;
}

}  // namespace

TEST(Pictures, OfATangleDoNotDependOnUpdatesInBetween) {
    for (std::uint64_t seed = 1; seed <= 120; ++seed) {
        ComparePictures(test::GenerateTangle(seed), seed);
        if (HasFatalFailure()) return;
    }
}

TEST(Pictures, OfASchematicDoNotDependOnUpdatesInBetween) {
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
        test::GridOptions options;
        options.seed = seed;
        options.segments = 300;
        ComparePictures(test::GenerateGrid(options), seed);
        if (HasFatalFailure()) return;
    }
}

}  // namespace figrep
