#include <persistence/PublishedTexts.h>

#include <algorithm>

#include <figk/AbstractDelta.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/TitleBlock.h>
#include <persistence/ContentFields.h>

namespace fighost {

namespace {

using Delta = figk::AbstractDelta;

bool IsDesignText(figrep::TitleBlockTextSection::TextSegment const& segment) {
    return segment.original && segment.token.empty();
}

}  // namespace

bool HoldsPublishedTexts(zvk::SerializedContentElement const& publication) {
    bool holds = false;
    ContentFields fields(publication);
    fields.Children(Delta::s_delta_text_section, [&](ContentFields& section) {
        section.Children(Delta::s_delta_text_segment, [&](ContentFields& segment) {
            bool const token = !segment.Text(Delta::s_delta_text).IsEmpty();
            if (token || !segment.Flag(Delta::s_delta_original)) holds = true;
        });
    });
    return holds || !fields.GetProblem().empty();
}

DesignTexts::DesignTexts(figrep::SmartPtr<figrep::Figure> const& figure) {
    auto const format = figure ? figure->GetFormat() : nullptr;
    auto const titleBlock = format ? format->GetTitleBlock() : nullptr;
    if (!titleBlock) return;
    for (auto const& section : titleBlock->GetTextSections()) {
        sections_.push_back({section, {}});
        section->GetText(sections_.back().text);
    }
}

void DesignTexts::PutBack() const {
    for (Section const& own : sections_) {
        std::vector<Segment> text;
        own.section->GetText(text);
        std::size_t const count = std::min(text.size(), own.text.size());
        for (std::size_t i = 0; i < count; ++i) {
            if (IsDesignText(text[i]) && IsDesignText(own.text[i])) text[i] = own.text[i];
        }
        bool const ofTheDesign = std::all_of(
            text.begin(), text.end(), [](Segment const& segment) { return segment.original; });
        own.section->SetText(text, ofTheDesign);
    }
}

}  // namespace fighost
