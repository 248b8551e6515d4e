#include <readers/kicad/file/LineIndex.h>

#include <algorithm>

namespace fighost::kicad {

LineIndex::LineIndex(std::vector<Line> const& list) : lines(list) {
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
        Line const& line = lines[i];
        bool const isColumn = line.from.x == line.to.x && line.from.y != line.to.y;
        bool const isRow = line.from.y == line.to.y;
        auto const [from, to] =
            isColumn ? std::minmax(line.from.y, line.to.y) : std::minmax(line.from.x, line.to.x);
        Spans& spans = isRow ? rows[line.from.y] : isColumn ? columns[line.from.x] : slanting;
        spans.push_back({from, to, to, i});
    }
    for (auto& row : rows)
        Finish(row.second);
    for (auto& column : columns)
        Finish(column.second);
    Finish(slanting);
}

void LineIndex::Finish(Spans& spans) {
    std::sort(spans.begin(), spans.end(), [](Span const& a, Span const& b) {
        return a.from != b.from ? a.from < b.from : a.line < b.line;
    });
    for (std::size_t i = 1; i < spans.size(); ++i) {
        spans[i].reach = std::max(spans[i].to, spans[i - 1].reach);
    }
}

template <class Visit>
void LineIndex::VisitHits(Spans const& spans, Length along, Point p, Visit visit) const {
    auto at = std::upper_bound(spans.begin(), spans.end(), along,
                               [](Length value, Span const& span) { return value < span.from; });
    while (at != spans.begin()) {
        --at;
        if (at->reach < along) return;
        Line const& line = lines[at->line];
        if (IsOnLine(p, line.from, line.to)) visit(at->line);
    }
}

template <class Visit>
void LineIndex::VisitAll(Point p, Visit visit) const {
    auto const row = rows.find(p.y);
    if (row != rows.end()) VisitHits(row->second, p.x, p, visit);
    auto const column = columns.find(p.x);
    if (column != columns.end()) VisitHits(column->second, p.y, p, visit);
    VisitHits(slanting, p.x, p, visit);
}

void LineIndex::Find(Point p, std::vector<std::uint32_t>& found) const {
    found.clear();
    VisitAll(p, [&found](std::uint32_t line) { found.push_back(line); });
    std::sort(found.begin(), found.end());
}

bool LineIndex::Touches(Point p) const {
    bool touches = false;
    VisitAll(p, [&touches](std::uint32_t) { touches = true; });
    return touches;
}

}  // namespace fighost::kicad
