// The way back to a figure for what must not hold it.
#pragma once

#include <du/RefCounted.h>
#include <figrep/Fwd.h>

namespace figrep {

/// Shared by a figure and everything that knows the figure without holding it: items, deltas,
/// shadows. The figure clears it when it goes, so nobody is left with a dangling pointer.
///
/// Guarded by the kernel's lock, which whoever reads it holds.
class FigureLink : virtual public du::RefCounted {
public:
    explicit FigureLink(Figure* figure) : figure_(figure) {}

    /// Null once the figure has gone.
    SmartPtr<Figure> GetFigure() const;

    /// For the figure's own teardown.
    void Clear() { figure_ = nullptr; }

private:
    Figure* figure_;
};

}  // namespace figrep
