// Values out of the nodes of a file, with warnings for what can't be read.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <readers/Findings.h>
#include <readers/kicad/file/SExpression.h>
#include <readers/kicad/file/SheetFile.h>

namespace fighost::kicad {

/// Reads the values that many items share. A number that is none raises a flag: the item that is
/// being read is then left out, since a wrong place would make wrong connections.
class NodeReader {
public:
    using View = SExpression::View;

    explicit NodeReader(Findings& list) : findings(list) {}

    /// The flag "an item could not be read" since the last call.
    bool TakeFailure();

    double Number(View word);
    int Integer(View word);
    Length GetLength(View word) { return FromMm(Number(word)); }
    /// `(keyword x y ...)`.
    Point GetPoint(View list);
    /// The n-th word behind the keyword, escapes worked out.
    static std::string Text(View list, unsigned number = 1);
    /// A bare `hide`, `(hide)` and `(hide yes)` are true.
    static bool Flag(View node);
    /// The keyword of a list, or a bare word.
    static std::string_view KeywordOf(View node);

    std::optional<dg::Color> GetColor(View list);
    Stroke GetStroke(View list);
    Fill GetFill(View list);
    TextStyle GetEffects(View list);
    Property GetProperty(View list);
    /// `(pts (xy x y) ...)`.
    std::vector<Point> GetPoints(View list);

    void WarnUnknown(View node, std::string_view where);
    void Warn(std::string_view kind, View node, std::string_view sentence);

private:
    void ReadFont(View list, TextStyle& style);
    static void ReadJustify(View list, TextStyle& style);

    Findings& findings;
    bool failed = false;
};

}  // namespace fighost::kicad
