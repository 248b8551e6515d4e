#include <figrep/FigureLink.h>

#include <du/Upward.h>
#include <figrep/Figure.h>

namespace figrep {

SmartPtr<Figure> FigureLink::GetFigure() const {
    return du::Upward(figure_);
}

}  // namespace figrep
