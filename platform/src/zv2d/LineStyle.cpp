#include <zv2d/LineStyle.h>

#include <array>
#include <utility>

namespace zv2d {

LineStyle::LineStyle(int index, du::Symbol const& name, std::vector<double> pattern)
    : index_(index), name_(name), pattern_(std::move(pattern)) {}

LineStyle::~LineStyle() = default;

namespace {

using Styles = std::array<du::ConstSmartPtr<LineStyle>, LineStyleList::COUNT>;

Styles MakeStyles() {
    // With round ends a dot is a dash of no length.
    constexpr double DASH = 11.0;
    constexpr double DOT = 0.2;
    constexpr double GAP = 4.0;
    auto const make = [](int index, char const* name, std::vector<double> pattern) {
        return du::ConstSmartPtr<LineStyle>(
            new LineStyle(index, du::Symbol(name), std::move(pattern)));
    };
    return {make(LineStyleList::SOLID, "solid", {}), make(LineStyleList::DASH, "dash", {DASH, GAP}),
            make(LineStyleList::DOT, "dot", {DOT, GAP}),
            make(LineStyleList::DASH_DOT, "dash-dot", {DASH, GAP, DOT, GAP}),
            make(LineStyleList::DASH_DOT_DOT, "dash-dot-dot", {DASH, GAP, DOT, GAP, DOT, GAP})};
}

Styles const& AllStyles() {
    static Styles const& styles = *new Styles(MakeStyles());  // outlives static attributes
    return styles;
}

}  // namespace

du::ConstSmartPtr<LineStyle> LineStyleList::Get(int index) {
    bool const known = index >= 0 && index < COUNT;
    return AllStyles()[static_cast<size_t>(known ? index : int{SOLID})];
}

du::ConstSmartPtr<LineStyle> LineStyleList::Find(du::Symbol const& name) {
    for (auto const& style : AllStyles()) {
        if (style->GetName() == name) return style;
    }
    return nullptr;
}

}  // namespace zv2d
