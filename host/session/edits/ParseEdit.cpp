// The words of the vocabulary of edits, and what they mean.
#include <charconv>
#include <cmath>
#include <numbers>
#include <string_view>
#include <system_error>

#include <session/edits/Edits.h>
#include <session/look/ParseColor.h>

namespace fighost {

namespace {

constexpr char const* COLOR_FORM = "COLOUR";

// A whole text as a finite number.
std::optional<double> ParseNumber(std::string_view text) {
    if (!text.empty() && text[0] == '+') text.remove_prefix(1);
    char const* const end = text.data() + text.size();
    double value = 0;
    auto const read = std::from_chars(text.data(), end, value);
    if (read.ec != std::errc() || read.ptr != end || !std::isfinite(value)) return {};
    return value;
}

std::optional<dg::DPoint2D> ParsePair(std::string_view text) {
    auto const comma = text.find(',');
    if (comma == std::string_view::npos) return {};
    auto const x = ParseNumber(text.substr(0, comma));
    auto const y = ParseNumber(text.substr(comma + 1));
    if (!x || !y) return {};
    return dg::DPoint2D(*x, *y);
}

// "VALUE@X,Y": the point is optional.
bool SplitPoint(std::string& text, std::optional<dg::DPoint2D>& about) {
    auto const at = text.find('@');
    if (at == std::string::npos) return true;
    about = ParsePair(std::string_view(text).substr(at + 1));
    text.resize(at);
    return about.has_value();
}

bool ParseTurn(Edit& edit, std::string text) {
    if (!SplitPoint(text, edit.about)) return false;
    auto const degrees = ParseNumber(text);
    if (degrees) edit.number = *degrees * std::numbers::pi / 180;
    return degrees.has_value();
}

bool ParseFactor(Edit& edit, std::string text) {
    if (!SplitPoint(text, edit.about)) return false;
    auto const factor = ParseNumber(text);
    if (factor) edit.number = *factor;
    return factor && *factor > 0;
}

bool ParseAxis(Edit& edit, std::string text) {
    if (!SplitPoint(text, edit.about)) return false;
    edit.mirrorY = text == "y";
    return text == "x" || text == "y";
}

bool ParseValue(Edit& edit, std::string const& text) {
    switch (edit.kind) {
        case Edit::MOVE: {
            auto const offset = ParsePair(text);
            if (offset) edit.offset = {offset->x, offset->y};
            return offset.has_value();
        }
        case Edit::ROTATE:
            return ParseTurn(edit, text);
        case Edit::SCALE:
            return ParseFactor(edit, text);
        case Edit::MIRROR:
            return ParseAxis(edit, text);
        case Edit::SHEET:
            edit.names = {text};
            return true;
        default: {
            auto const color = ParseColor(text);
            if (color) edit.color = *color;
            return color.has_value();
        }
    }
}

EditVerb const* FindVerb(std::string const& name) {
    std::string const wanted = name == "color" ? "colour" : name;
    for (EditVerb const& verb : EditVerbs()) {
        if (wanted == verb.name) return &verb;
    }
    return nullptr;
}

ParsedEdit Refuse(std::size_t word, std::string const& problem) {
    ParsedEdit refused;
    refused.word = word;
    refused.problem = problem;
    return refused;
}

std::string FormOf(EditVerb const& verb) {
    std::string form = verb.name;
    if (verb.takesNames) form += " ITEM...";
    if (verb.value) form += std::string(" ") + verb.value;
    return form;
}

}  // namespace

std::vector<EditVerb> const& EditVerbs() {
    static std::vector<EditVerb> const verbs = {
        {"hide", Edit::HIDE, true, nullptr, false, "hide items"},
        {"show", Edit::SHOW, true, nullptr, false, "show items again"},
        {"isolate", Edit::ISOLATE, true, nullptr, false,
         "hide everything but these items and the frames"},
        {"show-all", Edit::SHOW_ALL, false, nullptr, false, "show all that is hidden"},
        {"move", Edit::MOVE, true, "DX,DY", false, "move items by millimetres, up is positive"},
        {"rotate", Edit::ROTATE, true, "DEGREES[@X,Y]", false, "turn items counter-clockwise"},
        {"scale", Edit::SCALE, true, "FACTOR[@X,Y]", false, "make items larger or smaller"},
        {"mirror", Edit::MIRROR, true, "x|y[@X,Y]", false,
         "mirror items: with x left and right change places, with y above and below"},
        {"colour", Edit::COLOR, true, COLOR_FORM, false, "colour the lines and texts of items"},
        {"fill", Edit::FILL, true, COLOR_FORM, false, "colour what is filled in items"},
        {"delete", Edit::DELETE_ITEMS, true, nullptr, false, "take items out"},
        {"background", Edit::BACKGROUND, false, COLOR_FORM, false, "colour the paper"},
        {"sheet", Edit::SHEET, false, "NAME", true, "limit the steps that follow to one sheet"},
        {"all-sheets", Edit::SHEET, false, nullptr, true, "lift that limit"},
        {"undo", Edit::UNDO, false, nullptr, true, "take the last step back"},
        {"redo", Edit::REDO, false, nullptr, true, "do the step that was taken back again"}};
    return verbs;
}

ParsedEdit ParseEdit(std::string const& name, std::vector<std::string> const& words) {
    EditVerb const* verb = FindVerb(name);
    if (!verb) return Refuse(0, "there is no step called '" + name + "'");
    std::size_t const last = verb->value ? 1 : 0;
    std::size_t const least = last + (verb->takesNames ? 1 : 0);
    if (words.size() < least) return Refuse(0, "it should read '" + FormOf(*verb) + "'");
    if (!verb->takesNames && words.size() > least) {
        return Refuse(least + 1, "'" + words[least] + "' is one word too many");
    }
    ParsedEdit parsed;
    parsed.edit = Edit();
    parsed.edit->kind = verb->kind;
    parsed.edit->names.assign(words.begin(), words.end() - static_cast<std::ptrdiff_t>(last));
    if (verb->value && !ParseValue(*parsed.edit, words.back())) {
        std::string problem = "'" + words.back() + "' isn't of the form " + verb->value;
        if (verb->value == COLOR_FORM) {
            problem = "'" + words.back() + "' is no colour: write " + COLOR_FORMS;
        }
        return Refuse(words.size(), problem);
    }
    return parsed;
}

}  // namespace fighost
