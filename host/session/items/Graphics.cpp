#include <session/items/Graphics.h>

#include <du/Utf8.h>
#include <figk/Zv2dGraphics.h>
#include <figrep/BaseGraphic.h>
#include <figrep/GraphicalFigureItem.h>
#include <figrep/Segment.h>
#include <figrep/TextLabelContainer.h>
#include <figrep/TextLabelContainerGroup.h>
#include <readers/kicad/design/Texts.h>
#include <zv2d/Definition.h>
#include <zv2d/Text.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

class TextCollector : public zv2d::EntityVisitor {
public:
    explicit TextCollector(std::vector<ShownText>& texts) : texts_(texts) {}

    void Collect(zv2d::Instance const& instance) {
        if (!instance.GetDefinition()) return;
        instance_ = &instance;
        for (auto const& entity : *instance.GetDefinition())
            entity->Accept(*this);
    }

    using EntityVisitor::Visit;
    void Visit(zv2d::Text const& text) override {
        std::string const raw = du::WideStrToUtf8(text.GetText());
        texts_.push_back({text.HasMarkup() ? kicad::WithoutMarkup(raw) : raw,
                          instance_->GetMatrix() * text.GetPosition()});
    }

private:
    std::vector<ShownText>& texts_;
    zv2d::Instance const* instance_ = nullptr;
};

}  // namespace

bool IsShown(figrep::BaseGraphic const& graphic) {
    if (!graphic.GetVisible() || !graphic.IsVisible()) return false;
    if (graphic.GetType() != figrep::AbstractFigureItem::ITEM_PICK_GRAPHIC_PROXY) return true;
    auto const segment = du::DynamicCast<figrep::Segment>(graphic.GetOwner());
    return !segment || segment->GetVisible();
}

SmartPtr<figrep::AbstractFigureItem> OwnerOf(figrep::BaseGraphic const& graphic) {
    SmartPtr<figk::Group> const head = graphic.GetHeadGroup();
    if (auto const labels = du::DynamicCast<figrep::TextLabelContainerGroup>(head)) {
        return du::DynamicCast<figrep::AbstractFigureItem>(labels->GetTextLabelContainer());
    }
    return du::DynamicCast<figrep::GraphicalFigureItem>(head);
}

std::vector<ShownText> TextsIn(figrep::BaseGraphic const& graphic) {
    std::vector<ShownText> texts;
    SmartPtr<figk::Zv2dGraphics> const picture = graphic.GetZv2dGraphics();
    if (!picture) return texts;
    TextCollector collector(texts);
    for (auto const& instance : picture->GetInstances()) {
        if (instance) collector.Collect(*instance);
    }
    return texts;
}

}  // namespace fighost
