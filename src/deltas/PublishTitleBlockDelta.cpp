#include <figrep/PublishTitleBlockDelta.h>

#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>
#include <zvk/Depiction.h>
#include <zvk/SerializedContentElement.h>
#include <zvkapp/OrbitApp.h>

#include <algorithm>
#include <cstddef>

namespace figrep {

Symbol const PublishTitleBlockDelta::s_delta_type_value("publish_title_block_delta");

namespace {

using Sections = PublishTitleBlockDelta::Sections;
using Text = std::vector<TitleBlockTextSection::TextSegment>;

// The authoring application's batch mode in which title blocks keep their own texts.
constexpr int BATCH_MODE_KEEPING_TEXTS = 4;

bool MayPublish() {
    if (!zvk::depiction::IsRunningDepict()) return true;
    auto const app = zvkapp::depiction::OrbitApp::GetOrbitApp();
    return app && app->GetPublishBatchMode() != BATCH_MODE_KEEPING_TEXTS;
}

Text TextOf(SmartPtr<TitleBlockTextSection> const& section) {
    Text text;
    if (section) section->GetText(text);
    return text;
}

bool SameTexts(Text const& a, Text const& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](auto const& left, auto const& right) { return left.text == right.text; });
}

bool SameShape(Sections const& a, Sections const& b) {
    return !a.empty() && std::equal(a.begin(), a.end(), b.begin(), b.end(),
                                    [](auto const& left, auto const& right) {
                                        return TextOf(left).size() == TextOf(right).size();
                                    });
}

}  // namespace

PublishTitleBlockDelta::PublishTitleBlockDelta(Sections const& sections)
    : AbstractFigureDelta(ACTION_CHANGE, false), sections_(sections) {}

PublishTitleBlockDelta::~PublishTitleBlockDelta() = default;

Symbol PublishTitleBlockDelta::GetClassTypeValue() {
    return s_delta_type_value;
}

bool PublishTitleBlockDelta::_Verify(figk::AbstractDeltaReceiver& receiver) {
    if (!MayPublish()) return false;
    auto* const figure = dynamic_cast<Figure*>(&receiver);
    auto const format = figure ? figure->GetFormat() : SmartPtr<Format>();
    titleBlock_ = format ? format->GetTitleBlock() : SmartPtr<TitleBlock>();
    return titleBlock_ && SameShape(sections_, titleBlock_->GetTextSections());
}

void PublishTitleBlockDelta::_Apply(figk::AbstractDeltaReceiver&) {
    auto const live = titleBlock_->GetTextSections();
    std::size_t const count = std::min(live.size(), sections_.size());
    bool changed = false;
    for (std::size_t i = 0; i < count; ++i) {
        Text const text = TextOf(sections_[i]);
        changed = changed || !SameTexts(TextOf(live[i]), text);
        live[i]->SetText(text, false);
    }
    if (changed) titleBlock_->TextsChanged();
}

void PublishTitleBlockDelta::_Serialize(zvk::SerializedContentElement* element) {
    SerializeBase(element);
    element->AddProperty(s_delta_type, s_delta_type_value);
    for (auto const& section : sections_) {
        auto* const child = element->StartContent(s_delta_text_section);
        for (auto const& segment : TextOf(section)) {
            auto* const part = child->StartContent(s_delta_text_segment);
            part->AddProperty(s_delta_text_type, segment.type);
            part->AddProperty(s_delta_text, Symbol(segment.token));
            part->AddProperty(s_delta_original, segment.original);
            part->AddProperty(s_delta_text_value, Symbol(segment.text));
            child->EndContent();
        }
        element->EndContent();
    }
}

}  // namespace figrep
