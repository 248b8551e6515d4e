// Schematic files in a few words: pieces of text that tests put together. Coordinates are mm.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <readers/kicad/ReadDesign.h>

namespace sheettext {

/// A whole file with the library that `Pin` and its kin use.
std::string File(std::string const& content, int version = 20231120,
                 std::string const& uuid = "top");

std::string Wire(double x1, double y1, double x2, double y2);
std::string Bus(double x1, double y1, double x2, double y2);
/// From (x, y) by (dx, dy).
std::string Entry(double x, double y, double dx, double dy);
std::string Junction(double x, double y);
std::string NoConnect(double x, double y);
std::string Local(std::string const& text, double x, double y);
std::string Global(std::string const& text, double x, double y, std::string const& shape = "input");
std::string Hierarchical(std::string const& text, double x, double y,
                         std::string const& shape = "input");
std::string Flag(double x, double y);
std::string Alias(std::string const& name, std::string const& members);

/// A part with one passive pin, number 1, whose connecting point is at (x, y).
std::string Pin(std::string const& reference, double x, double y);
/// A placed symbol of the library, with further words such as `(unit 2)` or `(mirror x)`.
std::string Symbol(std::string const& library, std::string const& reference,
                   std::string const& value, double x, double y, int angle = 0,
                   std::string const& more = "");
/// A power symbol of that value.
std::string Power(std::string const& value, double x, double y);

/// A sub-sheet with pins, given as `SheetPin` texts.
std::string Sheet(std::string const& name, std::string const& file, std::string const& pins = "",
                  std::string const& more = "");
std::string SheetPin(std::string const& name, double x, double y,
                     std::string const& type = "bidirectional");

/// A library symbol of one unit with a pin of that type named `name`, at the origin, length 0.
std::string OnePin(std::string const& library, std::string const& type, std::string const& name,
                   std::string const& symbolWords = "", std::string const& pinWords = "");

/// The design of one file, or of several by name ("root.kicad_sch" is read).
fighost::kicad::ReadResult Read(std::string const& file);
fighost::kicad::ReadResult Read(std::map<std::string, std::string> const& files);

/// The name of the net of "REF:PIN", empty when there is no such pin. With several pins of that
/// name the first counts.
std::string NetOf(fighost::kicad::ReadResult const& result, std::string const& pin);
bool Joined(fighost::kicad::ReadResult const& result, std::string const& a, std::string const& b);
/// All nets that have pins, as sets of "REF:PIN", without pins of references that begin with '#'.
std::set<std::set<std::string>> PinSets(figkernel::DesignSource const& design);
/// How many warnings of a kind there are.
std::size_t Warnings(fighost::kicad::ReadResult const& result, std::string const& kind);

}  // namespace sheettext
