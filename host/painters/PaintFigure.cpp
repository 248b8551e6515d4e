#include <painters/PaintFigure.h>

#include <figk/Zv2dGraphics.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/BaseGraphic.h>
#include <figrep/BlockInstance.h>
#include <figrep/CableInstance.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/Figure.h>
#include <figrep/Format.h>
#include <figrep/GenericGraphic.h>
#include <figrep/GraphicGroup.h>
#include <figrep/NetSegment.h>
#include <figrep/PortNode.h>
#include <figrep/Setting.h>
#include <figrep/SubNet.h>
#include <figrep/TextGraphic.h>
#include <figrep/TextLabelContainer.h>
#include <figrep/TextLabelContainerGroup.h>
#include <painters/EntityPainter.h>
#include <zv2d/Definition.h>
#include <zvk/ReadWriteLock.h>
#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace fighost {

namespace {

using figrep::AbstractFigureItem;
using figrep::BaseGraphic;
using figrep::SmartPtr;

constexpr double MARGIN = 5.0;                    // around content without a frame, in millimetres
constexpr double HIGHLIGHT_HALO = 0.3;            // added to the lines of highlighted items
constexpr dg::Color HIGHLIGHT{0.9F, 0.1F, 0.6F};  // where no setting says another

// From the back to the front: filled shapes that stand free, such as coloured areas, must not hide
// items, and items must not hide free texts.
enum Layer { LAYER_FREE_SHAPES, LAYER_ITEMS, LAYER_FREE_TEXTS, LAYER_COUNT };

struct Entry {
    SmartPtr<AbstractFigureItem> item;
    std::string net;
    std::vector<SmartPtr<BaseGraphic>> graphics;
};

// Collects every graphic once, with the item that owns it, in the order of the walk.
class GraphicCollector : public figrep::AbstractFigureVisitor {
public:
    std::vector<Entry> const& GetLayer(std::size_t layer) const { return layers_[layer]; }

    bool StartGroupVisit(SmartPtr<figk::Group> const& group) override {
        bool const first = groupsSeen_.insert(group.Get()).second;
        owners_.push_back(first ? OwnerOf(group) : nullptr);
        return first;
    }
    bool EndGroupVisit(SmartPtr<figk::Group> const&) override {
        if (!owners_.empty()) owners_.pop_back();
        return true;
    }

    bool Visit(SmartPtr<figrep::GenericGraphic> const& graphic) override {
        Collect(graphic, LAYER_FREE_SHAPES);
        return true;
    }
    bool Visit(SmartPtr<figrep::TextGraphic> const& text) override {
        Collect(text, LAYER_FREE_TEXTS);
        return true;
    }

    // A block comes before its connectors, whichever shows a graphic first.
    bool Visit(SmartPtr<figrep::BlockInstance> const& block) override {
        EntryOf(block);
        return true;
    }
    bool Visit(SmartPtr<figrep::CableInstance> const& cable) override {
        EntryOf(cable);
        return true;
    }
    bool Visit(SmartPtr<figrep::ConnectorInstance> const& connector) override {
        Entry& entry = EntryOf(connector);
        for (auto const& node : connector->GetConnections()) {
            SmartPtr<figrep::SubNet> const subNet = node ? node->GetSubNet() : nullptr;
            if (subNet && entry.net.empty()) entry.net = subNet->GetName();
        }
        return true;
    }
    bool Visit(SmartPtr<figrep::SubNet> const& subNet) override {
        EntryOf(subNet).net = subNet->GetName();
        return true;
    }
    bool Visit(SmartPtr<figrep::NetSegment> const& segment) override {
        SmartPtr<figrep::SubNet> const subNet = segment->GetSubNet();
        if (subNet) EntryOf(segment).net = subNet->GetName();
        return true;
    }
    bool Visit(SmartPtr<figrep::PortNode> const& node) override {
        SmartPtr<figrep::SubNet> const subNet = node->GetSubNet();
        if (subNet) EntryOf(node).net = subNet->GetName();
        return true;
    }

private:
    // The item that a group's graphics belong to; null for groups that stand free.
    SmartPtr<AbstractFigureItem> OwnerOf(SmartPtr<figk::Group> const& group) const {
        if (auto const labels = du::DynamicCast<figrep::TextLabelContainerGroup>(group)) {
            return du::DynamicCast<AbstractFigureItem>(labels->GetTextLabelContainer());
        }
        if (auto const item = du::DynamicCast<AbstractFigureItem>(group)) return item;
        return owners_.empty() ? nullptr : owners_.back();
    }

    void Collect(SmartPtr<BaseGraphic> const& graphic, Layer freeLayer) {
        if (!owners_.empty() && owners_.back()) {
            EntryOf(owners_.back()).graphics.push_back(graphic);
            return;
        }
        if (!freeGraphicsSeen_.insert(graphic.Get()).second) return;
        layers_[freeLayer].push_back({graphic, {}, {graphic}});
    }

    Entry& EntryOf(SmartPtr<AbstractFigureItem> const& item) {
        std::vector<Entry>& entries = layers_[LAYER_ITEMS];
        auto const [found, isNew] = indices_.try_emplace(item.Get(), entries.size());
        if (isNew) entries.push_back({item, {}, {}});
        return entries[found->second];
    }

    std::vector<Entry> layers_[LAYER_COUNT];
    std::unordered_map<AbstractFigureItem const*, std::size_t> indices_;  // looked up only
    std::unordered_set<figk::Group const*> groupsSeen_;
    std::unordered_set<BaseGraphic const*> freeGraphicsSeen_;
    std::vector<SmartPtr<AbstractFigureItem>> owners_;  // of the groups around the walk's place
};

class GraphicPainter {
public:
    GraphicPainter(Painter& painter, PaintOptions const& options, dg::Color const& background)
        : painter_(painter), entities_(painter), options_(options), background_(background) {}

    void Paint(Entry const& entry) {
        begun_ = false;
        for (auto const& graphic : entry.graphics)
            UpdateRenderInfo(*graphic);
        if (HasBodyBehindOther(entry)) {
            PaintGraphics(entry, PaintPass::BODIES);
            PaintGraphics(entry, PaintPass::ALL_BUT_BODIES);
        } else {
            PaintGraphics(entry, PaintPass::ALL);
        }
        if (begun_) painter_.EndItem();
    }

private:
    // A draw state takes the colour of the ground only when it knows already that it is filled with
    // it.
    static void UpdateRenderInfo(BaseGraphic& graphic) {
        bool const knew = graphic.GetRenderInfo().GetFillBackground();
        graphic.UpdateRenderInfoBase();
        if (!knew && graphic.GetFillBackground()) graphic.UpdateRenderInfoBase();
    }

    static bool HasBodyBehindOther(Entry const& entry) {
        bool isFirst = true;
        for (auto const& graphic : entry.graphics) {
            auto const graphics = graphic->GetRenderInfo().GetZv2dGraphics();
            if (!graphics) continue;
            for (auto const& instance : graphics->GetInstances()) {
                if (!instance || !instance->GetDefinition()) continue;
                for (auto const& entity : *instance->GetDefinition()) {
                    if (!isFirst && IsBody(*entity)) return true;
                    isFirst = false;
                }
            }
        }
        return false;
    }

    void PaintGraphics(Entry const& entry, PaintPass pass) {
        for (auto const& graphic : entry.graphics)
            Paint(entry, *graphic, pass);
    }

    void Paint(Entry const& entry, BaseGraphic const& graphic, PaintPass pass) {
        figrep::RenderInfo const& info = graphic.GetRenderInfo();
        if (!info.IsVisible() || !info.GetZv2dGraphics()) return;
        Begin(entry, graphic);
        GraphicLook look;
        look.color = info.GetDisplayColor(background_);
        look.line = info.GetLineAttributes();
        look.fill = info.GetFillAttributes();
        if (info.GetFillBackground()) look.ground = info.GetBackgroundColor();
        if (IsHighlighted(graphic)) {
            look.color = HighlightOf(graphic);
            look.halo = HIGHLIGHT_HALO;
        }
        for (auto const& instance : info.GetZv2dGraphics()->GetInstances()) {
            if (instance) entities_.Paint(*instance, look, pass);
        }
    }

    static bool IsHighlighted(BaseGraphic const& graphic) {
        return graphic.GetHighlight() || graphic.GetPreselectHighlight();
    }

    static dg::Color HighlightOf(BaseGraphic const& graphic) {
        using figrep::Setting;
        dg::Color color = HIGHLIGHT;
        graphic.GetColorSetting(graphic.GetHighlight() ? Setting::SELECTION_HIGHLIGHT_COLOR
                                                       : Setting::PRESELECTION_HIGHLIGHT_COLOR,
                                color);
        return color;
    }

    void Begin(Entry const& entry, BaseGraphic const& graphic) {
        if (begun_) return;
        begun_ = true;
        std::string const type = entry.item->GetTypeName();
        PaintedItem item;
        item.id = entry.item->GetId().GetString();
        item.type = type;
        item.name = entry.item->GetName();
        item.net = entry.net;
        std::string const link = LinkOf(entry.item);
        item.link = link;
        item.highlighted = IsHighlighted(graphic);
        painter_.BeginItem(item);
    }

    std::string LinkOf(SmartPtr<AbstractFigureItem> const& item) const {
        if (!options_.linkOf) return {};
        auto const node = du::DynamicCast<figrep::PortNode>(item);
        return node ? options_.linkOf(node) : std::string();
    }

    Painter& painter_;
    EntityPainter entities_;
    PaintOptions const& options_;
    dg::Color background_;
    bool begun_ = false;
};

dg::DBox2D Grown(dg::DBox2D const& box, double margin) {
    if (box.IsEmpty()) return box;
    return {box[0] - margin, box[1] - margin, box[2] + margin, box[3] + margin};
}

}  // namespace

dg::DBox2D PictureBox(SmartPtr<figrep::Figure> const& figure) {
    if (!figure) return dg::DBox2D::EMPTY;
    SmartPtr<figrep::Format> const format = figure->GetFormat();
    if (format && format->GetWidth() > 0 && format->GetHeight() > 0) {
        dg::DPoint2D const at = format->GetPosition();
        return {at.x, at.y, at.x + format->GetWidth(), at.y + format->GetHeight()};
    }
    return Grown(figure->GetExtents(), MARGIN);
}

void PaintFigure(SmartPtr<figrep::Figure> const& figure, Painter& painter,
                 PaintOptions const& options) {
    PaintedSheet sheet;
    sheet.box = options.box ? *options.box : PictureBox(figure);
    if (figure) figure->GetColorSetting(figrep::Setting::BACKGROUND_COLOR, sheet.background);
    sheet.paintBackground = sheet.background.a > 0;
    sheet.title = options.title;
    sheet.anchor = options.anchor;
    sheet.depth = options.depth;
    painter.BeginSheet(sheet);
    if (figure) {
        zvk::WriteGuard const guard(figure->GetLock());
        GraphicCollector collector;
        figure->Accept(collector);
        GraphicPainter graphics(painter, options, sheet.background);
        for (std::size_t layer = 0; layer < LAYER_COUNT; ++layer) {
            for (Entry const& entry : collector.GetLayer(layer))
                graphics.Paint(entry);
        }
    }
    painter.EndSheet();
}

}  // namespace fighost
