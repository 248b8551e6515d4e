#include <readers/kicad/file/NodeReader.h>

#include <charconv>
#include <cmath>

namespace fighost::kicad {

namespace {

constexpr double LARGEST_NUMBER = 1e5;  // 100 m: no sheet is larger, and all sums stay exact

Stroke::Type StrokeType(std::string_view word) {
    if (word == "solid") return Stroke::SOLID;
    if (word == "dash") return Stroke::DASH;
    if (word == "dot") return Stroke::DOT;
    if (word == "dash_dot") return Stroke::DASH_DOT;
    if (word == "dash_dot_dot") return Stroke::DASH_DOT_DOT;
    return Stroke::DEFAULT;
}

}  // namespace

bool NodeReader::TakeFailure() {
    bool const result = failed;
    failed = false;
    return result;
}

double NodeReader::Number(View word) {
    std::string_view text = word.Raw();
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    double value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    bool const good = error == std::errc() && end == text.data() + text.size() && !word.IsList() &&
                      std::isfinite(value) && std::abs(value) <= LARGEST_NUMBER;
    if (good) return value;
    failed = true;
    Warn("bad-number", word, "A number stands here that can't be read; its item is left out");
    return 0;
}

int NodeReader::Integer(View word) {
    return static_cast<int>(std::lround(Number(word)));
}

Point NodeReader::GetPoint(View list) {
    View const x = list.At(1);
    return {GetLength(x), GetLength(x.Next())};
}

std::string NodeReader::Text(View list, unsigned number) {
    return list.At(number).Text();
}

bool NodeReader::Flag(View node) {
    if (!node.IsList()) return true;
    View const value = node.At(1);
    return !value || value.Raw() == "yes" || value.Raw() == "true";
}

std::string_view NodeReader::KeywordOf(View node) {
    return node.IsList() ? node.Keyword() : node.Raw();
}

std::optional<dg::Color> NodeReader::GetColor(View list) {
    double part[4] = {0, 0, 0, 0};
    View word = list.At(1);
    for (double& value : part) {
        if (!word) break;
        value = Number(word);
        word = word.Next();
    }
    if (part[3] <= 0) return std::nullopt;  // all zero means: no choice made
    return dg::Color{static_cast<float>(part[0] / 255), static_cast<float>(part[1] / 255),
                     static_cast<float>(part[2] / 255), static_cast<float>(part[3])};
}

Stroke NodeReader::GetStroke(View list) {
    Stroke stroke;
    for (View child = list.At(1); child; child = child.Next()) {
        std::string_view const key = KeywordOf(child);
        if (key == "width") {
            stroke.width = Number(child.At(1));
        } else if (key == "type") {
            stroke.type = StrokeType(child.At(1).Raw());
        } else if (key == "color") {
            stroke.color = GetColor(child);
        } else {
            WarnUnknown(child, "stroke");
        }
    }
    return stroke;
}

Fill NodeReader::GetFill(View list) {
    Fill fill;
    for (View child = list.At(1); child; child = child.Next()) {
        std::string_view const key = KeywordOf(child);
        if (key == "type") {
            std::string_view const type = child.At(1).Raw();
            fill.type = type == "outline"      ? Fill::OUTLINE
                        : type == "background" ? Fill::BACKGROUND
                        : type == "none"       ? Fill::NONE
                                               : Fill::COLOR;
        } else if (key == "color") {
            fill.color = GetColor(child);
        } else {
            WarnUnknown(child, "fill");
        }
    }
    return fill;
}

void NodeReader::ReadFont(View list, TextStyle& style) {
    for (View child = list.At(1); child; child = child.Next()) {
        std::string_view const key = KeywordOf(child);
        if (key == "size") {
            style.height = Number(child.At(1));
        } else if (key == "bold") {
            style.bold = Flag(child);
        } else if (key == "italic") {
            style.italic = Flag(child);
        } else if (key == "color") {
            style.color = GetColor(child);
        } else if (key == "face") {
            style.face = Text(child);
        } else if (key != "thickness" && key != "line_spacing") {
            WarnUnknown(child, "font");
        }
    }
}

void NodeReader::ReadJustify(View list, TextStyle& style) {
    for (View child = list.At(1); child; child = child.Next()) {
        std::string_view const word = child.Raw();
        if (word == "left") style.horizontal = -1;
        if (word == "right") style.horizontal = 1;
        if (word == "top") style.vertical = -1;
        if (word == "bottom") style.vertical = 1;
    }
}

TextStyle NodeReader::GetEffects(View list) {
    TextStyle style;
    for (View child = list.At(1); child; child = child.Next()) {
        std::string_view const key = KeywordOf(child);
        if (key == "font") {
            ReadFont(child, style);
        } else if (key == "justify") {
            ReadJustify(child, style);
        } else if (key == "hide") {
            style.hidden = Flag(child);
        } else if (key != "href") {
            WarnUnknown(child, "effects");
        }
    }
    return style;
}

Property NodeReader::GetProperty(View list) {
    Property property;
    bool hidden = false;
    View child = list.At(1);
    if (child && !child.IsList() && !child.IsQuoted() && child.Raw() == "private") {
        child = child.Next();  // a field that leaves the schematic in no export
    }
    property.name = child.Text();
    child = child.Next();
    property.value = child.Text();
    for (child = child.Next(); child; child = child.Next()) {
        std::string_view const key = KeywordOf(child);
        if (key == "at") {
            property.at = GetPoint(child);
            if (View const angle = child.At(3)) property.angle = Number(angle);
        } else if (key == "effects") {
            property.style = GetEffects(child);
        } else if (key == "hide") {
            hidden = Flag(child);
        } else if (key == "show_name") {
            property.showName = Flag(child);
        } else if (key != "id" && key != "do_not_autoplace" && key != "uuid") {
            WarnUnknown(child, "property");
        }
    }
    if (hidden) property.style.hidden = true;
    return property;
}

std::vector<Point> NodeReader::GetPoints(View list) {
    std::vector<Point> points;
    for (View child = list.At(1); child; child = child.Next()) {
        if (child.Keyword() == "xy") {
            points.push_back(GetPoint(child));
        } else {
            WarnUnknown(child, "pts");
        }
    }
    return points;
}

void NodeReader::WarnUnknown(View node, std::string_view where) {
    if (!findings.IsNew("unknown-token")) return findings.Count("unknown-token");
    std::string sentence = "The word '";
    sentence += KeywordOf(node).substr(0, 60);
    sentence += "' is not known in '";
    sentence += where;
    sentence += "' and is skipped";
    findings.Warn("unknown-token", node.GetPlace(), std::move(sentence));
}

void NodeReader::Warn(std::string_view kind, View node, std::string_view sentence) {
    if (!findings.IsNew(kind)) return findings.Count(kind);
    findings.Warn(kind, node.GetPlace(), std::string(sentence));
}

}  // namespace fighost::kicad
