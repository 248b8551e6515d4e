#include <painters/TextLayout.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace fighost {

namespace {

// Proportions of formatted text, in units of the capitals' height where not said otherwise.
constexpr double SCRIPT_SIZE = 0.64;  // of the size around it
constexpr double SUBSCRIPT_DROP = 0.3;
constexpr double SUPERSCRIPT_RISE = 0.55;
constexpr double OVERBAR_HEIGHT = 1.25;
constexpr double OVERBAR_STEP = 0.25;  // between bars that lie over one another
constexpr double OVERBAR_THICKNESS = 0.1;
constexpr double SMALLEST_SCRIPT = 0.2;  // deeper nesting gets no smaller

enum class Group { PLAIN, OVERBAR, SUBSCRIPT, SUPERSCRIPT };

constexpr std::size_t NO_GROUP = static_cast<std::size_t>(-1);

bool IsMarker(wchar_t c) {
    return c == L'~' || c == L'_' || c == L'^';
}

Group GroupOf(wchar_t marker) {
    if (marker == L'~') return Group::OVERBAR;
    return marker == L'_' ? Group::SUBSCRIPT : Group::SUPERSCRIPT;
}

bool IsControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

// For each position of a '{' that opens a group, the position of the '}' that ends it.
std::vector<std::size_t> MatchGroups(std::wstring_view text) {
    std::vector<std::size_t> ends(text.size(), NO_GROUP);
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'{') open.push_back(i);
        if (text[i] == L'}' && !open.empty()) {
            ends[open.back()] = i;
            open.pop_back();
        }
    }
    return ends;
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

bool IsCodePoint(char32_t c) {
    return c <= 0x10FFFF && !(c >= 0xD800 && c < 0xE000) && c != 0xFFFE && c != 0xFFFF;
}

// Writes a text down run by run, from the left end of the first line, without alignment.
class Composer {
public:
    explicit Composer(TextStyle const& style) : style_(style) {
        states_.push_back({Group::PLAIN, style.height, 0, 0, 0});
    }

    void Put(wchar_t wide) {
        auto const c = static_cast<char32_t>(wide);
        if (c == U'\n') return NewLine();
        if (c == U'\t') return Put(L' ');
        if (IsControl(c)) return;
        State const& state = states_.back();
        char32_t const shown = IsCodePoint(c) ? c : U'\uFFFD';
        AppendUtf8(current_.text, shown);
        current_.width += GlyphWidth(shown, style_.bold) * state.height / CAPITAL_HEIGHT;
    }

    void Open(Group group) {
        Flush();
        State state = states_.back();
        state.group = group;
        state.start = x_;
        if (group == Group::OVERBAR) ++state.bars;
        if (group == Group::SUBSCRIPT) state.y -= SUBSCRIPT_DROP * state.height;
        if (group == Group::SUPERSCRIPT) state.y += SUPERSCRIPT_RISE * state.height;
        if (group == Group::SUBSCRIPT || group == Group::SUPERSCRIPT) {
            state.height = std::max(state.height * SCRIPT_SIZE, SMALLEST_SCRIPT * style_.height);
        }
        states_.push_back(state);
    }

    void Close() {
        Flush();
        CloseBar(states_.back());
        states_.pop_back();
    }

    void NewLine() {
        Flush();
        for (State& state : states_) {
            CloseBar(state);
            state.start = 0;
        }
        widths_.push_back(x_);
        x_ = 0;
        ++line_;
    }

    TextLayout Finish(HorizontalAlignment horizontal, VerticalAlignment vertical) {
        Flush();
        widths_.push_back(x_);
        layout_.horizontal = horizontal;
        layout_.width = *std::max_element(widths_.begin(), widths_.end());
        for (TextRun& run : layout_.runs) {
            run.x += Shift(horizontal, widths_[run.line]);
            run.y += Baseline(vertical, run.line);
        }
        for (std::size_t i = 0; i < layout_.overbars.size(); ++i) {
            Overbar& bar = layout_.overbars[i];
            double const shift = Shift(horizontal, widths_[barLines_[i]]);
            bar.x1 += shift;
            bar.x2 += shift;
            bar.y += Baseline(vertical, barLines_[i]);
        }
        return std::move(layout_);
    }

private:
    struct State {
        Group group;
        double height;
        double y;       // of the baseline, relative to that of the line
        double start;   // x where the group began on this line
        unsigned bars;  // overbars around the text
    };

    void Flush() {
        if (current_.text.empty()) return;
        State const& state = states_.back();
        current_.x = x_;
        current_.y = state.y;
        current_.height = state.height;
        current_.line = line_;
        x_ += current_.width;
        layout_.runs.push_back(std::move(current_));
        current_ = TextRun();
    }

    // The innermost of nested bars is the lowest, so the outer ones are told by their depth.
    void CloseBar(State const& state) {
        if (state.group != Group::OVERBAR || x_ <= state.start) return;
        double const step =
            OVERBAR_STEP * (deepestBar_ > state.bars ? deepestBar_ - state.bars : 0);
        deepestBar_ = std::max(deepestBar_, state.bars);
        if (state.bars == 1) deepestBar_ = 0;
        layout_.overbars.push_back({state.start, x_,
                                    state.y + state.height * (OVERBAR_HEIGHT + step),
                                    state.height * OVERBAR_THICKNESS});
        barLines_.push_back(line_);
    }

    static double Shift(HorizontalAlignment alignment, double width) {
        if (alignment == HorizontalAlignment::LEFT) return 0;
        return alignment == HorizontalAlignment::CENTRE ? -width / 2 : -width;
    }

    double Baseline(VerticalAlignment alignment, unsigned line) const {
        double const pitch = LINE_PITCH * style_.height;
        double const last = pitch * line_;
        double const down = pitch * line;
        if (alignment == VerticalAlignment::BOTTOM) return last - down;
        double const total = last + style_.height;
        double const top = alignment == VerticalAlignment::TOP ? 0 : total / 2;
        return top - style_.height - down;
    }

    TextStyle const& style_;
    TextLayout layout_;
    std::vector<unsigned> barLines_;
    std::vector<double> widths_;
    std::vector<State> states_;
    TextRun current_;
    double x_ = 0;
    unsigned line_ = 0;
    unsigned deepestBar_ = 0;
};

void ComposeMarkup(std::wstring_view text, Composer& composer) {
    std::vector<std::size_t> const ends = MatchGroups(text);
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const opens = IsMarker(text[i]) && i + 1 < text.size() && text[i + 1] == L'{' &&
                           ends[i + 1] != NO_GROUP;
        if (opens) {
            composer.Open(GroupOf(text[i]));
            open.push_back(ends[++i]);
        } else if (!open.empty() && open.back() == i) {
            composer.Close();
            open.pop_back();
        } else {
            composer.Put(text[i]);
        }
    }
}

}  // namespace

TextLayout LayOutText(std::wstring_view text, bool markup, HorizontalAlignment horizontal,
                      VerticalAlignment vertical, TextStyle const& style) {
    Composer composer(style);
    if (markup) {
        ComposeMarkup(text, composer);
    } else {
        for (wchar_t c : text)
            composer.Put(c);
    }
    return composer.Finish(horizontal, vertical);
}

}  // namespace fighost
