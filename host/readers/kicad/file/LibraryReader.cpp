#include <charconv>

#include "ItemReaders.h"

namespace fighost::kicad {

namespace {

using View = SExpression::View;

bool IsIgnoredInSymbol(std::string_view key) {
    static constexpr std::string_view KNOWN[] = {
        "in_bom",         "on_board",       "exclude_from_sim", "in_pos_files",
        "embedded_fonts", "embedded_files", "body_styles",      "unit_name"};
    for (std::string_view const known : KNOWN) {
        if (key == known) return true;
    }
    return false;
}

void ReadTypeAndShape(View list, unsigned first, std::string& type, std::string& shape) {
    type = list.At(first).Text();
    shape = list.At(first + 1).Text();
}

void ReadPinWord(NodeReader& reader, View list, std::string& word, TextStyle& style) {
    word = NodeReader::Text(list);
    for (View child = list.At(2); child; child = child.Next()) {
        if (child.Keyword() == "effects") {
            style = reader.GetEffects(child);
        } else {
            reader.WarnUnknown(child, "pin");
        }
    }
}

Alternate ReadAlternate(View list) {
    Alternate alternate;
    alternate.name = NodeReader::Text(list);
    ReadTypeAndShape(list, 2, alternate.type, alternate.shape);
    return alternate;
}

void ReadPinPart(NodeReader& reader, View child, LibraryPin& pin) {
    std::string_view const key = NodeReader::KeywordOf(child);
    if (key == "at") {
        pin.at = reader.GetPoint(child);
        if (View const angle = child.At(3)) pin.angle = 90 * QuarterTurns(reader.Number(angle));
    } else if (key == "length") {
        pin.length = reader.GetLength(child.At(1));
    } else if (key == "name") {
        ReadPinWord(reader, child, pin.name, pin.nameStyle);
    } else if (key == "number") {
        ReadPinWord(reader, child, pin.number, pin.numberStyle);
    } else if (key == "hide") {
        pin.hidden = NodeReader::Flag(child);
    } else if (key == "alternate") {
        pin.alternates.push_back(ReadAlternate(child));
    } else {
        reader.WarnUnknown(child, "pin");
    }
}

LibraryPin ReadPin(NodeReader& reader, View list) {
    LibraryPin pin;
    ReadTypeAndShape(list, 1, pin.type, pin.shape);
    for (View child = list.At(3); child; child = child.Next())
        ReadPinPart(reader, child, pin);
    return pin;
}

/// The two numbers at the end of "NAME_unit_body".
void ReadUnitNumbers(std::string_view name, LibraryUnit& unit) {
    std::size_t const second = name.rfind('_');
    if (second == std::string_view::npos || second == 0) return;
    std::size_t const first = name.rfind('_', second - 1);
    if (first == std::string_view::npos) return;
    std::string_view const one = name.substr(first + 1, second - first - 1);
    std::string_view const two = name.substr(second + 1);
    std::from_chars(one.data(), one.data() + one.size(), unit.unit);
    std::from_chars(two.data(), two.data() + two.size(), unit.bodyStyle);
}

LibraryUnit ReadUnit(NodeReader& reader, View list) {
    LibraryUnit unit;
    ReadUnitNumbers(NodeReader::Text(list), unit);
    for (View child = list.At(2); child; child = child.Next()) {
        if (child.Keyword() == "pin") {
            LibraryPin pin = ReadPin(reader, child);
            if (!reader.TakeFailure()) unit.pins.push_back(std::move(pin));
        } else if (auto shape = ReadShape(reader, child)) {
            if (shape->kind == Shape::TEXT) shape->angle /= 10;  // in libraries tenths of degrees
            if (!reader.TakeFailure()) unit.shapes.push_back(std::move(*shape));
        } else if (child.Keyword() != "unit_name") {
            reader.WarnUnknown(child, "symbol");
        }
    }
    return unit;
}

void ReadPinNames(NodeReader& reader, View list, LibrarySymbol& symbol) {
    for (View child = list.At(1); child; child = child.Next()) {
        std::string_view const key = NodeReader::KeywordOf(child);
        if (key == "offset") {
            symbol.pinNameOffset = reader.GetLength(child.At(1));
        } else if (key == "hide") {
            symbol.pinNamesHidden = NodeReader::Flag(child);
        } else {
            reader.WarnUnknown(child, "pin_names");
        }
    }
}

void ReadPinNumbers(NodeReader& reader, View list, LibrarySymbol& symbol) {
    for (View child = list.At(1); child; child = child.Next()) {
        if (NodeReader::KeywordOf(child) == "hide") {
            symbol.pinNumbersHidden = NodeReader::Flag(child);
        } else {
            reader.WarnUnknown(child, "pin_numbers");
        }
    }
}

void ReadJumperGroups(View list, LibrarySymbol& symbol) {
    for (View group = list.At(1); group; group = group.Next()) {
        std::vector<std::string> numbers;
        for (View pin = group.FirstChild(); pin; pin = pin.Next())
            numbers.push_back(pin.Text());
        if (numbers.size() > 1) symbol.jumperGroups.push_back(std::move(numbers));
    }
}

void ReadSymbolPart(NodeReader& reader, View child, LibrarySymbol& symbol) {
    std::string_view const key = NodeReader::KeywordOf(child);
    if (key == "symbol") {
        symbol.units.push_back(ReadUnit(reader, child));
    } else if (key == "property") {
        Property property = reader.GetProperty(child);
        if (!reader.TakeFailure()) symbol.properties.push_back(std::move(property));
    } else if (key == "pin_names") {
        ReadPinNames(reader, child, symbol);
    } else if (key == "pin_numbers") {
        ReadPinNumbers(reader, child, symbol);
    } else if (key == "power") {
        symbol.power = true;
        symbol.powerLocal = child.At(1).Raw() == "local";
    } else if (key == "extends") {
        symbol.extends = NodeReader::Text(child);
    } else if (key == "duplicate_pin_numbers_are_jumpers") {
        symbol.duplicatesAreJumpers = NodeReader::Flag(child);
    } else if (key == "jumper_pin_groups") {
        ReadJumperGroups(child, symbol);
    } else if (!IsIgnoredInSymbol(key)) {
        reader.WarnUnknown(child, "symbol");
    }
}

}  // namespace

LibrarySymbol ReadLibrarySymbol(NodeReader& reader, View list) {
    LibrarySymbol symbol;
    symbol.name = NodeReader::Text(list);
    for (View child = list.At(2); child; child = child.Next()) {
        ReadSymbolPart(reader, child, symbol);
        reader.TakeFailure();
    }
    return symbol;
}

}  // namespace fighost::kicad
