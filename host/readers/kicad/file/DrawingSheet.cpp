#include <readers/kicad/file/DrawingSheet.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string_view>
#include <utility>

#include <readers/kicad/file/NodeReader.h>

#include "ItemReaders.h"

namespace fighost::kicad {

namespace {

using View = SExpression::View;
using Item = DrawingSheetItem;

constexpr double TEXT_SIZE = 1.5;               // mm, unless the file says otherwise
constexpr int MOST_COPIES = 10'000;             // of one item
constexpr std::size_t GREATEST_COST = 200'000;  // of one file
constexpr std::size_t CHEAP_TEXT = 100;         // bytes that cost no more than an item does
constexpr std::size_t LONGEST_TEXT = 10'000;    // bytes

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// What a letter behind a '%' stood for before variables had names.
std::string_view OldVariable(char code) {
    constexpr std::pair<char, std::string_view> CODES[] = {
        {'K', "KICAD_VERSION"}, {'Z', "PAPER"},     {'Y', "COMPANY"}, {'D', "ISSUE_DATE"},
        {'R', "REVISION"},      {'S', "#"},         {'N', "##"},      {'L', "LAYER"},
        {'F', "FILENAME"},      {'P', "SHEETPATH"}, {'T', "TITLE"},
    };
    auto const* const found = std::find_if(std::begin(CODES), std::end(CODES),
                                           [&](auto const& entry) { return entry.first == code; });
    return found == std::end(CODES) ? std::string_view() : found->second;
}

/// "%C0" to "%C8" were the nine comments; "%%" is a percent sign.
std::string WithNamedVariables(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        char const code = text[at] == '%' && at + 1 < text.size() ? text[at + 1] : '\0';
        bool const comment =
            code == 'C' && at + 2 < text.size() && text[at + 2] >= '0' && text[at + 2] <= '8';
        std::string_view const variable = OldVariable(code);
        if (code == '%') {
            result += '%';
            at += 1;
        } else if (comment) {
            result += std::string("${COMMENT") + static_cast<char>(text[at + 2] + 1) + "}";
            at += 2;
        } else if (!variable.empty()) {
            result.append("${").append(variable).append("}");
            at += 1;
        } else {
            result += text[at];
        }
    }
    return result;
}

/// A to Z, then AA, AB and so on; counted from 0.
std::string Letters(long long number, char first) {
    std::string letters;
    for (long long rest = number + 1; rest > 0; rest = (rest - 1) / 26) {
        letters.insert(letters.begin(), static_cast<char>(first + (rest - 1) % 26));
    }
    return letters;
}

class DrawingSheetReader {
public:
    DrawingSheetReader(Findings& findings, DrawingSheet& out) : reader_(findings), sheet_(out) {}

    std::optional<Finding> Read(View root) {
        std::string_view const kind = root.Keyword();
        if (kind != "kicad_wks" && kind != "drawing_sheet" && kind != "page_layout") {
            std::string sentence = "This is no KiCad drawing sheet: it begins with '";
            sentence += kind.substr(0, 40);
            return Finding{root.GetPlace(), sentence + "'"};
        }
        lettersAreVariables_ = kind == "page_layout";
        // Items take their sizes from it, wherever it stands.
        if (View const setup = root.Find("setup")) ReadSetup(setup);
        for (View child = root.At(1); child; child = child.Next()) {
            ReadChild(child);
            if (sheet_.cost > GREATEST_COST) {
                return Finding{child.GetPlace(), "The drawing sheet has too many items"};
            }
        }
        return std::nullopt;
    }

private:
    void ReadChild(View child) {
        std::string_view const key = child.Keyword();
        if (key == "line") return ReadItem(child, Item::LINE);
        if (key == "rect") return ReadItem(child, Item::RECTANGLE);
        if (key == "polygon") return ReadItem(child, Item::POLYGON);
        if (key == "tbtext") return ReadItem(child, Item::TEXT);
        if (key == "bitmap") return ReadItem(child, Item::BITMAP);
        bool const known = key == "setup" || key == "version" || key == "generator" ||
                           key == "generator_version" || key == "host" || key == "embedded_fonts" ||
                           key == "embedded_files";
        if (!known) reader_.WarnUnknown(child, "drawing sheet");
    }

    void ReadSetup(View list) {
        std::pair<std::string_view, double*> const numbers[] = {
            {"linewidth", &sheet_.lineWidth},        {"left_margin", &sheet_.leftMargin},
            {"right_margin", &sheet_.rightMargin},   {"top_margin", &sheet_.topMargin},
            {"bottom_margin", &sheet_.bottomMargin},
        };
        for (View child = list.At(1); child; child = child.Next()) {
            std::string_view const key = NodeReader::KeywordOf(child);
            if (key == "textsize") textSize_ = Height(child);
            for (auto const& [name, target] : numbers) {
                if (name == key) *target = reader_.Number(child.At(1));
            }
        }
        reader_.TakeFailure();
    }

    /// Sizes of texts are a width and a height.
    double Height(View list) { return reader_.Number(list.At(2) ? list.At(2) : list.At(1)); }

    void ReadItem(View list, Item::Kind kind) {
        Item item;
        item.kind = kind;
        item.style.height = textSize_;
        item.style.horizontal = -1;
        View child = list.At(1);
        if (kind == Item::TEXT && child && !child.IsList()) {
            item.text = child.Text();
            if (lettersAreVariables_) item.text = WithNamedVariables(item.text);
            child = child.Next();
        }
        for (; child; child = child.Next())
            ReadPart(child, item);
        if (item.text.size() > LONGEST_TEXT) {
            reader_.Warn("long-text", list, "A text of the drawing sheet is too long and left out");
            return;
        }
        if (reader_.TakeFailure()) return;
        sheet_.cost += item.repeat * CostOf(item);
        sheet_.items.push_back(std::move(item));
    }

    static std::size_t CostOf(Item const& item) {
        std::size_t cost = 1 + item.text.size() / CHEAP_TEXT;
        for (auto const& outline : item.outlines)
            cost += outline.size();
        return cost;
    }

    void ReadPart(View child, Item& item) {
        std::string_view const key = NodeReader::KeywordOf(child);
        if (key == "name") {
            item.name = NodeReader::Text(child);
        } else if (key == "start" || key == "pos") {
            item.start = Corner(child);
        } else if (key == "end") {
            item.end = Corner(child);
        } else if (key == "option") {
            ReadPages(child, item);
        } else if (key == "linewidth") {
            item.lineWidth = reader_.Number(child.At(1));
        } else if (key == "rotate") {
            item.angle = reader_.Number(child.At(1));
        } else if (!ReadRepeat(child, key, item) && !ReadTextPart(child, key, item) &&
                   !ReadPicturePart(child, key, item) && key != "comment") {
            reader_.WarnUnknown(child, "drawing sheet");
        }
    }

    bool ReadRepeat(View child, std::string_view key, Item& item) {
        if (key == "repeat") {
            item.repeat =
                static_cast<unsigned>(std::clamp(reader_.Integer(child.At(1)), 1, MOST_COPIES));
        } else if (key == "incrx") {
            item.stepX = reader_.Number(child.At(1));
        } else if (key == "incry") {
            item.stepY = reader_.Number(child.At(1));
        } else if (key == "incrlabel") {
            item.labelStep = reader_.Integer(child.At(1));
        } else {
            return false;
        }
        return true;
    }

    bool ReadTextPart(View child, std::string_view key, Item& item) {
        if (key == "font") {
            ReadFont(child, item.style);
        } else if (key == "justify") {
            ReadJustify(child, item.style);
        } else if (key == "maxlen") {
            item.greatestWidth = reader_.Number(child.At(1));
        } else if (key == "maxheight") {
            item.greatestHeight = reader_.Number(child.At(1));
        } else {
            return false;
        }
        return true;
    }

    bool ReadPicturePart(View child, std::string_view key, Item& item) {
        if (key == "pts") {
            item.outlines.emplace_back();
            for (Point const point : reader_.GetPoints(child))
                item.outlines.back().push_back({ToMm(point.x), ToMm(point.y)});
        } else if (key == "scale") {
            item.scale = reader_.Number(child.At(1));
        } else if (key == "data") {
            item.bytes = std::make_shared<std::string const>(ReadBase64(child));
        } else if (key == "pngdata") {
            item.bytes = std::make_shared<std::string const>(HexBytes(child));
        } else {
            return false;
        }
        return true;
    }

    /// Lists of numbers of two digits, as pictures were written before version 8.
    static std::string HexBytes(View list) {
        std::string digits;
        for (View line = list.At(1); line; line = line.Next()) {
            for (View part = line.At(1); part; part = part.Next())
                digits += part.Raw();
        }
        std::string bytes;
        std::string pair;
        for (char const c : digits) {
            if (!std::isxdigit(static_cast<unsigned char>(c))) continue;
            pair += c;
            if (pair.size() < 2) continue;
            bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
            pair.clear();
        }
        return bytes;
    }

    CornerPoint Corner(View list) {
        CornerPoint point;
        point.x = reader_.Number(list.At(1));
        point.y = reader_.Number(list.At(2));
        std::string_view const corner = list.At(3).Raw();
        point.fromLeft = corner == "ltcorner" || corner == "lbcorner";
        point.fromTop = corner == "ltcorner" || corner == "rtcorner";
        return point;
    }

    void ReadPages(View list, Item& item) {
        for (View child = list.At(1); child; child = child.Next()) {
            if (child.Raw() == "page1only") item.pages = Item::FIRST_PAGE;
            if (child.Raw() == "notonpage1") item.pages = Item::OTHER_PAGES;
        }
    }

    void ReadFont(View list, TextStyle& style) {
        for (View child = list.At(1); child; child = child.Next()) {
            std::string_view const key = NodeReader::KeywordOf(child);
            if (key == "size") {
                if (double const height = Height(child); height > 0) style.height = height;
            } else if (key == "bold") {
                style.bold = NodeReader::Flag(child);
            } else if (key == "italic") {
                style.italic = NodeReader::Flag(child);
            } else if (key == "face") {
                style.face = NodeReader::Text(child);
            } else if (key == "color") {
                style.color = reader_.GetColor(child);
            } else if (key != "linewidth") {
                reader_.WarnUnknown(child, "font");
            }
        }
    }

    /// "center" holds for both directions; the sides behind it for theirs.
    static void ReadJustify(View list, TextStyle& style) {
        for (View child = list.At(1); child; child = child.Next()) {
            std::string_view const word = child.Raw();
            if (word == "center") style.horizontal = style.vertical = 0;
            if (word == "left") style.horizontal = -1;
            if (word == "right") style.horizontal = 1;
            if (word == "top") style.vertical = -1;
            if (word == "bottom") style.vertical = 1;
        }
    }

    NodeReader reader_;
    DrawingSheet& sheet_;
    double textSize_ = TEXT_SIZE;
    bool lettersAreVariables_ = false;
};

}  // namespace

std::string DrawingSheetItem::LabelOf(unsigned copy) const {
    if (copy == 0 || text.empty()) return text;
    long long const step = static_cast<long long>(copy) * labelStep;
    std::size_t digits = text.size();
    while (digits > 0 && IsDigit(text[digits - 1]) && text.size() - digits < 9)
        --digits;
    if (digits < text.size()) {
        return text.substr(0, digits) + std::to_string(std::stoll(text.substr(digits)) + step);
    }
    char const last = text.back();
    bool const alone = text.size() == 1 || !IsLetter(text[text.size() - 2]);
    if (!IsLetter(last) || !alone) return text;
    char const first = last >= 'a' ? 'a' : 'A';
    long long const number = last - first + step;
    return number < 0 ? text : text.substr(0, text.size() - 1) + Letters(number, first);
}

std::optional<Finding> ReadDrawingSheet(std::string const& path, std::string bytes,
                                        Limits const& limits, Findings& findings,
                                        DrawingSheet& out) {
    SExpression tree;
    if (auto error = tree.Parse(path, std::move(bytes), limits, findings)) return error;
    out.path = path;
    return DrawingSheetReader(findings, out).Read(tree.Root());
}

}  // namespace fighost::kicad
