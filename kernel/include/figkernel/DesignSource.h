// What a reader hands to the builder: one design as plain values, drawn the way its file draws it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <dg/Color.h>
#include <dg/Point.h>
#include <du/SmartPtr.h>
#include <figk/SettingValue.h>
#include <zv2d/Instance.h>

namespace figkernel {

/// Index of a record in one of the vectors of the same `DesignSource` or `SheetSource`.
using SourceIndex = std::uint32_t;

/// "No such record": a pin on no net, a record without settings of its own.
inline constexpr SourceIndex NO_INDEX = 0xFFFFFFFFu;

/// Conventions of all structs below.
///
/// - Coordinates are figure coordinates: millimetres, y up, angles counter-clockwise in radians.
/// - Points that connect are the same to within 0.0001 mm; the builder compares them on a grid of
///   1e-6 mm and treats near misses as apart. Nothing connects by geometry alone: what belongs
///   together says so by its net (or highway), and the builder finds where it touches.
/// - An `id` is what the file calls the thing for good (a UUID). It needs to be unique only among
///   the records of one kind on one sheet: the builder puts the sheet's id in front. An empty id is
///   replaced by one made of kind and geometry, so that it survives edits elsewhere in the file. Of
///   records of one kind and id the second and later get a number behind.
/// - Indices that point nowhere are reported as findings by the builder and ignored.
/// - Pictures are shared: thousands of records may name the same `zv2d::Instance` definition.

/// One setting: the number of its kernel key, its level and its value.
struct SettingSource {
    int key = 0;  ///< number of the `figk::Setting::Key`
    int level =
        2;  ///< number of the `figk::Setting::Level`; 2 is LEVEL_BASE, for a file's own looks
    du::ConstSmartPtr<figk::BaseSettingValue> value;
    bool canBeInherited = true;
};

/// Settings shared by any number of records, which name them by index.
using SettingSetSource = std::vector<SettingSource>;

struct AttributeSource {
    std::string name;
    std::string value;
};

/// A shape or a group of shapes that is picked and coloured as one.
struct GraphicSource {
    std::string id;
    std::string name;
    std::vector<du::SmartPtr<zv2d::Instance>> instances;  ///< all shapes, in drawing order
    SourceIndex settings = NO_INDEX;
};

/// A text; the instance draws it and holds exactly one `zv2d::Text`.
struct TextSource {
    std::string id;
    std::string text;  ///< as a user reads it, without mark-up
    du::SmartPtr<zv2d::Instance> instance;
    SourceIndex settings = NO_INDEX;
};

/// Graphics, then texts, then sub-groups, in drawing order. Groups nest to any depth.
struct GroupSource {
    std::vector<GraphicSource> graphics;
    std::vector<TextSource> texts;
    std::vector<GroupSource> groups;

    bool IsEmpty() const { return graphics.empty() && texts.empty() && groups.empty(); }
};

/// A connector of a block. Its name is the pin number, so that `REFERENCE:PIN` names it for users.
struct PinSource {
    std::string id;
    std::string name;
    dg::DPoint2D position;  ///< where wires meet it
    bool hidden = false;
    SourceIndex net = NO_INDEX;  ///< NO_INDEX: never connected, also where a wire touches it
    std::vector<AttributeSource> attributes;
    SourceIndex settings = NO_INDEX;
    GroupSource graphics;
    GroupSource labels;  ///< pin name and number
};

/// What blocks, cables, tables and miscellaneous items have in common.
struct ItemSource {
    std::string id;
    std::string name;  ///< for a block its reference
    std::vector<AttributeSource> attributes;
    SourceIndex settings = NO_INDEX;
    GroupSource graphics;
    GroupSource labels;  ///< texts that belong to the item and move with it (reference, value, ...)
};

struct BlockSource : ItemSource {
    std::vector<PinSource> pins;
    std::vector<SourceIndex> children;  ///< blocks of the same sheet that stand inside this one
};

struct CableSource : ItemSource {
    std::vector<PinSource> pins;
    std::vector<SourceIndex> nets;      ///< the nets that it carries
    std::vector<SourceIndex> children;  ///< blocks of the same sheet
};

struct TableSource : ItemSource {};
struct MiscellaneousSource : ItemSource {};

/// A drawn wire. It may run through points where others of its net end: the builder splits it.
struct WireSource {
    std::string id;
    SourceIndex net = NO_INDEX;
    dg::DPoint2D from;
    dg::DPoint2D to;
    SourceIndex settings = NO_INDEX;
};

/// A drawn piece of a highway (bus). It is split at taps, branches and ports.
struct BusSource {
    std::string id;
    SourceIndex highway = NO_INDEX;
    dg::DPoint2D from;
    dg::DPoint2D to;
    SourceIndex settings = NO_INDEX;
};

/// The way of a net onto a highway: drawn as a straight piece of wire between the two points.
struct TapSource {
    std::string id;
    SourceIndex highway = NO_INDEX;
    SourceIndex net = NO_INDEX;
    dg::DPoint2D busPoint;  ///< on a bus of the highway, at an end or between
    dg::DPoint2D netPoint;  ///< where the wires of the net begin; may equal `busPoint`
    SourceIndex settings = NO_INDEX;
};

/// One place on a sheet where a port shows (a label's flag, a sheet pin).
struct PortNodeSource {
    std::string id;
    SourceIndex port = NO_INDEX;  ///< in `DesignSource::ports`
    dg::DPoint2D position;        ///< where wires or buses meet it
    SourceIndex settings = NO_INDEX;
    GroupSource graphics;
    /// The sheet behind the node, or at whose inner side it stands, in `DesignSource::sheets`; for
    /// hosts alone.
    SourceIndex inside = NO_INDEX;
};

/// A point where all wires of a net (or all buses of a highway) that pass are joined, as a junction
/// dot or a label does it. Needed only where none of them ends, as at a crossing with a dot; an
/// end, a pin, a port or a tap that lies on a wire of its net splits that wire without it.
struct JoinSource {
    dg::DPoint2D point;
    SourceIndex net = NO_INDEX;      ///< one of net ...
    SourceIndex highway = NO_INDEX;  ///< ... and highway is set
};

/// A place where the signal of a net comes from: a pin that drives it, a port by which it comes in.
/// It counts where the net has a pin, a port, or a wire that ends or is split there.
struct FlowStartSource {
    dg::DPoint2D point;
    SourceIndex net = NO_INDEX;
};

/// Something drawn at a wire or bus without a part in connectivity: a junction dot, a local label,
/// a no-connect cross. It becomes a label of the piece of its net or highway that passes the anchor
/// (also between that piece's ends), and is coloured, hidden and moved with it; without such a
/// piece it goes to the sheet's labels.
struct DecorationSource {
    dg::DPoint2D anchor;
    SourceIndex net = NO_INDEX;
    SourceIndex highway = NO_INDEX;
    GroupSource graphics;
};

/// A column or row of a reference grid whose cells have names and sizes of their own.
struct GridCellSource {
    std::string name;
    double end = 0;  ///< distance from the left edge of the frame, of a row from its upper edge
};

/// The frame of a sheet, with the grid that tells locations ("B4").
struct FormatSource {
    std::string id;
    std::string name;  ///< of the paper, as "A4"
    double width = 0;
    double height = 0;
    unsigned columns = 0;  ///< numbered from 1, left to right; 0: no grid
    unsigned rows = 0;     ///< lettered from A, top to bottom; 0: no grid
    /// In place of the even columns, left to right; the last one reaches to the edge.
    std::vector<GridCellSource> columnCells;
    /// In place of the even rows, top to bottom; the last one reaches to the edge.
    std::vector<GridCellSource> rowCells;
    GroupSource graphics;
};

/// A run of text in a title block section: plain, or a token that an interpreter fills in.
struct TitleBlockSegmentSource {
    int type = 0;
    std::string token;
    bool original = true;
    std::string text;
};

/// Where a text stands that its drawing sheet sets to a place of its own.
struct TextPlaceSource {
    dg::DPoint2D at;           ///< from the lower left corner of the frame
    double angle = 0;          ///< radians, counter-clockwise
    int vertical = 1;          ///< what of the text is at the point: 0 bottom, 1 middle, 2 top
    double greatestWidth = 0;  ///< along the text, mm; a longer one is written smaller; 0: any
    double greatestHeight = 0;
    std::string font;  ///< empty: the painter's own
};

struct TitleBlockSectionSource {
    unsigned id = 0;
    std::vector<TitleBlockSegmentSource> segments;
    int alignment = 0;  ///< 0 left, 1 centre, 2 right
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    dg::Color fontColor;
    double fontSize = 2.5;
    double spacing = 0;
    std::optional<TextPlaceSource> place;  ///< none: the layout of the block decides
};

struct TitleBlockSource {
    std::string id;
    int corner = 0;  ///< number of the `figk::TitleBlock::Corner`
    double offsetX = 0;
    double offsetY = 0;
    double margin = 0;
    double minWidth = 0;
    double minHeight = 0;
    dg::Color lineColor;
    double lineWeight = 0;
    dg::Color backgroundColor;  ///< opacity 0: that of the sheet
    std::vector<TitleBlockSectionSource> sections;
};

struct SheetSource {
    std::string id;    ///< stable and unique in the design: the path of sheet instances
    std::string name;  ///< as a user calls it
    std::string path;  ///< as a user reads it ("/power/regulator/")
    SourceIndex parent = NO_INDEX;  ///< the sheet that shows this one as a block; for hosts alone
    std::vector<AttributeSource> attributes;
    SourceIndex settings = NO_INDEX;
    std::optional<FormatSource> format;
    std::optional<TitleBlockSource> titleBlock;
    GroupSource labels;  ///< everything drawn that belongs to no item
    std::vector<BlockSource> blocks;
    std::vector<CableSource> cables;
    std::vector<TableSource> tables;
    std::vector<MiscellaneousSource> miscellaneous;
    std::vector<WireSource> wires;
    std::vector<BusSource> buses;
    std::vector<TapSource> taps;
    std::vector<PortNodeSource> portNodes;
    std::vector<JoinSource> joins;
    /// A sub-net with exactly one of them has a direction: its tree begins there.
    std::vector<FlowStartSource> flowStarts;
    std::vector<DecorationSource> decorations;
};

/// A signal of the whole design. Its id is its name: both must be unique.
struct NetSource {
    std::string name;
    std::vector<AttributeSource> attributes;
    SourceIndex settings = NO_INDEX;
};

/// A shared route that carries nets.
struct HighwaySource {
    std::string id;
    std::string name;
    std::vector<SourceIndex> nets;
    std::vector<AttributeSource> attributes;
    SourceIndex settings = NO_INDEX;
};

/// A named way off a sheet, for one net or for one highway. All its nodes on all sheets, such as a
/// sheet pin and the label inside the sheet, name the same port. A figure knows ports by their
/// names and targets, so two of them with one name and one target can't be told apart there.
struct PortSource {
    std::string id;
    std::string name;
    SourceIndex net = NO_INDEX;      ///< exactly one of net ...
    SourceIndex highway = NO_INDEX;  ///< ... and highway is set
    std::vector<AttributeSource> attributes;
    SourceIndex settings = NO_INDEX;
};

struct DesignSource {
    std::string id;  ///< stable over revisions of the same design
    std::string name;
    std::string fileName;
    std::string idPrefix;  ///< what a figure puts before ids of this design; may be empty
    std::vector<AttributeSource> attributes;
    SourceIndex settings = NO_INDEX;
    std::vector<SettingSetSource> settingSets;  ///< what the `settings` of all records point into
    std::vector<NetSource> nets;
    std::vector<HighwaySource> highways;
    std::vector<PortSource> ports;
    std::vector<SheetSource> sheets;

    /// Adds a set and answers its index; an empty set is NO_INDEX.
    SourceIndex AddSettings(SettingSetSource set) {
        if (set.empty()) return NO_INDEX;
        settingSets.push_back(std::move(set));
        return static_cast<SourceIndex>(settingSets.size() - 1);
    }
};

}  // namespace figkernel
