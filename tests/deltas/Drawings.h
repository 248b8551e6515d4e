// Small designs for the tests of deltas, and the way from one of them to a figure.
#pragma once

#include <figk/Design.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figkernel/SchematicKernel.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>

#include <string>
#include <utility>
#include <vector>

namespace figrep::testing {

using dg::DPoint2D;

inline figkernel::PinSource Pin(std::string const& name, DPoint2D const& at,
                                figkernel::SourceIndex net) {
    figkernel::PinSource pin;
    pin.name = name;
    pin.position = at;
    pin.net = net;
    return pin;
}

inline figkernel::BlockSource BlockWith(std::string const& name,
                                        std::vector<figkernel::PinSource> pins) {
    figkernel::BlockSource block;
    block.id = name;
    block.name = name;
    block.pins = std::move(pins);
    return block;
}

inline figkernel::WireSource WireOf(figkernel::SourceIndex net, DPoint2D const& from,
                                    DPoint2D const& to) {
    figkernel::WireSource wire;
    wire.net = net;
    wire.from = from;
    wire.to = to;
    return wire;
}

inline figkernel::DesignSource NamedDesign(std::string const& id, std::size_t sheets) {
    figkernel::DesignSource design;
    design.id = id;
    design.name = id;
    for (std::size_t i = 0; i < sheets; ++i) {
        figkernel::SheetSource sheet;
        sheet.id = "sheet" + std::to_string(i);
        sheet.name = sheet.id;
        design.sheets.push_back(sheet);
    }
    return design;
}

inline void AddNets(figkernel::DesignSource& design, std::vector<std::string> const& names) {
    for (auto const& name : names) {
        figkernel::NetSource net;
        net.name = name;
        design.nets.push_back(net);
    }
}

/// U1:1 at (0, 0), a wire with a corner, U2:1 at (20, 10), all on the net N.
inline figkernel::DesignSource TwoBlocksAndAWire() {
    auto design = NamedDesign("wired", 1);
    AddNets(design, {"N"});
    auto& sheet = design.sheets[0];
    sheet.blocks = {BlockWith("U1", {Pin("1", DPoint2D(0, 0), 0)}),
                    BlockWith("U2", {Pin("1", DPoint2D(20, 10), 0)})};
    sheet.wires = {WireOf(0, DPoint2D(0, 0), DPoint2D(20, 0)),
                   WireOf(0, DPoint2D(20, 0), DPoint2D(20, 10))};
    return design;
}

/// An upright bus with `count` nets, each with a wire to the left and one to the right of it.
inline figkernel::DesignSource BusOf(std::size_t count) {
    auto design = NamedDesign("bus", 1);
    figkernel::HighwaySource highway;
    highway.id = "D[0..]";
    highway.name = highway.id;
    auto& sheet = design.sheets[0];
    double const top = static_cast<double>(count) * 10 + 10;
    figkernel::BusSource bus;
    bus.highway = 0;
    bus.from = DPoint2D(50, 0);
    bus.to = DPoint2D(50, top);
    sheet.buses.push_back(bus);
    for (std::size_t i = 0; i < count; ++i) {
        auto const net = static_cast<figkernel::SourceIndex>(i);
        AddNets(design, {"D" + std::to_string(i)});
        highway.nets.push_back(net);
        double const y = static_cast<double>(i) * 10 + 5;
        for (double const x : {20.0, 80.0}) {
            double const inner = x < 50 ? 48 : 52;
            double const tapY = x < 50 ? y : y + 3;
            figkernel::TapSource tap;
            tap.highway = 0;
            tap.net = net;
            tap.busPoint = DPoint2D(50, tapY);
            tap.netPoint = DPoint2D(inner, tapY);
            sheet.taps.push_back(tap);
            sheet.wires.push_back(WireOf(net, DPoint2D(inner, tapY), DPoint2D(x, tapY)));
        }
    }
    design.highways.push_back(highway);
    return design;
}

/// A built design, installed as the process's kernel as long as this stands.
class InstalledDesign {
public:
    explicit InstalledDesign(figkernel::DesignSource const& source)
        : kernel(new figkernel::SchematicKernel()) {
        design = figkernel::Build(source, figk::SchematicKernel::GetKernelLock()).design;
        kernel->AddDesign(design);
        figk::SchematicKernel::SetSchematicKernel(kernel);
    }
    InstalledDesign(InstalledDesign const&) = delete;
    InstalledDesign& operator=(InstalledDesign const&) = delete;
    ~InstalledDesign() { figk::SchematicKernel::SetSchematicKernel({}); }

    SmartPtr<figk::Sheet> Sheet(std::size_t index = 0) const {
        return design->GetSheets().at(index);
    }

    SmartPtr<figkernel::SchematicKernel> kernel;
    SmartPtr<figk::Design> design;
};

/// A figure of one sheet, loaded.
inline SmartPtr<Figure> LoadedFigure(SmartPtr<figk::Sheet> const& sheet) {
    SmartPtr<Figure> figure = new Figure();
    SmartPtr<FigureSheetDeltaGenerator> const generator = new FigureSheetDeltaGenerator(sheet);
    figure->GenerateDeltas(*generator);
    figure->ApplyDeltas(false);
    return figure;
}

}  // namespace figrep::testing
