// Symbols as blocks with pins. Private to the writer of designs.
#pragma once

#include <map>
#include <tuple>
#include <vector>

#include <figkernel/DesignSource.h>
#include <readers/kicad/nets/Nets.h>
#include <readers/kicad/pictures/Looks.h>
#include <readers/kicad/pictures/Shapes.h>

namespace fighost::kicad {

/// Makes the blocks of one design. Bodies that look alike share their definitions.
class SymbolPictures {
public:
    SymbolPictures(Hierarchy const& design, Looks& palette) : hierarchy(design), looks(palette) {}

    /// The block of a symbol, with the nets of its pins.
    figkernel::BlockSource MakeBlock(SheetGraph const& sheet, std::size_t number,
                                     DesignNets const& nets, Frame const& frame);

private:
    /// The shapes of one colour.
    struct Layer {
        figkernel::SourceIndex settings;
        du::ConstSmartPtr<zv2d::Definition> definition;
    };
    struct Body {
        std::vector<Layer> layers;
        std::vector<Shape const*> texts;
        dg::DBox2D box;  ///< of the shapes
    };
    using BodyKey = std::tuple<LibrarySymbol const*, int, int>;
    using PinKey = std::tuple<std::string, Length>;

    Body const& BodyOf(ResolvedSymbol const& symbol);
    void AddShapes(ResolvedSymbol const& symbol, bool bodies, Body& body);
    void DrawBody(ResolvedSymbol const& symbol, Frame const& frame, figkernel::BlockSource& block);
    void DrawMissing(ResolvedSymbol const& symbol, Frame const& frame,
                     figkernel::BlockSource& block);
    void DrawCross(dg::DBox2D const& box, figkernel::BlockSource& block);
    void AddFields(SheetGraph const& sheet, ResolvedSymbol const& symbol, Frame const& frame,
                   figkernel::BlockSource& block);
    std::string FieldText(SheetGraph const& sheet, ResolvedSymbol const& symbol,
                          Property const& property) const;
    void AddPins(SheetGraph const& sheet, std::size_t number, DesignNets const& nets,
                 Frame const& frame, figkernel::BlockSource& block);
    void DrawPin(ResolvedSymbol const& symbol, ResolvedPin const& pin, Frame const& frame,
                 figkernel::PinSource& source);
    void AddPinTexts(ResolvedSymbol const& symbol, ResolvedPin const& pin, Frame const& frame,
                     figkernel::PinSource& source);

    Hierarchy const& hierarchy;
    Looks& looks;
    std::map<BodyKey, Body> bodies;
    std::map<PinKey, du::ConstSmartPtr<zv2d::Definition>> pinDefinitions;
};

/// Where a field stands in the picture: fields keep reading from below or from the right however
/// their symbol is turned, and keep to their side of it.
Stand StandOfField(Property const& property, Orientation const& orientation, Frame const& frame);

}  // namespace fighost::kicad
