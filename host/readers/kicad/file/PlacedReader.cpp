#include <array>
#include <cmath>
#include <cstdint>

#include "ItemReaders.h"

namespace fighost::kicad {

namespace {

using View = SExpression::View;

void ReadAt(NodeReader& reader, View list, Point& at, int& quarterTurns, double* angle = nullptr) {
    at = reader.GetPoint(list);
    View const word = list.At(3);
    double const degrees = word ? reader.Number(word) : 0;
    quarterTurns = QuarterTurns(degrees);
    if (angle) *angle = degrees;
}

PlacedPin ReadPlacedPin(View list) {
    PlacedPin pin;
    pin.number = NodeReader::Text(list);
    pin.uuid = NodeReader::Text(list.Find("uuid"));
    pin.alternate = NodeReader::Text(list.Find("alternate"));
    return pin;
}

SymbolInstance ReadInstance(NodeReader& reader, View path, std::string const& project) {
    SymbolInstance instance;
    instance.project = project;
    instance.path = NodeReader::Text(path);
    instance.reference = NodeReader::Text(path.Find("reference"));
    if (View const unit = path.Find("unit")) instance.unit = reader.Integer(unit.At(1));
    return instance;
}

void ReadInstances(NodeReader& reader, View list, std::vector<SymbolInstance>& instances) {
    for (View project = list.At(1); project; project = project.Next()) {
        std::string const name = NodeReader::Text(project);
        for (View path = project.At(2); path; path = path.Next()) {
            if (path.Keyword() != "path") continue;
            instances.push_back(ReadInstance(reader, path, name));
        }
    }
}

bool IsIgnoredInSymbol(std::string_view key) {
    return key == "fields_autoplaced" || key == "exclude_from_sim" || key == "in_pos_files" ||
           key == "default_instance" || key == "locked" || key == "passthrough" ||
           key == "show_pin_names" || key == "show_pin_numbers";
}

void ReadMirror(View list, PlacedSymbol& symbol) {
    for (View axis = list.At(1); axis; axis = axis.Next()) {
        std::string_view const word = axis.Raw();
        if (word.find('x') != std::string_view::npos) symbol.mirrorX = true;
        if (word.find('y') != std::string_view::npos) symbol.mirrorY = true;
    }
}

/// Words that say what the symbol is. False for a word that is none of them.
bool ReadIdentity(View child, std::string_view key, PlacedSymbol& symbol) {
    if (key == "lib_id") {
        symbol.libraryId = NodeReader::Text(child);
    } else if (key == "lib_name") {
        symbol.libraryName = NodeReader::Text(child);
    } else if (key == "uuid") {
        symbol.uuid = NodeReader::Text(child);
    } else if (key == "dnp") {
        symbol.dnp = NodeReader::Flag(child);
    } else if (key == "in_bom") {
        symbol.inBom = NodeReader::Flag(child);
    } else if (key == "on_board") {
        symbol.onBoard = NodeReader::Flag(child);
    } else if (key == "mirror") {
        ReadMirror(child, symbol);
    } else {
        return false;
    }
    return true;
}

void ReadSymbolPart(NodeReader& reader, View child, PlacedSymbol& symbol) {
    std::string_view const key = NodeReader::KeywordOf(child);
    if (ReadIdentity(child, key, symbol)) return;
    if (key == "property") {
        symbol.properties.push_back(reader.GetProperty(child));
    } else if (key == "pin") {
        symbol.pins.push_back(ReadPlacedPin(child));
    } else if (key == "at") {
        ReadAt(reader, child, symbol.at, symbol.quarterTurns);
    } else if (key == "unit") {
        symbol.unit = reader.Integer(child.At(1));
    } else if (key == "convert" || key == "body_style") {
        symbol.bodyStyle = reader.Integer(child.At(1));
    } else if (key == "instances") {
        ReadInstances(reader, child, symbol.instances);
    } else if (!IsIgnoredInSymbol(key)) {
        reader.WarnUnknown(child, "symbol");
    }
}

SheetPin ReadSheetPin(NodeReader& reader, View list) {
    SheetPin pin;
    pin.name = NodeReader::Text(list, 1);
    pin.type = NodeReader::Text(list, 2);
    for (View child = list.At(3); child; child = child.Next()) {
        std::string_view const key = NodeReader::KeywordOf(child);
        if (key == "at") {
            ReadAt(reader, child, pin.at, pin.quarterTurns);
        } else if (key == "effects") {
            pin.style = reader.GetEffects(child);
        } else if (key == "uuid") {
            pin.uuid = NodeReader::Text(child);
        } else {
            reader.WarnUnknown(child, "pin");
        }
    }
    return pin;
}

void ReadPages(View list, std::vector<SheetPage>& pages) {
    for (View project = list.At(1); project; project = project.Next()) {
        std::string const name = NodeReader::Text(project);
        for (View path = project.At(2); path; path = path.Next()) {
            if (path.Keyword() != "path") continue;
            pages.push_back({name, NodeReader::Text(path), NodeReader::Text(path.Find("page"))});
        }
    }
}

bool IsIgnoredInSheet(std::string_view key) {
    return key == "fields_autoplaced" || key == "exclude_from_sim" || key == "in_bom" ||
           key == "on_board" || key == "locked";
}

void ReadSheetPart(NodeReader& reader, View child, SheetSymbol& sheet) {
    std::string_view const key = NodeReader::KeywordOf(child);
    if (key == "at") {
        sheet.at = reader.GetPoint(child);
    } else if (key == "size") {
        sheet.size = reader.GetPoint(child);
    } else if (key == "stroke") {
        sheet.stroke = reader.GetStroke(child);
    } else if (key == "fill") {
        sheet.fill = reader.GetFill(child);
        if (sheet.fill.color) sheet.fill.type = Fill::COLOR;
    } else if (key == "property") {
        sheet.properties.push_back(reader.GetProperty(child));
    } else if (key == "pin") {
        sheet.pins.push_back(ReadSheetPin(reader, child));
    } else if (key == "uuid") {
        sheet.uuid = NodeReader::Text(child);
    } else if (key == "dnp") {
        sheet.dnp = NodeReader::Flag(child);
    } else if (key == "instances") {
        ReadPages(child, sheet.pages);
    } else if (!IsIgnoredInSheet(key)) {
        reader.WarnUnknown(child, "sheet");
    }
}

void ReadNumbers(NodeReader& reader, View list, std::vector<double>& numbers) {
    for (View word = list.At(1); word; word = word.Next())
        numbers.push_back(reader.Number(word));
}

void ReadCells(NodeReader& reader, View list, Table& table) {
    for (View child = list.At(1); child; child = child.Next()) {
        auto shape = ReadShape(reader, child);
        if (!shape) {
            reader.WarnUnknown(child, "cells");
            continue;
        }
        TableCell cell;
        cell.uuid = shape->uuid;
        cell.box = std::move(*shape);
        if (View const span = child.Find("span")) {
            cell.columnSpan = reader.Integer(span.At(1));
            cell.rowSpan = reader.Integer(span.At(2));
        }
        if (!reader.TakeFailure()) table.cells.push_back(std::move(cell));
    }
}

void ReadBorder(NodeReader& reader, View list, Table& table) {
    if (View const node = list.Find("external")) table.outerBorder = NodeReader::Flag(node);
    if (View const node = list.Find("header")) table.headerBorder = NodeReader::Flag(node);
    if (View const node = list.Find("stroke")) table.borderStroke = reader.GetStroke(node);
}

void ReadSeparators(NodeReader& reader, View list, Table& table) {
    if (View const node = list.Find("rows")) table.rowLines = NodeReader::Flag(node);
    if (View const node = list.Find("cols")) table.columnLines = NodeReader::Flag(node);
    if (View const node = list.Find("stroke")) table.lineStroke = reader.GetStroke(node);
}

constexpr std::uint8_t NO_DIGIT = 0xFF;

constexpr std::array<std::uint8_t, 256> MakeDigits() {
    constexpr std::string_view DIGITS =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::array<std::uint8_t, 256> values{};
    for (auto& value : values)
        value = NO_DIGIT;
    for (std::size_t i = 0; i < DIGITS.size(); ++i) {
        values[static_cast<unsigned char>(DIGITS[i])] = static_cast<std::uint8_t>(i);
    }
    return values;
}

/// Decodes base64 that comes in pieces; what is no digit is skipped.
class Base64Decoder {
public:
    explicit Base64Decoder(std::string& out) : bytes(out) {}

    void Append(std::string_view digits) {
        static constexpr std::array<std::uint8_t, 256> VALUES = MakeDigits();
        std::size_t used = bytes.size();
        bytes.resize(used + digits.size());  // more than enough
        for (char const c : digits) {
            std::uint8_t const value = VALUES[static_cast<unsigned char>(c)];
            if (value == NO_DIGIT) continue;
            bits = (bits << 6 | value) & 0xFFFFFu;
            count += 6;
            if (count < 8) continue;
            count -= 8;
            bytes[used++] = static_cast<char>(static_cast<unsigned char>(bits >> count & 0xFFu));
        }
        bytes.resize(used);
    }

private:
    std::string& bytes;
    unsigned bits = 0;
    unsigned count = 0;
};

}  // namespace

PlacedSymbol ReadPlacedSymbol(NodeReader& reader, View list) {
    PlacedSymbol symbol;
    symbol.place = list.GetPlace();
    for (View child = list.At(1); child; child = child.Next()) {
        ReadSymbolPart(reader, child, symbol);
    }
    return symbol;
}

SheetSymbol ReadSheetSymbol(NodeReader& reader, View list) {
    SheetSymbol sheet;
    sheet.place = list.GetPlace();
    for (View child = list.At(1); child; child = child.Next())
        ReadSheetPart(reader, child, sheet);
    return sheet;
}

Label ReadLabel(NodeReader& reader, View list, Label::Kind kind) {
    Label label;
    label.kind = kind;
    label.text = NodeReader::Text(list);
    for (View child = list.At(2); child; child = child.Next()) {
        std::string_view const key = NodeReader::KeywordOf(child);
        if (key == "at") {
            ReadAt(reader, child, label.at, label.quarterTurns, &label.angle);
        } else if (key == "shape") {
            label.shape = NodeReader::Text(child);
        } else if (key == "effects") {
            label.style = reader.GetEffects(child);
        } else if (key == "property") {
            label.properties.push_back(reader.GetProperty(child));
        } else if (key == "uuid") {
            label.uuid = NodeReader::Text(child);
        } else if (key == "length") {
            label.length = reader.GetLength(child.At(1));
        } else if (key != "fields_autoplaced" && key != "exclude_from_sim" && key != "locked") {
            reader.WarnUnknown(child, "label");
        }
    }
    return label;
}

Table ReadTable(NodeReader& reader, View list) {
    Table table;
    for (View child = list.At(1); child; child = child.Next()) {
        std::string_view const key = NodeReader::KeywordOf(child);
        if (key == "cells") {
            ReadCells(reader, child, table);
        } else if (key == "column_widths") {
            ReadNumbers(reader, child, table.columnWidths);
        } else if (key == "row_heights") {
            ReadNumbers(reader, child, table.rowHeights);
        } else if (key == "border") {
            ReadBorder(reader, child, table);
        } else if (key == "separators") {
            ReadSeparators(reader, child, table);
        } else if (key == "uuid") {
            table.uuid = NodeReader::Text(child);
        } else if (key != "column_count" && key != "locked") {
            reader.WarnUnknown(child, "table");
        }
    }
    return table;
}

std::string ReadBase64(View list) {
    std::string bytes;
    Base64Decoder decoder(bytes);
    for (View part = list.At(1); part; part = part.Next())
        decoder.Append(part.Raw());
    return bytes;
}

Image ReadImage(NodeReader& reader, View list) {
    Image image;
    for (View child = list.At(1); child; child = child.Next()) {
        std::string_view const key = NodeReader::KeywordOf(child);
        if (key == "at") {
            image.at = reader.GetPoint(child);
        } else if (key == "scale") {
            image.scale = reader.Number(child.At(1));
        } else if (key == "uuid") {
            image.uuid = NodeReader::Text(child);
        } else if (key == "data") {
            image.bytes = ReadBase64(child);
        } else if (key != "locked") {
            reader.WarnUnknown(child, "image");
        }
    }
    return image;
}

}  // namespace fighost::kicad
