#include <figrep/FigureSheetDeltaGenerator.h>

#include <figk/Sheet.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/AbstractKernelToFigureFactory.h>
#include <figrep/FigureSheetDelta.h>

namespace figrep {

using Generator = FigureSheetDeltaGenerator;

Generator::FigureSheetDeltaGenerator(SmartPtr<figk::Sheet> const& sheet) : sheet_(sheet) {}
Generator::FigureSheetDeltaGenerator(Generator const&) = default;
Generator& Generator::operator=(Generator const&) = default;
Generator::~FigureSheetDeltaGenerator() = default;

void Generator::SetFactory(SmartPtr<AbstractKernelToFigureFactory> const& factory) {
    factory_ = factory;
}

void Generator::Generate() {
    SmartPtr<FigureSheetDelta> const delta =
        new FigureSheetDelta(sheet_, figk::AbstractDelta::ACTION_COPY);
    delta->SetFactory(factory_);
    deltas.push_back(delta);
}

}  // namespace figrep
