#include <painters/PaintFigure.h>

#include <attrs/FillAttr.h>
#include <figk/SchematicKernel.h>
#include <figk/SettingValue.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figkernel/SchematicKernel.h>
#include <figrep/BlockInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/Setting.h>
#include <figrep/SubNet.h>
#include <gtest/gtest.h>
#include <host/XmlChecker.h>
#include <painters/EntityPainter.h>
#include <painters/SvgPainter.h>
#include <zv2d/Attributes.h>
#include <zv2d/CircularArc.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>
#include <zv2d/LineAttributes.h>
#include <zv2d/TexPolyline.h>
#include <zv2d/Text.h>
#include <map>
#include <numbers>

namespace fighost {
namespace {

using figrep::SmartPtr;

constexpr double PI = std::numbers::pi;

// Writes down what it is given, one line per call.
class RecordingPainter : public Painter {
public:
    struct Shape {
        std::string item;
        std::string kind;
        std::vector<dg::DPoint2D> points;
        Paint paint;
        PaintedText text;
    };

    void BeginSheet(PaintedSheet const& painted) override { sheet = painted; }
    void EndSheet() override { EXPECT_TRUE(current.empty()); }
    void BeginItem(PaintedItem const& item) override {
        EXPECT_TRUE(current.empty()) << "items don't nest";
        current = std::string(item.type) + " " + std::string(item.id);
        items.push_back(current);
        nets[current] = item.net;
        highlights[current] = item.highlighted;
    }
    void EndItem() override { current.clear(); }
    void Polyline(std::vector<dg::DPoint2D> const& points, bool, Paint const& paint) override {
        shapes.push_back({current, "line", points, paint, {}});
    }
    void Arc(dg::DPoint2D const& centre, double radius, double start, double end,
             Paint const& paint) override {
        shapes.push_back({current, "arc", {centre, {radius, 0}, {start, end}}, paint, {}});
    }
    void Text(PaintedText const& text) override {
        shapes.push_back({current, "text", {text.anchor}, {}, text});
    }
    void Picture(PaintedPicture const&) override {
        shapes.push_back({current, "picture", {}, {}, {}});
    }

    std::vector<Shape> Of(std::string const& kind) const {
        std::vector<Shape> found;
        for (Shape const& shape : shapes) {
            if (shape.kind == kind) found.push_back(shape);
        }
        return found;
    }

    PaintedSheet sheet;
    std::string current;
    std::vector<std::string> items;
    std::map<std::string, std::string> nets;
    std::map<std::string, bool> highlights;
    std::vector<Shape> shapes;
};

SmartPtr<zv2d::Instance> Shape(du::ConstSmartPtr<zv2d::Entity> const& entity,
                               dg::DMat33 const& matrix = {}) {
    SmartPtr<zv2d::Definition> definition(new zv2d::Definition());
    definition->Add(entity);
    return SmartPtr<zv2d::Instance>(new zv2d::Instance(definition, matrix));
}

SmartPtr<zv2d::Instance> LineShape(std::vector<dg::DPoint2D> points,
                                   du::ConstSmartPtr<zv2d::Attributes> const& attributes = nullptr,
                                   dg::DMat33 const& matrix = {}) {
    return Shape(SmartPtr<zv2d::TexPolyline>(new zv2d::TexPolyline(std::move(points), attributes)),
                 matrix);
}

SmartPtr<zv2d::Instance> TextShape(std::wstring words, zv2d::Text::Alignment alignment,
                                   dg::DMat33 const& matrix = {}, bool upright = true) {
    return Shape(
        SmartPtr<zv2d::Text>(new zv2d::Text({0, 0}, std::move(words), upright, alignment, true)),
        matrix);
}

figkernel::GraphicSource Graphic(char const* id, SmartPtr<zv2d::Instance> const& instance) {
    figkernel::GraphicSource graphic;
    graphic.id = id;
    graphic.instances.push_back(instance);
    return graphic;
}

// A sheet in a figure, and what a painter saw of it.
class PaintFigureTest : public testing::Test {
protected:
    void SetUp() override {
        kernel = SmartPtr<figkernel::SchematicKernel>(new figkernel::SchematicKernel());
        figk::SchematicKernel::SetSchematicKernel(kernel);
        source.id = source.name = "design";
        source.sheets.resize(1);
        source.sheets[0].id = source.sheets[0].name = "sheet";
    }
    void TearDown() override {
        figure = nullptr;
        if (design) kernel->RemoveDesign(design);
        design = nullptr;
        figk::SchematicKernel::SetSchematicKernel(nullptr);
    }

    figkernel::SheetSource& Sheet() { return source.sheets[0]; }

    void AddFree(SmartPtr<zv2d::Instance> const& instance) {
        Sheet().labels.graphics.push_back(Graphic("free", instance));
    }

    SmartPtr<figrep::Figure> Load() {
        design = figkernel::Build(source, figk::SchematicKernel::GetKernelLock()).design;
        kernel->AddDesign(design);
        figrep::KernelToFigureFactory factory;
        figure = factory.CreateFigure();
        figrep::FigureSheetDeltaGenerator generator(design->GetSheets().at(0));
        figure->GenerateDeltas(generator);
        figure->ApplyDeltas(false);
        figure->UpdateContent();
        return figure;
    }

    RecordingPainter Painted(PaintOptions const& options = {}) {
        if (!figure) Load();
        RecordingPainter painter;
        PaintFigure(figure, painter, options);
        return painter;
    }

    PaintedText PaintedTextWith(dg::DMat33 const& matrix, zv2d::Text::Alignment alignment) {
        AddFree(TextShape(L"ab", alignment, matrix));
        return Painted().Of("text").at(0).text;
    }

    SmartPtr<figkernel::SchematicKernel> kernel;
    figkernel::DesignSource source;
    SmartPtr<figk::Design> design;
    SmartPtr<figrep::Figure> figure;
};

TEST_F(PaintFigureTest, NullFigureIsAnEmptySheet) {
    RecordingPainter painter;
    PaintFigure(nullptr, painter);
    EXPECT_TRUE(painter.items.empty());
}

TEST_F(PaintFigureTest, WireIsPaintedOnceWithItsNet) {
    source.nets.push_back({"SDA", {}, figkernel::NO_INDEX});
    Sheet().wires.push_back({"w", 0, {0, 0}, {10, 0}});
    RecordingPainter const painter = Painted();
    ASSERT_EQ(painter.items.size(), 1u);
    EXPECT_EQ(painter.nets.at(painter.items[0]), "SDA");
    ASSERT_EQ(painter.shapes.size(), 1u);
    EXPECT_EQ(painter.shapes[0].points.size(), 2u);
}

TEST_F(PaintFigureTest, WireWithoutLineSettingsIsAHairline) {
    source.nets.push_back({"A", {}, figkernel::NO_INDEX});
    Sheet().wires.push_back({"w", 0, {0, 0}, {10, 0}});
    EXPECT_DOUBLE_EQ(Painted().Of("line").at(0).paint.stroke.width, 0.1524);
}

TEST_F(PaintFigureTest, EntitysOwnLineAttributesCountWhenTheirKindSaysSo) {
    auto attributes = [](float weight, int kind) {
        return zv2d::Attributes::Get(zv2d::Attributes(zv2d::LineAttributes(
            1, 2, nullptr, weight, kind, 0, 3, dg::Color::BLACK, dg::Color::BLACK)));
    };
    AddFree(LineShape({{0, 0}, {1, 0}}, attributes(0.5F, 3)));
    AddFree(LineShape({{0, 0}, {1, 0}}, attributes(0.7F, 4)));
    auto const lines = Painted().Of("line");
    EXPECT_NEAR(lines.at(0).paint.stroke.width, 0.5, 1e-6);
    EXPECT_DOUBLE_EQ(lines.at(1).paint.stroke.width, HAIRLINE);
}

TEST_F(PaintFigureTest, LinesWithoutLengthAreLeftOutAndRepeatedPointsAreOne) {
    AddFree(LineShape({{2, 3}, {2, 3}}));
    AddFree(LineShape({{0, 0}, {0, 0}, {1, 0}, {1, 0}}));
    auto const lines = Painted().Of("line");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].points.size(), 2u);
}

TEST_F(PaintFigureTest, OnlyEntitiesWithAFillAreFilled) {
    auto fill = [](int kind) {
        return zv2d::Attributes::Get(
            zv2d::Attributes(attrs::FillAttr(kind, dg::Color(1, 1, 0.5F))));
    };
    AddFree(LineShape({{0, 0}, {1, 0}, {1, 1}}));
    AddFree(LineShape({{0, 0}, {1, 0}, {1, 1}}, fill(attrs::FillAttr::NONE)));
    AddFree(LineShape({{0, 0}, {1, 0}, {1, 1}}, fill(attrs::FillAttr::BODY)));
    AddFree(LineShape({{0, 0}, {1, 0}, {1, 1}}, fill(attrs::FillAttr::OUTLINE)));
    auto const lines = Painted().Of("line");
    EXPECT_FALSE(lines.at(0).paint.fill.filled);
    EXPECT_FALSE(lines.at(1).paint.fill.filled);
    EXPECT_EQ(lines.at(2).paint.fill.color, dg::Color(1, 1, 0.5F));
    EXPECT_TRUE(lines.at(2).paint.fill.isArea);
    EXPECT_EQ(lines.at(3).paint.fill.color, lines.at(3).paint.stroke.color);
    EXPECT_FALSE(lines.at(3).paint.fill.isArea);
}

du::ConstSmartPtr<zv2d::Attributes> FilledWith(int kind, dg::Color const& color) {
    return zv2d::Attributes::Get(zv2d::Attributes(attrs::FillAttr(kind, color)));
}

// The colours of a body, of an area in a colour of its own and of one in that of its outline.
class FillSettingTest : public PaintFigureTest {
protected:
    void SetUp() override {
        PaintFigureTest::SetUp();
        for (int kind : {attrs::FillAttr::BODY, attrs::FillAttr::SOLID, attrs::FillAttr::OUTLINE})
            AddFree(LineShape({{0, 0}, {1, 0}, {1, 1}}, FilledWith(kind, dg::Color::YELLOW)));
    }

    std::vector<dg::Color> FillsWith(int kind) {
        Load();
        du::ConstSmartPtr<attrs::FillAttr> const fill(new attrs::FillAttr(kind, dg::Color::GREEN));
        SmartPtr<figk::BaseSettingValue> const value(
            new figk::SettingValue<du::ConstSmartPtr<attrs::FillAttr>>(fill));
        figure->AddSetting(
            SmartPtr<figrep::Setting>(new figrep::Setting(figrep::Setting::FILL_ATTRIBUTES, value,
                                                          figk::Setting::LEVEL_PROFILE, true)),
            false);
        std::vector<dg::Color> fills;
        for (auto const& shape : Painted().Of("line"))
            fills.push_back(shape.paint.fill.color);
        return fills;
    }

    using Colors = std::vector<dg::Color>;
};

TEST_F(FillSettingTest, BodyFillReplacesBodiesOnly) {
    EXPECT_EQ(FillsWith(attrs::FillAttr::BODY),
              (Colors{dg::Color::GREEN, dg::Color::YELLOW, dg::Color::BLACK}));
}

TEST_F(FillSettingTest, SolidFillLeavesWhatHasTheColourOfItsOutline) {
    EXPECT_EQ(FillsWith(attrs::FillAttr::SOLID),
              (Colors{dg::Color::GREEN, dg::Color::GREEN, dg::Color::BLACK}));
}

TEST_F(FillSettingTest, NoFillReplacesNothing) {
    EXPECT_EQ(FillsWith(attrs::FillAttr::NONE),
              (Colors{dg::Color::YELLOW, dg::Color::YELLOW, dg::Color::BLACK}));
}

TEST_F(PaintFigureTest, FillThatCannotBeSeenIsNone) {
    AddFree(LineShape({{0, 0}, {1, 0}, {1, 1}},
                      FilledWith(attrs::FillAttr::SOLID, dg::Color(1, 0, 0, 0))));
    EXPECT_FALSE(Painted().Of("line").at(0).paint.fill.filled);
}

TEST_F(PaintFigureTest, GroundComesFromTheFigure) {
    Load();
    EXPECT_EQ(Painted().sheet.background, dg::Color::WHITE);
    EXPECT_TRUE(Painted().sheet.paintBackground);
    for (float const opacity : {1.0F, 0.0F}) {
        dg::Color const ground(0.25F, 0, 0, opacity);
        SmartPtr<figk::BaseSettingValue> const value(new figk::SettingValue<dg::Color>(ground));
        figure->AddSetting(
            SmartPtr<figrep::Setting>(new figrep::Setting(figrep::Setting::BACKGROUND_COLOR, value,
                                                          figk::Setting::LEVEL_PROFILE, true)),
            false);
        EXPECT_EQ(Painted().sheet.background, ground);
        EXPECT_EQ(Painted().sheet.paintBackground, opacity > 0);
    }
}

TEST_F(PaintFigureTest, FilledEntityWithoutWidthHasNoOutline) {
    zv2d::LineAttributes const none(1, 2, nullptr, 0, 3, 0, 3, dg::Color::BLACK, dg::Color::BLACK);
    du::ConstSmartPtr<zv2d::LineAttributes> const line(new zv2d::LineAttributes(none));
    du::ConstSmartPtr<attrs::FillAttr> const fill(
        new attrs::FillAttr(attrs::FillAttr::BODY, dg::Color::YELLOW));
    AddFree(
        LineShape({{0, 0}, {1, 0}, {1, 1}}, zv2d::Attributes::Get(zv2d::Attributes(line, fill))));
    AddFree(LineShape({{0, 0}, {1, 0}}, zv2d::Attributes::Get(zv2d::Attributes(line))));
    auto const lines = Painted().Of("line");
    EXPECT_EQ(lines.at(0).paint.stroke.width, 0);
    EXPECT_DOUBLE_EQ(lines.at(1).paint.stroke.width, HAIRLINE);
}

TEST_F(PaintFigureTest, BodiesOfAnItemAreFilledBeforeItsOutlinesAreDrawn) {
    auto const body = zv2d::Attributes::Get(
        zv2d::Attributes(attrs::FillAttr(attrs::FillAttr::BODY, dg::Color::YELLOW)));
    figkernel::BlockSource block;
    block.id = block.name = "U1";
    block.graphics.graphics.push_back(Graphic("a", LineShape({{0, 0}, {9, 0}})));
    block.graphics.graphics.push_back(Graphic("b", LineShape({{0, 0}, {1, 0}, {1, 1}}, body)));
    Sheet().blocks.push_back(block);
    auto const lines = Painted().Of("line");
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_TRUE(lines[0].paint.fill.filled);
    EXPECT_EQ(lines[0].paint.stroke.width, 0);
    EXPECT_FALSE(lines[2].paint.fill.filled);
    EXPECT_GT(lines[2].paint.stroke.width, 0);
}

TEST_F(PaintFigureTest, HiddenItemIsLeftOut) {
    source.nets.push_back({"A", {}, figkernel::NO_INDEX});
    Sheet().wires.push_back({"w", 0, {0, 0}, {10, 0}});
    Load();
    figure->SetItemVisibility(figure->GetSubNets().at(0), false);
    figure->UpdateContent();
    EXPECT_TRUE(Painted().items.empty());
}

TEST_F(PaintFigureTest, HighlightedItemIsMarkedAndColoured) {
    source.nets.push_back({"A", {}, figkernel::NO_INDEX});
    Sheet().wires.push_back({"w", 0, {0, 0}, {10, 0}});
    Load();
    figure->SetItemHighlight(figure->GetSubNets().at(0), true);
    SmartPtr<figk::BaseSettingValue> const red(new figk::SettingValue<dg::Color>(dg::Color::RED));
    figure->AddSetting(
        SmartPtr<figrep::Setting>(new figrep::Setting(figrep::Setting::SELECTION_HIGHLIGHT_COLOR,
                                                      red, figk::Setting::LEVEL_PROFILE, true)),
        false);
    RecordingPainter const painter = Painted();
    EXPECT_TRUE(painter.highlights.at(painter.items.at(0)));
    EXPECT_EQ(painter.Of("line").at(0).paint.stroke.color, dg::Color::RED);
}

TEST_F(PaintFigureTest, DimmedFigureIsPaintedTowardsTheBackground) {
    source.nets.push_back({"A", {}, figkernel::NO_INDEX});
    Sheet().wires.push_back({"w", 0, {0, 0}, {10, 0}});
    Load();
    SmartPtr<figk::BaseSettingValue> const on(new figk::SettingValue<bool>(true));
    figure->AddSetting(SmartPtr<figrep::Setting>(new figrep::Setting(
                           figrep::Setting::DIM, on, figk::Setting::LEVEL_FIGURE, true)),
                       false);
    EXPECT_EQ(Painted().Of("line").at(0).paint.stroke.color, dg::Color(0.75F, 0.75F, 0.75F));
}

TEST_F(PaintFigureTest, BlocksComeBeforePinsAndPinsBeforeWires) {
    source.nets.push_back({"A", {}, figkernel::NO_INDEX});
    Sheet().wires.push_back({"w", 0, {0, 0}, {10, 0}});
    figkernel::BlockSource block;
    block.id = block.name = "U1";
    block.graphics.graphics.push_back(Graphic("body", LineShape({{-5, 0}, {-5, 5}})));
    figkernel::PinSource pin;
    pin.id = pin.name = "1";
    pin.net = 0;
    pin.graphics.graphics.push_back(Graphic("line", LineShape({{-5, 0}, {0, 0}})));
    block.pins.push_back(pin);
    Sheet().blocks.push_back(block);
    RecordingPainter const painter = Painted();
    ASSERT_EQ(painter.items.size(), 3u);
    EXPECT_EQ(painter.items[0].substr(0, 13), "BlockInstance");
    EXPECT_EQ(painter.items[1].substr(0, 17), "ConnectorInstance");
    EXPECT_EQ(painter.items[2].substr(0, 10), "NetSegment");
    EXPECT_EQ(painter.nets.at(painter.items[1]), "A");
}

TEST_F(PaintFigureTest, FreeTextsComeLast) {
    figkernel::TextSource text;
    text.id = "t";
    text.text = "note";
    text.instance = TextShape(L"note", zv2d::Text::BOTTOM_LEFT);
    Sheet().labels.texts.push_back(text);
    figkernel::BlockSource block;
    block.id = block.name = "U1";
    block.graphics.graphics.push_back(Graphic("body", LineShape({{-5, 0}, {-5, 5}})));
    Sheet().blocks.push_back(block);
    RecordingPainter const painter = Painted();
    ASSERT_EQ(painter.items.size(), 2u);
    EXPECT_EQ(painter.items[1].substr(0, 11), "TextGraphic");
}

TEST_F(PaintFigureTest, CrossingArcIsPaintedWithTheWire) {
    source.nets.push_back({"A", {}, figkernel::NO_INDEX});
    source.nets.push_back({"B", {}, figkernel::NO_INDEX});
    Sheet().wires.push_back({"a", 0, {0, 0}, {20, 0}});
    Sheet().wires.push_back({"b", 1, {10, -10}, {10, 10}});
    Load();
    SmartPtr<figk::BaseSettingValue> const arc(
        new figk::SettingValue<figk::CrossingPointStyle>(figk::CROSSING_ARC));
    figure->AddSetting(
        SmartPtr<figrep::Setting>(new figrep::Setting(figrep::Setting::CROSSING_POINT_STYLE, arc,
                                                      figk::Setting::LEVEL_PROFILE, true)),
        false);
    figure->UpdateContent();
    RecordingPainter const painter = Painted();
    ASSERT_EQ(painter.Of("arc").size(), 1u);
    EXPECT_EQ(painter.Of("line").size(), 3u) << "one wire is broken in two";
}

TEST_F(PaintFigureTest, UprightTextIsTurnedWhereItWouldReadUpsideDown) {
    PaintedText const text = PaintedTextWith(dg::DMat33::RotationZ(PI), zv2d::Text::BOTTOM_LEFT);
    EXPECT_NEAR(text.angle, 0, 1e-9);
    EXPECT_NEAR(text.layout.runs.at(0).x + text.layout.runs.at(0).width, 0, 1e-9)
        << "it still ends where it began";
    EXPECT_LT(text.layout.runs.at(0).y, 0);
}

TEST_F(PaintFigureTest, VerticalTextReadsFromBelow) {
    PaintedText const text =
        PaintedTextWith(dg::DMat33::RotationZ(-PI / 2), zv2d::Text::BOTTOM_LEFT);
    EXPECT_NEAR(text.angle, PI / 2, 1e-9);
}

TEST_F(PaintFigureTest, MirroredTextKeepsItsPlaceAndStaysReadable) {
    PaintedText const text = PaintedTextWith(dg::DMat33::Scale(-1, 1), zv2d::Text::BOTTOM_LEFT);
    EXPECT_NEAR(text.angle, 0, 1e-9);
    EXPECT_NEAR(text.layout.runs.at(0).x + text.layout.runs.at(0).width, 0, 1e-9)
        << "what ran to the right of the anchor now ends there";
    EXPECT_NEAR(text.layout.runs.at(0).y, 0, 1e-9) << "bottom stays bottom";
}

TEST_F(PaintFigureTest, ScaledTextGrows) {
    PaintedText const text = PaintedTextWith(dg::DMat33::Scale(2), zv2d::Text::BOTTOM_LEFT);
    EXPECT_NEAR(text.style.height, 5.08, 1e-6);
}

TEST_F(PaintFigureTest, MirroredArcRunsFromItsMirroredEnd) {
    SmartPtr<zv2d::CircularArc> const arc(
        new zv2d::CircularArc(dg::CircularArc<double, 2>({1, 0}, 2, 0, PI / 2), 0));
    AddFree(Shape(arc, dg::DMat33::Scale(-1, 1)));
    auto const painted = Painted().Of("arc").at(0);
    EXPECT_NEAR(painted.points[0].x, -1, 1e-9);
    EXPECT_NEAR(std::remainder(painted.points[2].x - PI / 2, 2 * PI), 0, 1e-9);
    EXPECT_NEAR(painted.points[2].y - painted.points[2].x, PI / 2, 1e-9);
}

TEST_F(PaintFigureTest, StretchedCircleBecomesAnEllipse) {
    SmartPtr<zv2d::CircularArc> const circle(
        new zv2d::CircularArc(dg::CircularArc<double, 2>({0, 0}, 1, 0, 2 * PI), 0));
    AddFree(Shape(circle, dg::DMat33::Scale(3, 1)));
    RecordingPainter const painter = Painted();
    EXPECT_TRUE(painter.Of("arc").empty());
    dg::DBox2D box;
    auto const lines = painter.Of("line");
    for (dg::DPoint2D const& point : lines.at(0).points)
        box.Enclose(point);
    EXPECT_NEAR(box[2], 3, 1e-2);
    EXPECT_NEAR(box[3], 1, 1e-2);
}

TEST_F(PaintFigureTest, WithoutAFrameTheContentIsShownWithAMargin) {
    AddFree(LineShape({{10, 20}, {30, 40}}));
    EXPECT_EQ(Painted().sheet.box, dg::DBox2D(5, 15, 35, 45));
}

TEST_F(PaintFigureTest, SvgOfAFigureIsWellFormedAndTheSameEachTime) {
    source.nets.push_back({"A<&>", {}, figkernel::NO_INDEX});
    Sheet().wires.push_back({"w", 0, {0, 0}, {10, 0}});
    Load();
    auto paint = [&] {
        SvgPainter painter;
        PaintFigure(figure, painter);
        return painter.TakeDocument();
    };
    std::string const first = paint();
    test::XmlDocument const document = test::CheckXml(first);
    EXPECT_EQ(document.mistake, "");
    EXPECT_TRUE(document.HasUniqueIds());
    EXPECT_EQ(first, paint());
}

}  // namespace
}  // namespace fighost
