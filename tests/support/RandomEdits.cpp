#include <support/RandomEdits.h>

#include <figk/Attribute.h>
#include <figk/SettingValue.h>
#include <figk/Sheet.h>
#include <figk/SubNet.h>
#include <figrep/BaseBlockInstance.h>
#include <figrep/BrokenConnectionRecord.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/ConnectorInstanceNode.h>
#include <figrep/DeltaVertexNode.h>
#include <figrep/Figure.h>
#include <figrep/FigureConnectionsDelta.h>
#include <figrep/FigureItemDeleteDelta.h>
#include <figrep/FigureItemSettingDelta.h>
#include <figrep/FigureMoveDelta.h>
#include <figrep/FigureSettingDelta.h>
#include <figrep/FigureSubNetDelta.h>
#include <figrep/Format.h>
#include <figrep/ItemAttrInfo.h>
#include <figrep/MirrorAction.h>
#include <figrep/PortNode.h>
#include <figrep/PublishTitleBlockDelta.h>
#include <figrep/RotateAction.h>
#include <figrep/ScaleAction.h>
#include <figrep/SubNet.h>
#include <figrep/TitleBlock.h>
#include <figrep/TitleBlockTextSection.h>

#include <support/FindableItems.h>

#include <algorithm>
#include <numbers>
#include <string>
#include <unordered_set>

namespace figrep::test {

namespace {

using Item = AbstractFigureItem;

SmartPtr<Setting> BoolSetting(Setting::RepKey key, bool value, figk::Setting::Level level) {
    ConstSmartPtr<figk::BaseSettingValue> const held = new figk::SettingValue<bool>(value);
    return new Setting(key, held, level, true);
}

bool CanBeDeleted(Item const& item) {
    // A block inside another one isn't in the figure's own list.
    auto const* const block = dynamic_cast<BaseBlockInstance const*>(&item);
    if (block && block->GetParent()) return false;
    return item.GetType() == Item::ITEM_BLOCK_INSTANCE || item.GetType() == Item::ITEM_FORMAT ||
           item.GetType() == Item::ITEM_SUB_HIGHWAY || item.GetType() == Item::ITEM_SUB_NET;
}

/// Whether a node goes where the item goes.
bool MovesWith(SmartPtr<ConnectionNode> const& node, SmartPtr<Item> const& item) {
    if (auto const portNode = du::DynamicCast<PortNode>(node)) {
        return portNode == du::DynamicCast<PortNode>(item);
    }
    auto const pin = du::DynamicCast<ConnectorInstanceNode>(node);
    auto const connector = pin ? pin->GetConnectorInstance() : SmartPtr<ConnectorInstance>();
    return connector && connector->GetBlockInstance() == du::DynamicCast<BaseBlockInstance>(item);
}

/// The sub-nets that their ids mean.
std::vector<SmartPtr<SubNet>> NamedSubNets(Figure const& figure) {
    std::vector<SmartPtr<SubNet>> named;
    std::unordered_set<Symbol> ids;
    for (auto const& subNet : figure.GetSubNets()) {
        bool const isFirst = ids.insert(subNet->GetId()).second;
        if (isFirst && !subNet->GetId().IsEmpty()) named.push_back(subNet);
    }
    return named;
}

}  // namespace

RandomEdits::RandomEdits(SmartPtr<Figure> const& figure, std::uint64_t seed)
    : figure_(figure), random_(seed) {}
RandomEdits::~RandomEdits() = default;

void RandomEdits::Edit() {
    Edit(static_cast<Kind>(random_.Below(KINDS)));
}

void RandomEdits::Edit(Kind kind) {
    Deltas const deltas = Make(kind);
    if (!deltas.empty()) figure_->AddAndApplyDeltas(deltas, false);
}

RandomEdits::Deltas RandomEdits::Make(Kind kind) {
    switch (kind) {
        case SET:
            return SetSeveral();
        case SET_ONE:
            return SetOne();
        case MOVE:
            return MoveSeveral();
        case DELETE:
            return DeleteOne();
        case COPY:
            return CopyNet();
        case DRAW:
            return DrawNet();
        case PART:
            return Part();
        case REJOIN:
            return Rejoin();
        case PUBLISH:
            return Publish();
        case KINDS:
            break;
    }
    return {};
}

RandomEdits::Items RandomEdits::SomeTargets(std::size_t atMost) {
    Items const all = FindableItems(figure_);
    Items some;
    for (std::size_t i = all.empty() ? 0 : 1 + random_.Below(atMost); i > 0; --i) {
        auto const& item = all[random_.Below(all.size())];
        if (std::find(some.begin(), some.end(), item) == some.end()) some.push_back(item);
    }
    return some;
}

RandomEdits::Deltas RandomEdits::SetSeveral() {
    Items const items = SomeTargets(3);
    if (items.empty()) return {};
    auto const key = random_.OneIn(3) ? Setting::BACKGROUND_COLOR : Setting::ITEM_VISIBILITY;
    auto const level = static_cast<figk::Setting::Level>(1 + random_.Below(7));
    return {new FigureSettingDelta(BoolSetting(key, random_.OneIn(2), level), items)};
}

RandomEdits::Deltas RandomEdits::SetOne() {
    auto const setting =
        BoolSetting(Setting::ITEM_VISIBILITY, random_.OneIn(2), figk::Setting::LEVEL_FIGURE);
    Deltas deltas;
    FigureItemSettingDelta::CreateDeltas(SomeTargets(2), deltas, setting);
    // What belongs to the targets may not be what its id means.
    deltas.erase(std::remove_if(deltas.begin(), deltas.end(),
                                [this](auto const& delta) {
                                    auto const item =
                                        du::DynamicCast<FigureItemSettingDelta>(delta)->GetItem();
                                    return !(figure_->Find(item->GetId()) == item);
                                }),
                 deltas.end());
    return deltas;
}

double RandomEdits::Length() {
    return random_.Unit() * 40 - 20;
}

SmartPtr<TransformAction> RandomEdits::SomeTransform() {
    DPoint2D const about(Length(), Length());
    switch (random_.Below(4)) {
        case 0:
            return new MirrorAction(about, random_.OneIn(2));
        case 1:
            return new RotateAction(about, Length());
        case 2:
            return new RotateAction(about, std::numbers::pi / 2);
        default:
            return new ScaleAction(about, random_.Unit() + 0.5);
    }
}

RandomEdits::Deltas RandomEdits::MoveSeveral() {
    Items const items = SomeTargets(3);
    if (items.empty()) return {};
    FigureMoveDelta::Transforms transforms;
    for (std::size_t i = random_.Below(4); i > 0; --i)
        transforms.push_back(SomeTransform());
    DPoint2D const offset = random_.OneIn(3) ? DPoint2D() : DPoint2D(Length(), Length());
    return {new FigureMoveDelta(items, transforms, offset, false)};
}

RandomEdits::Deltas RandomEdits::DeleteOne() {
    Items items = FindableItems(figure_);
    items.erase(std::remove_if(items.begin(), items.end(),
                               [](auto const& item) { return !CanBeDeleted(*item); }),
                items.end());
    if (items.empty()) return {};
    return {new FigureItemDeleteDelta(items[random_.Below(items.size())])};
}

SmartPtr<figk::SubNet> RandomEdits::SomeKernelNet() {
    auto const sheets = figure_->GetSheets();
    if (sheets.empty()) return {};
    auto const records = sheets[random_.Below(sheets.size())]->GetSubNets();
    return records.empty() ? SmartPtr<figk::SubNet>() : records[random_.Below(records.size())];
}

RandomEdits::Deltas RandomEdits::CopyNet() {
    auto const record = SomeKernelNet();
    if (!record) return {};
    return {new FigureSubNetDelta(record, figk::AbstractDelta::ACTION_COPY)};
}

SmartPtr<ItemAttrInfo> RandomEdits::SomeLabel() {
    if (random_.OneIn(3)) return {};
    SmartPtr<ItemAttrInfo> info = new ItemAttrInfo();
    if (!random_.OneIn(3)) info->label = Symbol("label " + std::to_string(random_.Below(9)));
    for (std::size_t i = random_.Below(3); i > 0; --i)
        info->attributes.push_back(new figk::Attribute(Symbol("name"), Symbol("value")));
    return info;
}

// A chain, since what is saved of a drawn net doesn't tell its branches.
RandomEdits::Deltas RandomEdits::DrawNet() {
    auto const record = SomeKernelNet();
    if (!record) return {};
    SmartPtr<DeltaVertexNode> const head =
        new DeltaVertexNode(figure_->GetLock(), DPoint2D(Length(), Length()), nullptr);
    SmartPtr<DeltaVertexNode> last = head;
    for (std::size_t i = random_.Below(5); i > 0; --i)
        last = new DeltaVertexNode(figure_->GetLock(), DPoint2D(Length(), Length()), last);
    return {new FigureSubNetDelta(head, SomeLabel(), figk::AbstractDelta::ACTION_CREATE, record)};
}

RandomEdits::Records RandomEdits::RecordsOf(SmartPtr<AbstractFigureItem> const& moved, double dx,
                                            double dy) {
    Records records;
    for (auto const& subNet : NamedSubNets(*figure_)) {
        auto const head = subNet->GetHead();
        if (!head) continue;
        for (auto it = head->Begin(); it != head->End(); ++it) {
            auto const node = du::DynamicCast<ConnectionNode>(*it);
            if (!node || node->IsJunction()) continue;
            auto const above = du::DynamicCast<ConnectionNode>(node->GetNonJunctionPredecessor());
            DPoint2D at;
            if (!above || MovesWith(node, moved) == MovesWith(above, moved)) continue;
            if (!node->Contacts(above, at)) continue;
            records.push_back(new BrokenConnectionRecord(
                subNet, at, at, DPoint2D(at.x + dx, at.y + dy), MovesWith(node, moved)));
        }
    }
    return records;
}

RandomEdits::Deltas RandomEdits::Part() {
    Items items = FindableItems(figure_);
    items.erase(std::remove_if(items.begin(), items.end(),
                               [](auto const& item) {
                                   return !du::DynamicCast<BaseBlockInstance>(item) &&
                                          !du::DynamicCast<PortNode>(item);
                               }),
                items.end());
    if (items.empty()) return {};
    parted_ = items[random_.Below(items.size())];
    dx_ = Length();
    dy_ = Length();
    records_ = RecordsOf(parted_, dx_, dy_);
    return {new FigureMoveDelta({parted_}, {}, DPoint2D(dx_, dy_), false),
            new FigureConnectionsDelta(records_, figk::AbstractDelta::ACTION_CREATE)};
}

RandomEdits::Deltas RandomEdits::Rejoin() {
    if (!parted_ || !(figure_->Find(parted_->GetId()) == parted_)) return {};
    auto const named = NamedSubNets(*figure_);
    for (auto const& record : records_) {
        if (std::find(named.begin(), named.end(), record->GetSubNet()) == named.end()) return {};
    }
    Deltas deltas{new FigureMoveDelta({parted_}, {}, DPoint2D(-dx_, -dy_), false),
                  new FigureConnectionsDelta(records_, figk::AbstractDelta::ACTION_DELETE)};
    parted_.Reset();
    return deltas;
}

RandomEdits::Deltas RandomEdits::Publish() {
    auto const format = figure_->GetFormat();
    auto const block = format ? format->GetTitleBlock() : SmartPtr<TitleBlock>();
    if (!block || block->GetTextSections().empty()) return {};
    PublishTitleBlockDelta::Sections sections;
    for (auto const& live : block->GetTextSections()) {
        std::vector<TitleBlockTextSection::TextSegment> text;
        live->GetText(text);
        for (auto& segment : text)
            segment.text = "text " + std::to_string(random_.Below(100));
        sections.push_back(new TitleBlockTextSection(static_cast<unsigned>(sections.size()), text));
    }
    return {new PublishTitleBlockDelta(sections)};
}

}  // namespace figrep::test
