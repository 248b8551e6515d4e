// The smallest host: a design made in memory, its figure, and a picture of it on standard output.
#include <iostream>

#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figkernel/SchematicKernel.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/KernelToFigureFactory.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>
#include <zv2d/Definition.h>
#include <zv2d/Instance.h>
#include <zv2d/TexPolyline.h>

namespace {

using du::SmartPtr;

figkernel::PinSource Pin(char const* name, dg::DPoint2D const& at, figkernel::SourceIndex net) {
    figkernel::PinSource pin;
    pin.id = pin.name = name;
    pin.position = at;
    pin.net = net;
    return pin;
}

// A part with two pins, 20 mm apart, and a box for a picture.
figkernel::BlockSource Part(char const* name, dg::DPoint2D const& at, figkernel::SourceIndex left,
                            figkernel::SourceIndex right) {
    SmartPtr<zv2d::Definition> box(new zv2d::Definition());
    box->Add(new zv2d::TexPolyline({{-10, -4}, {10, -4}, {10, 4}, {-10, 4}}, nullptr, true));
    dg::DMat33 place;
    place.SetTranslation(at);
    figkernel::BlockSource part;
    part.id = part.name = name;
    part.graphics.graphics.push_back({"body", "", {new zv2d::Instance(box, place)}});
    part.pins.push_back(Pin("1", {at.x - 10, at.y}, left));
    part.pins.push_back(Pin("2", {at.x + 10, at.y}, right));
    return part;
}

figkernel::DesignSource Draw() {
    figkernel::DesignSource design;
    design.id = design.name = "two parts";
    design.nets.resize(2);
    design.nets[0].name = "IN";
    design.nets[1].name = "OUT";
    figkernel::SheetSource sheet;
    sheet.id = sheet.name = "main";
    sheet.blocks.push_back(Part("U1", {0, 0}, 0, 1));
    sheet.blocks.push_back(Part("U2", {50, 0}, 1, 0));
    sheet.wires.push_back({"w1", 1, {10, 0}, {40, 0}});
    sheet.wires.push_back({"w2", 0, {-10, 0}, {-10, 15}});
    sheet.wires.push_back({"w3", 0, {-10, 15}, {60, 15}});
    sheet.wires.push_back({"w4", 0, {60, 15}, {60, 0}});
    design.sheets.push_back(sheet);
    return design;
}

}  // namespace

int main() {
    SmartPtr<figkernel::SchematicKernel> kernel(new figkernel::SchematicKernel());
    figk::SchematicKernel::SetSchematicKernel(kernel);
    auto const built = figkernel::Build(Draw(), figk::SchematicKernel::GetKernelLock());
    kernel->AddDesign(built.design);

    figrep::KernelToFigureFactory factory;
    SmartPtr<figrep::Figure> const figure = factory.CreateFigure();
    for (auto const& sheet : built.design->GetSheets()) {
        figrep::FigureSheetDeltaGenerator generator(sheet);
        figure->GenerateDeltas(generator);
    }
    figure->ApplyDeltas(false);
    figure->UpdateContent();

    fighost::SvgPainter painter;
    fighost::PaintFigure(figure, painter);
    std::cout << painter.TakeDocument();
    return 0;
}
