// Dash patterns of lines.
#pragma once

#include <du/SmartPtr.h>
#include <du/Symbol.h>

#include <vector>

namespace zv2d {

/// A dash pattern. There is one object per style, from `LineStyleList`.
class LineStyle : public virtual du::RefCounted {
public:
    LineStyle(int index, du::Symbol const& name, std::vector<double> pattern);
    ~LineStyle() override;

    /// The place in `LineStyleList`.
    int GetIndex() const { return index_; }
    /// "solid", "dash", "dot", "dash-dot" or "dash-dot-dot".
    du::Symbol const& GetName() const { return name_; }
    /// Lengths of dashes and gaps in turn, in widths of the line; empty for a solid line.
    std::vector<double> const& GetPattern() const { return pattern_; }

private:
    int index_;
    du::Symbol name_;
    std::vector<double> pattern_;
};

/// The styles that lines may have.
class LineStyleList {
public:
    enum Index { SOLID = 0, DASH = 1, DOT = 2, DASH_DOT = 3, DASH_DOT_DOT = 4, COUNT = 5 };

    /// Solid.
    static du::ConstSmartPtr<LineStyle> GetDefault() { return Get(SOLID); }

    /// The default for an index that is none.
    static du::ConstSmartPtr<LineStyle> Get(int index);

    /// By name; null when there is none.
    static du::ConstSmartPtr<LineStyle> Find(du::Symbol const& name);
};

}  // namespace zv2d
