#include <support/KicadText.h>

#include <cstdio>

#include <support/GeneratedDesign.h>

namespace figbench {

namespace {

using figkernel::BlockSource;

/// Files have y down.
class Writer {
public:
    explicit Writer(figkernel::DesignSource const& generated) : design(generated) {}

    std::string Write() {
        figkernel::SheetSource const& sheet = design.sheets.front();
        text =
            "(kicad_sch (version 20231120) (generator \"eeschema\") (uuid \"root\")"
            " (paper \"A0\")\n";
        if (!sheet.blocks.empty()) AddLibrary(sheet.blocks.front());
        for (auto const& wire : sheet.wires)
            AddWire(wire);
        for (auto const& node : sheet.portNodes)
            AddLabel(node);
        for (auto const& block : sheet.blocks)
            AddSymbol(block);
        text += ")\n";
        return std::move(text);
    }

private:
    template <class... Values>
    void Print(char const* format, Values... values) {
        char line[512];
        int const length = std::snprintf(line, sizeof line, format, values...);
        text.append(line, static_cast<std::size_t>(length));
    }

    static dg::DPoint2D Origin(BlockSource const& block) { return block.pins.front().position; }

    /// Library symbols have y up.
    void AddLibrary(BlockSource const& block) {
        dg::DPoint2D const origin = Origin(block);
        text +=
            "\t(lib_symbols\n\t\t(symbol \"bench:part\" (pin_names (offset 1.016))\n"
            "\t\t\t(property \"Reference\" \"U\" (at 0 2.54 0))\n"
            "\t\t\t(symbol \"part_0_1\" (rectangle (start 0 -2.54) (end 10.16 22.86)"
            " (stroke (width 0.254) (type default)) (fill (type background))))\n"
            "\t\t\t(symbol \"part_1_1\"\n";
        for (auto const& pin : block.pins) {
            Print(
                "\t\t\t\t(pin passive line (at %.10g %.10g 0) (length 0)"
                " (name \"P%s\" (effects (font (size 1.27 1.27))))"
                " (number \"%s\" (effects (font (size 1.27 1.27)))))\n",
                pin.position.x - origin.x, pin.position.y - origin.y, pin.name.c_str(),
                pin.name.c_str());
        }
        text += "\t\t\t)))\n";
    }

    void AddWire(figkernel::WireSource const& wire) {
        Print(
            "\t(wire\n\t\t(pts\n\t\t\t(xy %.10g %.10g) (xy %.10g %.10g)\n\t\t)\n"
            "\t\t(stroke\n\t\t\t(width 0)\n\t\t\t(type default)\n\t\t)\n"
            "\t\t(uuid \"%s-%08x-0000-4000-8000\")\n\t)\n",
            wire.from.x, -wire.from.y, wire.to.x, -wire.to.y, wire.id.c_str(), ++count);
    }

    void AddLabel(figkernel::PortNodeSource const& node) {
        Print(
            "\t(global_label \"COMMON\" (shape input) (at %.10g %.10g 180)"
            " (effects (font (size 1.27 1.27)) (justify right)) (uuid \"%s\"))\n",
            node.position.x, -node.position.y, node.id.c_str());
    }

    void AddSymbol(BlockSource const& block) {
        dg::DPoint2D const at = Origin(block);
        Print(
            "\t(symbol (lib_id \"bench:part\") (at %.10g %.10g 0) (unit 1) (in_bom yes)"
            " (uuid \"%s\")\n",
            at.x, -at.y, block.id.c_str());
        Print(
            "\t\t(property \"Reference\" \"%s\" (at %.10g %.10g 0)"
            " (effects (font (size 1.27 1.27))))\n",
            block.name.c_str(), at.x, -(at.y - 5.08));
        Print(
            "\t\t(property \"Value\" \"part\" (at %.10g %.10g 0)"
            " (effects (font (size 1.27 1.27))))\n",
            at.x, -(at.y - 7.62));
        for (auto const& pin : block.pins)
            Print("\t\t(pin \"%s\" (uuid \"p-%08x\"))\n", pin.name.c_str(), ++count);
        text += "\t)\n";
    }

    figkernel::DesignSource const& design;
    std::string text;
    unsigned count = 0;
};

}  // namespace

std::string WriteKicadSheet(figkernel::DesignSource const& design) {
    return Writer(design).Write();
}

std::string GenerateKicadSheet(std::size_t segments) {
    figrep::test::GridOptions options;
    options.segments = segments;
    options.highways = false;
    options.graphics = false;
    return WriteKicadSheet(figrep::test::GenerateGrid(options));
}

}  // namespace figbench
