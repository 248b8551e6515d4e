#include <readers/kicad/file/SheetReader.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "ItemReaders.h"

namespace fighost::kicad {

namespace {

using View = SExpression::View;

constexpr int OLDEST_VERSION = 20210126;
constexpr int NEWEST_VERSION = 20260306;

struct PaperSize {
    std::string_view name;
    double width;
    double height;
};

constexpr PaperSize PAPERS[] = {
    {"A5", 210, 148},           {"A4", 297, 210},          {"A3", 420, 297},
    {"A2", 594, 420},           {"A1", 841, 594},          {"A0", 1189, 841},
    {"A", 279.4, 215.9},        {"B", 431.8, 279.4},       {"C", 558.8, 431.8},
    {"D", 863.6, 558.8},        {"E", 1117.6, 863.6},      {"GERBER", 812.8, 812.8},
    {"USLetter", 279.4, 215.9}, {"USLegal", 355.6, 215.9}, {"USLedger", 431.8, 279.4},
};

class SheetReader {
public:
    SheetReader(Findings& findings, SheetFile& out) : reader(findings), sheet(out) {}

    void ReadItem(View node) {
        static std::unordered_map<std::string_view, void (SheetReader::*)(View)> const METHODS = {
            {"symbol", &SheetReader::ReadSymbol},
            {"wire", &SheetReader::ReadWire},
            {"bus", &SheetReader::ReadBus},
            {"bus_entry", &SheetReader::ReadEntry},
            {"junction", &SheetReader::ReadJunction},
            {"no_connect", &SheetReader::ReadNoConnect},
            {"label", &SheetReader::ReadLocalLabel},
            {"global_label", &SheetReader::ReadGlobalLabel},
            {"hierarchical_label", &SheetReader::ReadHierarchicalLabel},
            {"netclass_flag", &SheetReader::ReadFlag},
            {"directive_label", &SheetReader::ReadFlag},
            {"sheet", &SheetReader::ReadSheet},
            {"polyline", &SheetReader::ReadDrawing},
            {"rectangle", &SheetReader::ReadDrawing},
            {"circle", &SheetReader::ReadDrawing},
            {"arc", &SheetReader::ReadDrawing},
            {"bezier", &SheetReader::ReadDrawing},
            {"text", &SheetReader::ReadDrawing},
            {"text_box", &SheetReader::ReadDrawing},
            {"rule_area", &SheetReader::ReadRuleArea},
            {"image", &SheetReader::ReadPicture},
            {"table", &SheetReader::ReadSheetTable},
            {"lib_symbols", &SheetReader::ReadLibrary},
            {"bus_alias", &SheetReader::ReadAlias},
            {"paper", &SheetReader::ReadPaper},
            {"page", &SheetReader::ReadPaper},
            {"title_block", &SheetReader::ReadTitleBlock},
            {"symbol_instances", &SheetReader::ReadSymbolInstances},
            {"sheet_instances", &SheetReader::ReadSheetInstances},
            {"uuid", &SheetReader::ReadUuid},
            {"version", &SheetReader::Ignore},
            {"generator", &SheetReader::Ignore},
            {"generator_version", &SheetReader::ReadWriterVersion},
            {"host", &SheetReader::Ignore},
            {"embedded_fonts", &SheetReader::Ignore},
            {"embedded_files", &SheetReader::Ignore},
            {"group", &SheetReader::Ignore},
        };
        auto const found = METHODS.find(node.Keyword());
        if (found == METHODS.end()) return reader.WarnUnknown(node, "kicad_sch");
        (this->*found->second)(node);
        reader.TakeFailure();
    }

private:
    template <class Item>
    void Keep(std::vector<Item>& items, Item item) {
        if (!reader.TakeFailure()) items.push_back(std::move(item));
    }

    void Ignore(View) {}

    void ReadWriterVersion(View list) { sheet.writerVersion = NodeReader::Text(list); }
    void ReadUuid(View list) { sheet.uuid = NodeReader::Text(list); }

    void ReadSymbol(View list) { Keep(sheet.symbols, ReadPlacedSymbol(reader, list)); }
    void ReadSheet(View list) { Keep(sheet.sheets, ReadSheetSymbol(reader, list)); }

    void ReadLines(View list, std::vector<Line>& lines) {
        Line line;
        std::vector<Point> points;
        for (View child = list.At(1); child; child = child.Next()) {
            std::string_view const key = NodeReader::KeywordOf(child);
            if (key == "pts") {
                points = reader.GetPoints(child);
            } else if (key == "stroke") {
                line.stroke = reader.GetStroke(child);
            } else if (key == "uuid") {
                line.uuid = NodeReader::Text(child);
            } else if (key != "locked") {
                reader.WarnUnknown(child, list.Keyword());
            }
        }
        if (reader.TakeFailure()) return;
        for (std::size_t i = 1; i < points.size(); ++i) {
            line.from = points[i - 1];
            line.to = points[i];
            lines.push_back(line);
        }
    }

    void ReadWire(View list) { ReadLines(list, sheet.wires); }
    void ReadBus(View list) { ReadLines(list, sheet.buses); }

    void ReadEntry(View list) {
        BusEntry entry;
        entry.at = reader.GetPoint(list.Find("at"));
        entry.size = reader.GetPoint(list.Find("size"));
        if (View const stroke = list.Find("stroke")) entry.stroke = reader.GetStroke(stroke);
        entry.uuid = NodeReader::Text(list.Find("uuid"));
        Keep(sheet.entries, std::move(entry));
    }

    void ReadJunction(View list) {
        Junction junction;
        junction.at = reader.GetPoint(list.Find("at"));
        if (View const node = list.Find("diameter")) junction.diameter = reader.Number(node.At(1));
        if (View const node = list.Find("color")) junction.color = reader.GetColor(node);
        junction.uuid = NodeReader::Text(list.Find("uuid"));
        Keep(sheet.junctions, std::move(junction));
    }

    void ReadNoConnect(View list) {
        NoConnect mark;
        mark.at = reader.GetPoint(list.Find("at"));
        mark.uuid = NodeReader::Text(list.Find("uuid"));
        Keep(sheet.noConnects, std::move(mark));
    }

    void ReadLocalLabel(View list) { Keep(sheet.labels, ReadLabel(reader, list, Label::LOCAL)); }
    void ReadGlobalLabel(View list) { Keep(sheet.labels, ReadLabel(reader, list, Label::GLOBAL)); }
    void ReadHierarchicalLabel(View list) {
        Keep(sheet.labels, ReadLabel(reader, list, Label::HIERARCHICAL));
    }
    void ReadFlag(View list) { Keep(sheet.labels, ReadLabel(reader, list, Label::FLAG)); }

    void ReadDrawing(View list) {
        auto shape = ReadShape(reader, list);
        if (shape) Keep(sheet.shapes, std::move(*shape));
    }

    void ReadRuleArea(View list) {
        for (View child = list.At(1); child; child = child.Next()) {
            auto shape = ReadShape(reader, child);
            if (shape) Keep(sheet.ruleAreas, std::move(*shape));
        }
    }

    void ReadPicture(View list) { Keep(sheet.images, ReadImage(reader, list)); }
    void ReadSheetTable(View list) { Keep(sheet.tables, ReadTable(reader, list)); }

    void ReadLibrary(View list) {
        for (View child = list.At(1); child; child = child.Next()) {
            if (child.Keyword() == "symbol") {
                Keep(sheet.library, ReadLibrarySymbol(reader, child));
            } else {
                reader.WarnUnknown(child, "lib_symbols");
            }
        }
    }

    void ReadAlias(View list) {
        BusAlias alias;
        alias.name = NodeReader::Text(list);
        View member = list.Find("members").At(1);
        for (; member; member = member.Next())
            alias.members.push_back(member.Text());
        Keep(sheet.aliases, std::move(alias));
    }

    void ReadPaper(View list) {
        sheet.paper.name = NodeReader::Text(list);
        View word = list.At(2);
        if (sheet.paper.name == "User" && word) {
            sheet.paper.width = std::max(1.0, reader.Number(word));
            word = word.Next();
            sheet.paper.height = word ? std::max(1.0, reader.Number(word)) : sheet.paper.width;
            if (word) word = word.Next();
        } else {
            SetPaperSize(list);
        }
        if (word && word.Raw() == "portrait") std::swap(sheet.paper.width, sheet.paper.height);
    }

    void SetPaperSize(View list) {
        for (PaperSize const& paper : PAPERS) {
            if (paper.name != sheet.paper.name) continue;
            sheet.paper.width = paper.width;
            sheet.paper.height = paper.height;
            return;
        }
        reader.Warn("unknown-paper", list, "The size of this paper is not known; A4 is taken");
    }

    void ReadTitleBlock(View list) {
        TitleBlock block;
        for (View child = list.At(1); child; child = child.Next()) {
            std::string_view const key = NodeReader::KeywordOf(child);
            if (key == "title") {
                block.title = NodeReader::Text(child);
            } else if (key == "date") {
                block.date = NodeReader::Text(child);
            } else if (key == "rev") {
                block.revision = NodeReader::Text(child);
            } else if (key == "company") {
                block.company = NodeReader::Text(child);
            } else if (key == "comment") {
                int const number = reader.Integer(child.At(1));
                if (number >= 1 && number <= 9) {
                    block.comments[static_cast<std::size_t>(number - 1)] =
                        NodeReader::Text(child, 2);
                }
            } else {
                reader.WarnUnknown(child, "title_block");
            }
        }
        sheet.titleBlock = std::move(block);
    }

    void ReadSymbolInstances(View list) {
        for (View path = list.At(1); path; path = path.Next()) {
            if (path.Keyword() != "path") continue;
            SymbolInstance instance;
            instance.path = NodeReader::Text(path);
            instance.reference = NodeReader::Text(path.Find("reference"));
            if (View const unit = path.Find("unit")) instance.unit = reader.Integer(unit.At(1));
            Keep(sheet.instanceTable, std::move(instance));
        }
    }

    void ReadSheetInstances(View list) {
        for (View path = list.At(1); path; path = path.Next()) {
            if (path.Keyword() != "path") continue;
            sheet.pageTable.push_back(
                {"", NodeReader::Text(path), NodeReader::Text(path.Find("page"))});
        }
    }

    NodeReader reader;
    SheetFile& sheet;
};

std::optional<Finding> ReadVersion(View root, Findings& findings, SheetFile& sheet) {
    if (root.Keyword() != "kicad_sch") {
        std::string sentence = "This is no KiCad schematic: it begins with '";
        sentence += root.Keyword().substr(0, 40);
        return Finding{root.GetPlace(), sentence + "'"};
    }
    NodeReader numbers(findings);
    View const version = root.Find("version");
    if (!version) return Finding{root.GetPlace(), "The version of the file format is missing"};
    View const word = version.At(1);
    std::string_view const digits = word.Raw();
    bool const isNumber =
        digits.size() == 8 &&
        std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!isNumber) {
        return Finding{version.GetPlace(), "The version of the file format is no date"};
    }
    sheet.version = std::stoi(std::string(digits));
    if (sheet.version < OLDEST_VERSION) {
        return Finding{version.GetPlace(), "The file format is of version " + std::string(digits) +
                                               "; this program reads 20210126 and later"};
    }
    if (sheet.version > NEWEST_VERSION) {
        numbers.Warn("newer-format", version,
                     "The file format is newer than this program; parts may be missing");
    }
    return std::nullopt;
}

}  // namespace

std::optional<Finding> ReadSheetFile(std::string const& path, std::string bytes,
                                     Limits const& limits, Findings& findings, SheetFile& sheet) {
    SExpression tree;
    if (auto error = tree.Parse(path, std::move(bytes), limits, findings)) return error;
    sheet.path = path;
    if (auto error = ReadVersion(tree.Root(), findings, sheet)) return error;
    SheetReader reader(findings, sheet);
    for (View child = tree.Root().At(1); child; child = child.Next())
        reader.ReadItem(child);
    return std::nullopt;
}

std::string SheetSymbol::GetProperty(std::string_view older, std::string_view newer) const {
    for (Property const& property : properties) {
        if (property.name == older || property.name == newer) return property.value;
    }
    return {};
}

std::size_t SheetFile::CountItems() const {
    return symbols.size() + wires.size() + buses.size() + entries.size() + junctions.size() +
           noConnects.size() + labels.size() + sheets.size() + shapes.size() + images.size() +
           tables.size();
}

}  // namespace fighost::kicad
