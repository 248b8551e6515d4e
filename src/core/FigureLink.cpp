#include <figrep/FigureLink.h>

#include <figrep/Figure.h>

namespace figrep {

SmartPtr<Figure> FigureLink::GetFigure() const {
    return Get();
}

}  // namespace figrep
