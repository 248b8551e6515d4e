#include "SymbolPictures.h"

#include <cmath>
#include <numbers>
#include <optional>

#include <readers/kicad/design/Texts.h>
#include <readers/kicad/design/Variables.h>
#include <zv2d/Text.h>

#include "PinShapes.h"

namespace fighost::kicad {

namespace {

constexpr double PIN_TEXT_GAP = 0.3;    // mm, from the pin's line to texts along it
constexpr double DNP_LINE_WIDTH = 0.4;  // mm
constexpr double MISSING_HALF_SIZE = 5.08;

constexpr Frame LIBRARY_FRAME{};

/// The matrix of a symbol's own coordinates (y up) in the figure.
dg::DMat33 MatrixOf(ResolvedSymbol const& symbol, Frame const& frame) {
    Orientation const& o = symbol.orientation;
    dg::DMat33 matrix = dg::DMat33::Linear(o.xx, o.xy, -o.yx, -o.yy);
    matrix.SetTranslation(frame(symbol.placed->at));
    return matrix;
}

bool IsBodyFill(Shape const& shape) {
    return shape.fill.type == Fill::BACKGROUND;
}

std::optional<dg::Color> SolidFillOf(Shape const& shape) {
    return shape.fill.type == Fill::COLOR ? shape.fill.color : std::nullopt;
}

/// What all shapes of a layer have in common, so that settings can recolour lines and fill.
struct LayerKey {
    figkernel::SourceIndex settings;
    std::optional<dg::Color> fill;
    bool operator==(LayerKey const&) const = default;
};

/// Which way a pin runs in the figure, as a unit vector.
dg::DVec2 DirectionOf(ResolvedSymbol const& symbol, LibraryPin const& pin) {
    static constexpr int COS[] = {1, 0, -1, 0};
    static constexpr int SIN[] = {0, 1, 0, -1};
    int const quarter = pin.angle / 90 % 4;
    Point const d = symbol.orientation.Apply({COS[quarter], SIN[quarter]});
    return {static_cast<double>(d.x), static_cast<double>(-d.y)};
}

figkernel::GraphicSource Graphic(std::string name, figkernel::SourceIndex settings,
                                 du::SmartPtr<zv2d::Instance> const& instance) {
    figkernel::GraphicSource graphic;
    graphic.name = std::move(name);
    graphic.settings = settings;
    graphic.instances.push_back(instance);
    return graphic;
}

Role RoleOf(std::string_view name) {
    if (name == "Reference") return Role::REFERENCE;
    return name == "Value" ? Role::VALUE : Role::FIELD;
}

bool IsShown(std::string const& text) {
    return !text.empty() && text != "~";
}

}  // namespace

Stand StandOfField(Property const& property, Orientation const& orientation, Frame const& frame) {
    // Directions of reading and of the text's own up, in the symbol's frame with y up.
    bool const vertical = QuarterTurns(property.angle) % 2 == 1;
    Point const reading = orientation.Apply(vertical ? Point{0, 1} : Point{1, 0});
    Point const up = orientation.Apply(vertical ? Point{-1, 0} : Point{0, 1});
    Stand stand;
    stand.at = frame(property.at);
    bool const upright = reading.x == 0;  // reads from below upward
    stand.degrees = upright ? 90 : 0;
    bool const reverses = upright ? reading.y > 0 : reading.x < 0;  // y of `Apply` runs down
    bool const upturned = upright ? up.x > 0 : up.y > 0;
    stand.horizontal = reverses ? -property.style.horizontal : property.style.horizontal;
    stand.vertical = upturned ? -property.style.vertical : property.style.vertical;
    return stand;
}

void SymbolPictures::AddShapes(ResolvedSymbol const& symbol, bool withBodyFill, Body& body) {
    std::optional<LayerKey> current;
    du::SmartPtr<zv2d::Definition> definition;
    for (LibraryUnit const* unit : symbol.units) {
        for (Shape const& shape : unit->shapes) {
            if (shape.kind == Shape::TEXT) continue;
            if (IsBodyFill(shape) != withBodyFill) continue;
            auto const settings = looks.Colored(Role::BODY, shape.stroke.color);
            LayerKey const key{settings, SolidFillOf(shape)};
            if (current != key) {
                definition = new zv2d::Definition;
                body.layers.push_back({settings, definition});
                current = key;
            }
            std::vector<EntityPtr> entities;
            AppendShape(shape, LIBRARY_FRAME, entities);
            for (EntityPtr const& entity : entities)
                definition->Add(entity);
        }
    }
}

SymbolPictures::Body const& SymbolPictures::BodyOf(ResolvedSymbol const& symbol) {
    BodyKey const key{symbol.shown, symbol.unit, symbol.bodyStyle};
    auto const found = bodies.find(key);
    if (found != bodies.end()) return found->second;
    Body body;
    AddShapes(symbol, true, body);
    AddShapes(symbol, false, body);
    for (LibraryUnit const* unit : symbol.units) {
        for (Shape const& shape : unit->shapes) {
            bool const isText = shape.kind == Shape::TEXT || shape.kind == Shape::TEXT_BOX;
            if (isText && IsShown(shape.text)) body.texts.push_back(&shape);
        }
    }
    for (Layer const& layer : body.layers)
        body.box.Enclose(layer.definition->GetExtents());
    return bodies.emplace(key, std::move(body)).first->second;
}

void SymbolPictures::DrawCross(dg::DBox2D const& box, figkernel::BlockSource& block) {
    if (box.IsEmpty()) return;
    Stroke stroke;
    stroke.width = DNP_LINE_WIDTH;
    auto const attributes = LineAttributesOf(stroke);
    auto const instance =
        MakeInstance({MakePolyline({{box[0], box[1]}, {box[2], box[3]}}, attributes),
                      MakePolyline({{box[0], box[3]}, {box[2], box[1]}}, attributes)});
    block.labels.graphics.push_back(Graphic("dnp", looks.Colored(Role::DNP), instance));
}

void SymbolPictures::DrawBody(ResolvedSymbol const& symbol, Frame const& frame,
                              figkernel::BlockSource& block) {
    Body const& body = BodyOf(symbol);
    dg::DMat33 const matrix = MatrixOf(symbol, frame);
    for (Layer const& layer : body.layers) {
        du::SmartPtr<zv2d::Instance> const instance(new zv2d::Instance(layer.definition, matrix));
        block.graphics.graphics.push_back(Graphic("body", layer.settings, instance));
    }
    for (Shape const* shape : body.texts) {
        Property field;  // texts of symbols keep readable as fields do
        field.angle = shape->angle;
        field.style = shape->style;
        Stand stand = StandOfField(field, symbol.orientation, frame);
        Point at = shape->points[0];
        if (shape->kind == Shape::TEXT_BOX) {
            at = {(at.x + shape->points[1].x) / 2, (at.y + shape->points[1].y) / 2};
            stand.horizontal = stand.vertical = 0;
        }
        stand.at = matrix * LIBRARY_FRAME(at);
        block.graphics.texts.push_back(MakeText(shape->text, stand, shape->style,
                                                looks.Colored(Role::BODY, shape->style.color)));
    }
    if (symbol.placed->dnp) DrawCross(matrix * body.box, block);
}

void SymbolPictures::DrawMissing(ResolvedSymbol const& symbol, Frame const& frame,
                                 figkernel::BlockSource& block) {
    dg::DPoint2D const at = frame(symbol.placed->at);
    double const h = MISSING_HALF_SIZE;
    Stroke stroke;
    stroke.type = Stroke::DASH;
    auto const box = MakePolyline(
        {{at.x - h, at.y - h}, {at.x + h, at.y - h}, {at.x + h, at.y + h}, {at.x - h, at.y + h}},
        LineAttributesOf(stroke), true);
    auto const settings = looks.Colored(Role::MISSING);
    block.graphics.graphics.push_back(Graphic("missing", settings, MakeInstance({box})));
    std::string const name = symbol.placed->libraryId.substr(0, 200);
    block.graphics.texts.push_back(MakeText(name + "??", {at, 0, 0, 0}, TextStyle(), settings));
}

std::string SymbolPictures::FieldText(SheetGraph const& sheet, ResolvedSymbol const& symbol,
                                      Property const& property) const {
    std::string text;
    if (property.name == "Reference") {
        text = symbol.unitCount > 1 ? hierarchy.project.UnitReference(symbol.reference, symbol.unit)
                                    : symbol.reference;
    } else if (property.name == "Value") {
        text = symbol.value;
    } else {
        text = Unescape(ExpandInSymbol(hierarchy, sheet.index, symbol, property.value));
    }
    if (IsShown(text) && property.showName) text = property.name + ": " + text;
    return text;
}

void SymbolPictures::AddFields(SheetGraph const& sheet, ResolvedSymbol const& symbol,
                               Frame const& frame, figkernel::BlockSource& block) {
    for (Property const& property : symbol.placed->properties) {
        std::string const text = FieldText(sheet, symbol, property);
        block.attributes.push_back({property.name, WithoutMarkup(text)});
        if (property.style.hidden || !IsShown(text)) continue;
        auto label =
            MakeText(text, StandOfField(property, symbol.orientation, frame), property.style,
                     looks.Colored(RoleOf(property.name), property.style.color));
        label.id = block.id + "." + property.name;
        block.labels.texts.push_back(std::move(label));
    }
}

void SymbolPictures::DrawPin(ResolvedSymbol const& symbol, ResolvedPin const& pin,
                             Frame const& frame, figkernel::PinSource& source) {
    LibraryPin const& library = *pin.library;
    auto& definition = pinDefinitions[{std::string(pin.shape), library.length}];
    if (!definition) {
        du::SmartPtr<zv2d::Definition> fresh(new zv2d::Definition);
        for (auto const& part : MakePinEntities(pin.shape, ToMm(library.length)))
            fresh->Add(part);
        definition = fresh;
    }
    if (!definition->IsEmpty()) {
        dg::DVec2 const d = DirectionOf(symbol, library);
        dg::DMat33 matrix = dg::DMat33::Linear(d.x, -d.y, d.y, d.x);
        matrix.SetTranslation(frame(pin.at));
        du::SmartPtr<zv2d::Instance> const instance(new zv2d::Instance(definition, matrix));
        source.graphics.graphics.push_back(Graphic("pin", looks.Colored(Role::PIN), instance));
    }
    AddPinTexts(symbol, pin, frame, source);
}

/// Names stand inside the body behind the pin's end; with an offset of 0 they stand above the pin
/// and the number goes below.
void SymbolPictures::AddPinTexts(ResolvedSymbol const& symbol, ResolvedPin const& pin,
                                 Frame const& frame, figkernel::PinSource& source) {
    LibraryPin const& library = *pin.library;
    dg::DVec2 const d = DirectionOf(symbol, library);
    bool const upright = d.x == 0;
    dg::DVec2 const up = upright ? dg::DVec2{-1, 0} : dg::DVec2{0, 1};
    dg::DPoint2D const at = frame(pin.at);
    double const length = ToMm(library.length);
    dg::DPoint2D const middle = at + d * (length / 2);
    double const degrees = upright ? 90 : 0;
    bool const named = IsShown(pin.name) && !symbol.shown->pinNamesHidden;
    bool const inside = symbol.shown->pinNameOffset > 0;
    Stand const above{middle + up * PIN_TEXT_GAP, degrees, 0, 1};
    Stand const below{middle - up * PIN_TEXT_GAP, degrees, 0, -1};
    if (named) {
        dg::DPoint2D const behind = at + d * (length + ToMm(symbol.shown->pinNameOffset));
        int const side = d.x + d.y > 0 ? -1 : 1;
        auto text = MakeText(pin.name, inside ? Stand{behind, degrees, side, 0} : above,
                             library.nameStyle, looks.Colored(Role::PIN_NAME));
        text.id = source.id + ".name";
        source.labels.texts.push_back(std::move(text));
    }
    if (IsShown(library.number) && !symbol.shown->pinNumbersHidden) {
        auto text = MakeText(library.number, named && !inside ? below : above, library.numberStyle,
                             looks.Colored(Role::PIN_NUMBER));
        text.id = source.id + ".number";
        source.labels.texts.push_back(std::move(text));
    }
}

void SymbolPictures::AddPins(SheetGraph const& sheet, std::size_t number, DesignNets const& nets,
                             Frame const& frame, figkernel::BlockSource& block) {
    ResolvedSymbol const& symbol = sheet.symbols[number];
    for (std::size_t k = 0; k < symbol.pins.size(); ++k) {
        ResolvedPin const& pin = symbol.pins[k];
        for (std::size_t i = 0; i < pin.numbers.size(); ++i) {
            figkernel::PinSource source;
            bool const known = pin.placed && !pin.placed->uuid.empty() && i == 0;
            source.id = known ? pin.placed->uuid : block.id + "." + pin.numbers[i];
            source.name = pin.numbers[i];
            source.position = frame(pin.at);
            source.hidden = pin.library->hidden;
            source.net = nets.Of(sheet.PinNode(number, k));
            source.attributes = {{"NAME", WithoutMarkup(Unescape(pin.name))},
                                 {"TYPE", std::string(pin.type)}};
            if (!source.hidden && i == 0) DrawPin(symbol, pin, frame, source);
            block.pins.push_back(std::move(source));
        }
    }
}

figkernel::BlockSource SymbolPictures::MakeBlock(SheetGraph const& sheet, std::size_t number,
                                                 DesignNets const& nets, Frame const& frame) {
    ResolvedSymbol const& symbol = sheet.symbols[number];
    figkernel::BlockSource block;
    block.id = symbol.placed->uuid;
    if (symbol.unitCount > 1) block.id += "." + hierarchy.project.UnitName(symbol.unit);
    block.name = symbol.reference;
    if (symbol.shown) {
        DrawBody(symbol, frame, block);
    } else {
        DrawMissing(symbol, frame, block);
    }
    AddFields(sheet, symbol, frame, block);
    if (symbol.placed->dnp) block.attributes.push_back({"DNP", "yes"});
    AddPins(sheet, number, nets, frame, block);
    return block;
}

}  // namespace fighost::kicad
