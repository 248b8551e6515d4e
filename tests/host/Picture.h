// What a figure looks like, as text.
#pragma once

#include <figrep/Figure.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>

#include <string>

namespace fighost::test {

/// Brings the figure's pictures up to date and paints it, on its own paper, as SVG.
inline std::string Picture(figrep::SmartPtr<figrep::Figure> const& figure) {
    figure->UpdateContent();
    SvgPainter painter;
    PaintOptions options;
    figure->GetColorSetting(figrep::Setting::BACKGROUND_COLOR, options.background);
    PaintFigure(figure, painter, options);
    return painter.TakeDocument();
}

}  // namespace fighost::test
