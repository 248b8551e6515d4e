// How a figure writes down what it was made from.
#include <figk/Design.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/PublishTitleBlockDelta.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>
#include <zvk/ReadWriteLock.h>
#include <zvk/SerializedContentElement.h>

namespace figrep {

Symbol const Figure::s_figure_content("content");
Symbol const Figure::s_figure_content_version("content_version");
Symbol const Figure::s_figure_show_grid("show_grid");
Symbol const Figure::s_figure_design("design");
Symbol const Figure::s_figure_component("component");
Symbol const Figure::s_design_name("filename");
Symbol const Figure::s_design_id_prefix("id_prefix");

namespace {

void CaptureDesign(zvk::SerializedContentElement& element, figk::Design const& design) {
    auto* const child = element.StartContent(Figure::s_figure_design);
    child->AddProperty(Figure::s_design_name, Symbol(design.GetName()));
    child->AddProperty(Figure::s_design_id_prefix, design.GetIdPrefix());
    element.EndContent();
}

void CaptureComponent(zvk::SerializedContentElement& element, figk::AbstractDelta& delta) {
    delta.Serialize(element.StartContent(Figure::s_figure_component));
    element.EndContent();
}

}  // namespace

// For writing from the start: deltas note ids and title blocks fill in their texts when asked.
void Figure::CaptureContent(zvk::SerializedContentElement* element) {
    if (!element) return;
    zvk::WriteGuard const guard(GetLock());
    element->AddProperty(s_figure_content_version, static_cast<int>(s_write_content_version));
    element->AddProperty(s_figure_show_grid, GetFormatGridOn());
    for (auto const& design : designs_)
        CaptureDesign(*element, *design);
    for (auto const& delta : deltas_)
        CaptureComponent(*element, *delta);
    CaptureTitleBlock(*element);
}

// The delta lives for this one element, so that a saved figure ends with the texts as they are now.
void Figure::CaptureTitleBlock(zvk::SerializedContentElement& element) {
    auto const titleBlock = format_ ? format_->GetTitleBlock() : SmartPtr<TitleBlock>();
    if (!titleBlock) return;
    SmartPtr<PublishTitleBlockDelta> const delta =
        new PublishTitleBlockDelta(titleBlock->GetTextSections());
    CaptureComponent(element, *delta);
}

}  // namespace figrep
