// What a figure looks like, as text.
#pragma once

#include <figrep/Figure.h>
#include <painters/PaintFigure.h>
#include <painters/SvgPainter.h>

#include <string>

namespace fighost::test {

/// Brings the figure's pictures up to date and paints it as SVG.
inline std::string Picture(figrep::SmartPtr<figrep::Figure> const& figure) {
    figure->UpdateContent();
    SvgPainter painter;
    PaintFigure(figure, painter);
    return painter.TakeDocument();
}

}  // namespace fighost::test
