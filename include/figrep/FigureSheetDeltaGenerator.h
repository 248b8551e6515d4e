// Makes the delta that brings a sheet into a figure.
#pragma once

#include <figk/AbstractDeltaGenerator.h>
#include <figrep/Fwd.h>

namespace figrep {

/// Each `Generate` adds one more delta for the sheet to those that the figure is to take over.
class FigureSheetDeltaGenerator : public figk::AbstractDeltaGenerator {
public:
    explicit FigureSheetDeltaGenerator(SmartPtr<figk::Sheet> const& sheet);
    FigureSheetDeltaGenerator(FigureSheetDeltaGenerator const&);
    FigureSheetDeltaGenerator& operator=(FigureSheetDeltaGenerator const&);
    ~FigureSheetDeltaGenerator() override;

    /// The factory for what the deltas make; null leaves them the library's own.
    void SetFactory(SmartPtr<AbstractKernelToFigureFactory> const& factory);

    void Generate() override;

private:
    SmartPtr<figk::Sheet> sheet_;
    SmartPtr<AbstractKernelToFigureFactory> factory_;
};

}  // namespace figrep
