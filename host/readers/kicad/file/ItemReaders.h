// The readers of single items; private to the readers of files.
#pragma once

#include <readers/kicad/file/NodeReader.h>

namespace fighost::kicad {

/// Library symbols with their units, shapes and pins.
LibrarySymbol ReadLibrarySymbol(NodeReader& reader, SExpression::View list);

/// Lines, boxes, circles, arcs, curves, texts and text boxes, in libraries and on sheets. Nothing
/// for a keyword that is no shape.
std::optional<Shape> ReadShape(NodeReader& reader, SExpression::View list);

PlacedSymbol ReadPlacedSymbol(NodeReader& reader, SExpression::View list);
SheetSymbol ReadSheetSymbol(NodeReader& reader, SExpression::View list);
Label ReadLabel(NodeReader& reader, SExpression::View list, Label::Kind kind);
Table ReadTable(NodeReader& reader, SExpression::View list);
Image ReadImage(NodeReader& reader, SExpression::View list);
/// The bytes that the words behind the keyword stand for; what is no digit is skipped.
std::string ReadBase64(SExpression::View list);

}  // namespace fighost::kicad
