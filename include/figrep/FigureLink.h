// The way back to a figure for what must not hold it.
#pragma once

#include <du/Link.h>
#include <figrep/Fwd.h>

namespace figrep {

/// Shared by a figure and everything that knows the figure without holding it: items, deltas,
/// shadows. Guarded by the kernel's lock, which whoever reads it holds.
class FigureLink : public du::Link<Figure> {
public:
    using du::Link<Figure>::Link;

    /// Null once the figure has gone.
    SmartPtr<Figure> GetFigure() const;
};

}  // namespace figrep
