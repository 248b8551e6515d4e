#include <session/frame/PlacedTitleBlock.h>

#include <algorithm>
#include <optional>

#include <figkernel/PlacedTextSection.h>
#include <figrep/Format.h>
#include <figrep/TitleBlockTextSection.h>
#include <painters/TextLayout.h>
#include <session/frame/TitleBlockTexts.h>

namespace fighost {

namespace {

using figrep::SmartPtr;
using Place = figkernel::TextPlaceSource;

std::optional<Place> PlaceOf(figrep::TitleBlockTextSection const& section) {
    auto const record =
        du::DynamicCast<figkernel::PlacedTextSection>(section.GetKernelTitleBlockTextSection());
    return record ? record->GetPlace() : std::nullopt;
}

// The height at which the text keeps within its place.
double HeightFor(std::wstring const& text, Place const& place,
                 figrep::TitleBlockTextSection const& section) {
    TextStyle style;
    style.font = place.font;
    style.height = section.GetFontSize();
    style.bold = section.GetBold();
    style.italic = section.GetItalic();
    double const width =
        LayOutText(text, true, HorizontalAlignment::LEFT, VerticalAlignment::TOP, style).width;
    auto const lineEnds = static_cast<double>(std::count(text.begin(), text.end(), L'\n'));
    double const height = style.height * (1 + lineEnds * LINE_PITCH);
    double factor = 1;
    if (place.greatestWidth > 0 && width > place.greatestWidth) {
        factor = place.greatestWidth / width;
    }
    if (place.greatestHeight > 0 && height > place.greatestHeight) {
        factor = std::min(factor, place.greatestHeight / height);
    }
    return style.height * factor;
}

// Calls `use` with each section that shows something, its text and the matrix to its place.
template <class Use>
void ForEachText(figrep::TitleBlock const& block, Use const& use) {
    SmartPtr<figrep::Format> const format = block.GetFormat();
    if (!format) return;
    dg::DPoint2D const origin = format->GetPosition();
    for (auto const& section : block.GetTextSections()) {
        std::optional<Place> const place = PlaceOf(*section);
        std::wstring const text = TitleBlockText(*section);
        if (!place || text.empty()) continue;
        auto const alignment = static_cast<zv2d::Text::Alignment>(
            3 * std::clamp(place->vertical, 0, 2) + section->GetAlignment());
        dg::DMat33 matrix = dg::DMat33::RotationZ(place->angle);
        matrix.SetTranslation({origin.x + place->at.x, origin.y + place->at.y});
        use(*section,
            MakeTitleBlockText(*section, text, HeightFor(text, *place, *section), alignment,
                               place->font),
            matrix);
    }
}

}  // namespace

bool IsPlacedTitleBlock(figrep::TitleBlock const& block) {
    auto const sections = block.GetTextSections();
    return !sections.empty() &&
           std::all_of(sections.begin(), sections.end(),
                       [](auto const& section) { return PlaceOf(*section).has_value(); });
}

void GeneratePlacedTitleBlock(SmartPtr<figrep::TitleBlock> const& block) {
    ForEachText(*block, [&](auto const& section, auto const& text, dg::DMat33 const& matrix) {
        AddTitleBlockText(block, section, text, matrix);
    });
}

dg::DBox2D PlacedTitleBlockExtents(figrep::TitleBlock const& block) {
    dg::DBox2D box = dg::DBox2D::EMPTY;
    ForEachText(block, [&](auto const&, auto const& text, dg::DMat33 const& matrix) {
        box.Enclose(text->GetExtents(matrix));
    });
    return box;
}

}  // namespace fighost
