#include <support/LoadedDesign.h>

#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/Setting.h>
#include <readers/kicad/ReadDesign.h>

namespace figbench {

namespace {

using figrep::SmartPtr;

class SegmentCounter : public figrep::AbstractFigureVisitor {
public:
    using figrep::AbstractFigureVisitor::Visit;
    bool Visit(SmartPtr<figrep::NetSegment> const&) override { return Count(); }
    bool Visit(SmartPtr<figrep::HighwaySegment> const&) override { return Count(); }

    std::size_t count = 0;

private:
    bool Count() {
        ++count;
        return true;
    }
};

SmartPtr<figrep::Figure> MakeFigure(SmartPtr<figk::Sheet> const& sheet) {
    figrep::KernelToFigureFactory factory;
    SmartPtr<figrep::Figure> const figure = factory.CreateFigure();
    ShowCrossingsAsArcs(figure);
    figrep::FigureSheetDeltaGenerator generator(sheet);
    figure->GenerateDeltas(generator);
    figure->ApplyDeltas(false);
    return figure;
}

}  // namespace

void ShowCrossingsAsArcs(SmartPtr<figrep::Figure> const& figure) {
    SmartPtr<figk::BaseSettingValue> const value(
        new figk::SettingValue<figk::CrossingPointStyle>(figk::CROSSING_ARC));
    figure->AddSetting(
        SmartPtr<figrep::Setting>(new figrep::Setting(figrep::Setting::CROSSING_POINT_STYLE, value,
                                                      figk::Setting::LEVEL_PROFILE, true)),
        false);
}

void LoadedDesign::UpdateContent() const {
    for (auto const& figure : figures)
        figure->UpdateContent();
}

std::size_t LoadedDesign::CountSegments() const {
    SegmentCounter counter;
    for (auto const& figure : figures)
        figure->Accept(counter);
    return counter.count;
}

LoadedDesign LoadFigures(SmartPtr<figk::Design> const& design) {
    LoadedDesign loaded{design, {}};
    for (auto const& sheet : design->GetSheets()) {
        loaded.figures.push_back(MakeFigure(sheet));
    }
    return loaded;
}

LoadedDesign LoadFigures(figkernel::DesignSource const& source) {
    return LoadFigures(figkernel::Build(source, figk::SchematicKernel::GetKernelLock()).design);
}

LoadedDesign LoadFile(fighost::FileSource& files, std::string const& path) {
    fighost::kicad::ReadResult const read = fighost::kicad::ReadDesign(files, path);
    return read.IsGood() ? LoadFigures(read.design) : LoadedDesign();
}

}  // namespace figbench
