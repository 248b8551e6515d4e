// Which lines pass through a point.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include <readers/kicad/file/SheetFile.h>

namespace fighost::kicad {

/// Lines by the row or column in which they run, slanting ones together. Built once. A query costs
/// the logarithm of the lines of its row and column, and of the lines that overlap there.
class LineIndex {
public:
    explicit LineIndex(std::vector<Line> const& list);

    /// The numbers of all lines that contain `p`, ends included, in rising order.
    void Find(Point p, std::vector<std::uint32_t>& found) const;
    bool Touches(Point p) const;

private:
    struct Span {
        Length from;
        Length to;
        Length reach;  // the furthest `to` of this span and all before it
        std::uint32_t line;
    };
    using Spans = std::vector<Span>;

    static void Finish(Spans& spans);
    template <class Visit>
    void VisitHits(Spans const& spans, Length along, Point p, Visit visit) const;
    template <class Visit>
    void VisitAll(Point p, Visit visit) const;

    std::vector<Line> const& lines;
    std::unordered_map<Length, Spans> rows;
    std::unordered_map<Length, Spans> columns;
    Spans slanting;  // by x
};

}  // namespace fighost::kicad
