// What one schematic file holds, as the file says it: nothing resolved, nothing connected.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include <dg/Color.h>
#include <readers/Findings.h>
#include <readers/kicad/file/Geometry.h>

namespace fighost::kicad {

/// Versions of the file format where its meaning changed.
inline constexpr int VERSION_6 = 20211123;
inline constexpr int VERSION_POWER_BY_VALUE = 20230221;    ///< before: hidden pin names the net
inline constexpr int VERSION_IMAGE_RESOLUTION = 20230221;  ///< before: an image's own doesn't count
inline constexpr int VERSION_7 = 20220124;                 ///< the first after version 6
inline constexpr int VERSION_8 = 20231120;
inline constexpr int VERSION_9 = 20250114;

struct Stroke {
    enum Type { DEFAULT, SOLID, DASH, DOT, DASH_DOT, DASH_DOT_DOT };
    double width = 0;  ///< mm; 0: the default of its kind
    Type type = DEFAULT;
    std::optional<dg::Color> color;
};

struct Fill {
    enum Type { NONE, OUTLINE, BACKGROUND, COLOR };
    Type type = NONE;
    std::optional<dg::Color> color;
};

struct TextStyle {
    double height = 1.27;  ///< mm
    bool bold = false;
    bool italic = false;
    bool hidden = false;
    int horizontal = 0;  ///< -1 left, 0 centre, 1 right
    int vertical = 0;    ///< -1 top, 0 centre, 1 bottom
    std::string face;    ///< empty: the program's own font
    std::optional<dg::Color> color;
};

/// A field of a symbol, a sheet, a label.
struct Property {
    std::string name;
    std::string value;
    Point at;
    double angle = 0;  ///< degrees
    TextStyle style;
    bool showName = false;
};

struct Shape {
    enum Kind { POLYLINE, RECTANGLE, CIRCLE, ARC, BEZIER, TEXT, TEXT_BOX };
    Kind kind = POLYLINE;
    std::string uuid;
    std::vector<Point> points;  ///< circle: centre; arc: start, middle, end; box: two corners
    Length radius = 0;
    Stroke stroke;
    Fill fill;
    std::string text;
    TextStyle style;
    double angle = 0;  ///< of texts, degrees
    /// Of a text box, mm: left, top, right, bottom. Files before 2024 don't say.
    std::optional<std::array<double, 4>> margins;
};

struct Alternate {
    std::string name;
    std::string type;
    std::string shape;
};

struct LibraryPin {
    std::string type;   ///< "input", "power_in", "no_connect", ...
    std::string shape;  ///< "line", "inverted", "clock", ...
    Point at;
    int angle = 0;  ///< degrees, from the connecting end towards the body
    Length length = 0;
    std::string name;
    std::string number;
    TextStyle nameStyle;
    TextStyle numberStyle;
    bool hidden = false;
    std::vector<Alternate> alternates;
};

/// What a symbol shows in one unit and body style; 0 stands for all.
struct LibraryUnit {
    int unit = 0;
    int bodyStyle = 0;
    std::vector<Shape> shapes;
    std::vector<LibraryPin> pins;
};

struct LibrarySymbol {
    std::string name;     ///< as placed symbols call it
    std::string extends;  ///< the symbol of the same library whose units it shows
    bool power = false;
    bool powerLocal = false;
    bool pinNamesHidden = false;
    bool pinNumbersHidden = false;
    Length pinNameOffset = 5080;  ///< 0: names stand outside, above the pins
    std::vector<Property> properties;
    std::vector<LibraryUnit> units;
    bool duplicatesAreJumpers = false;
    std::vector<std::vector<std::string>> jumperGroups;
};

/// What holds for one place of the file in the hierarchy.
struct SymbolInstance {
    std::string project;
    std::string path;
    std::string reference;
    int unit = 0;  ///< 0: not said
};

struct PlacedPin {
    std::string number;
    std::string uuid;
    std::string alternate;
};

struct PlacedSymbol {
    std::string uuid;
    std::string libraryId;
    std::string libraryName;  ///< when set, this finds the library entry
    Point at;
    int quarterTurns = 0;
    bool mirrorX = false;
    bool mirrorY = false;
    int unit = 1;
    int bodyStyle = 1;
    bool dnp = false;
    bool inBom = true;
    bool onBoard = true;
    std::vector<Property> properties;
    std::vector<PlacedPin> pins;
    std::vector<SymbolInstance> instances;
    Place place;
};

/// A wire or a bus between two points.
struct Line {
    std::string uuid;
    Point from;
    Point to;
    Stroke stroke;
};

struct BusEntry {
    std::string uuid;
    Point at;
    Point size;
    Stroke stroke;

    Point GetEnd() const { return at + size; }
};

struct Junction {
    std::string uuid;
    Point at;
    double diameter = 0;  ///< mm; 0: the default
    std::optional<dg::Color> color;
};

struct NoConnect {
    std::string uuid;
    Point at;
};

struct Label {
    enum Kind { LOCAL, GLOBAL, HIERARCHICAL, FLAG };
    Kind kind = LOCAL;
    std::string uuid;
    std::string text;
    std::string shape;
    Point at;
    int quarterTurns = 0;
    double angle = 0;
    Length length = 25400;  ///< of a flag's stem
    TextStyle style;
    std::vector<Property> properties;
};

struct SheetPin {
    std::string uuid;
    std::string name;
    std::string type;
    Point at;
    int quarterTurns = 0;
    TextStyle style;
};

struct SheetPage {
    std::string project;
    std::string path;
    std::string page;
};

/// The symbol of a sub-sheet.
struct SheetSymbol {
    std::string uuid;
    Point at;
    Point size;
    Stroke stroke;
    Fill fill;
    bool dnp = false;
    std::vector<Property> properties;
    std::vector<SheetPin> pins;
    std::vector<SheetPage> pages;
    Place place;

    std::string GetProperty(std::string_view older, std::string_view newer) const;
    std::string GetName() const { return GetProperty("Sheet name", "Sheetname"); }
    std::string GetFile() const { return GetProperty("Sheet file", "Sheetfile"); }
};

struct Image {
    std::string uuid;
    Point at;  ///< its centre
    double scale = 1;
    std::string bytes;  ///< decoded
};

struct TableCell {
    std::string uuid;
    Shape box;
    int columnSpan = 1;
    int rowSpan = 1;
};

struct Table {
    std::string uuid;
    std::vector<TableCell> cells;
    std::vector<double> columnWidths;
    std::vector<double> rowHeights;
    bool outerBorder = true;
    bool headerBorder = true;
    bool rowLines = true;
    bool columnLines = true;
    Stroke borderStroke;
    Stroke lineStroke;
};

struct BusAlias {
    std::string name;
    std::vector<std::string> members;
};

struct TitleBlock {
    std::string title;
    std::string date;
    std::string revision;
    std::string company;
    std::array<std::string, 9> comments;
};

struct Paper {
    std::string name = "A4";
    double width = 297;  ///< mm
    double height = 210;
};

struct SheetFile {
    std::string path;
    int version = 0;
    std::string writerVersion;  ///< of the program; empty before version 8
    std::string uuid;
    Paper paper;
    std::optional<TitleBlock> titleBlock;
    std::vector<LibrarySymbol> library;
    std::vector<PlacedSymbol> symbols;
    std::vector<Line> wires;
    std::vector<Line> buses;
    std::vector<BusEntry> entries;
    std::vector<Junction> junctions;
    std::vector<NoConnect> noConnects;
    std::vector<Label> labels;
    std::vector<SheetSymbol> sheets;
    std::vector<Shape> shapes;  ///< lines, boxes, circles, arcs, texts and text boxes
    std::vector<Shape> ruleAreas;
    std::vector<Image> images;
    std::vector<Table> tables;
    std::vector<BusAlias> aliases;
    std::vector<SymbolInstance> instanceTable;  ///< of a version 6 root: references by full path
    std::vector<SheetPage> pageTable;

    std::size_t CountItems() const;
};

}  // namespace fighost::kicad
