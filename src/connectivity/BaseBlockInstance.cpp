#include <figrep/BaseBlockInstance.h>

#include <du/Upward.h>
#include <figk/BaseBlockInstance.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/SubNet.h>
#include <zvk/ReadWriteLock.h>

#include "BlockActions.h"
#include "GroupFineChecks.h"
#include "Labels.h"
#include "Transforms.h"
#include "settings/Inheritance.h"

namespace figrep {

namespace {

class MoveTransform final : public BlockTransform {
public:
    MoveTransform(double dx, double dy) : dx_(dx), dy_(dy) {}
    void Apply(GraphicGroupMember& graphics) const override { graphics.MoveGraphics(dx_, dy_); }
    void Apply(TextLabelContainer& labels) const override { labels.MoveText(dx_, dy_); }
    void Apply(ConnectorInstance& connector, BaseBlockInstance& block) const override {
        connector.Move(SmartPtr<BaseBlockInstance>(&block), dx_, dy_);
    }
    void Apply(SubNet& subNet) const override { subNet.MoveItem(dx_, dy_); }

private:
    double dx_;
    double dy_;
};

class RotateTransform final : public BlockTransform {
public:
    RotateTransform(DPoint2D const& about, double radians) : about_(about), radians_(radians) {}
    void Apply(GraphicGroupMember& graphics) const override {
        graphics.RotateGraphics(about_, radians_);
    }
    void Apply(TextLabelContainer& labels) const override { labels.RotateText(about_, radians_); }
    void Apply(ConnectorInstance& connector, BaseBlockInstance&) const override {
        connector.Rotate(about_, radians_);
    }
    void Apply(SubNet& subNet) const override { subNet.RotateItem(about_, radians_); }

private:
    DPoint2D about_;
    double radians_;
};

class ScaleTransform final : public BlockTransform {
public:
    ScaleTransform(DPoint2D const& about, double factor) : about_(about), factor_(factor) {}
    void Apply(GraphicGroupMember& graphics) const override {
        graphics.ScaleGraphics(about_, factor_);
    }
    void Apply(TextLabelContainer& labels) const override { labels.ScaleText(about_, factor_); }
    void Apply(ConnectorInstance& connector, BaseBlockInstance&) const override {
        connector.Scale(about_, factor_);
    }
    void Apply(SubNet& subNet) const override { subNet.ScaleItem(about_, factor_); }

private:
    DPoint2D about_;
    double factor_;
};

class MirrorTransform final : public BlockTransform {
public:
    MirrorTransform(DPoint2D const& about, bool mirrorY) : about_(about), mirrorY_(mirrorY) {}
    void Apply(GraphicGroupMember& graphics) const override {
        graphics.MirrorGraphics(about_, mirrorY_);
    }
    void Apply(TextLabelContainer& labels) const override { labels.MirrorText(about_, mirrorY_); }
    void Apply(ConnectorInstance& connector, BaseBlockInstance&) const override {
        connector.Mirror(about_, mirrorY_);
    }
    void Apply(SubNet& subNet) const override { subNet.MirrorItem(about_, mirrorY_); }

private:
    DPoint2D about_;
    bool mirrorY_;
};

}  // namespace

BaseBlockInstance::BaseBlockInstance(SmartPtr<zvk::ReadWriteLock> const& lock,
                                     SmartPtr<figk::BaseBlockInstance> const& kernelBlock)
    : GraphicalFigureItem(lock, kernelBlock), TextLabelContainer(lock) {}

BaseBlockInstance::BaseBlockInstance(SmartPtr<zvk::ReadWriteLock> const& lock,
                                     std::string const& name)
    : GraphicalFigureItem(lock, name), TextLabelContainer(lock) {}

BaseBlockInstance::~BaseBlockInstance() {
    zvk::WriteGuard const guard(GetLock());
    for (auto const& connector : connectorInstances_)
        connector->blockInstance_ = nullptr;
    // Children that nobody else holds die here one by one, however deep they are nested.
    Family orphans;
    GiveUpChildren(orphans);
    while (!orphans.empty()) {
        SmartPtr<BaseBlockInstance> const orphan = orphans.back();
        orphans.pop_back();
        if (orphan->GetRefCount() == 1) orphan->GiveUpChildren(orphans);
    }
}

void BaseBlockInstance::GiveUpChildren(Family& orphans) {
    for (auto const& child : children_) {
        if (child->parent_ == this) child->parent_ = nullptr;
        if (child->GetRefCount() > 1) child->SettingsChanged();
        orphans.push_back(child);
    }
    children_.clear();
}

// Parts.

void BaseBlockInstance::Add(SmartPtr<ConnectorInstance> const& connector) {
    if (!connector) return;
    zvk::WriteGuard const guard(GetLock());
    connectorInstances_.push_back(connector);
    ForgetExtents();
}

void BaseBlockInstance::Add(SmartPtr<BaseBlockInstance> const& child) {
    if (!child) return;
    zvk::WriteGuard const guard(GetLock());
    if (IsInside(*child) || child->parent_ == this) return;
    if (BaseBlockInstance* const former = child->parent_) {
        former->ForgetExtents();
        std::erase(former->children_, child);
    }
    children_.push_back(child);
    child->SetParent(SmartPtr<BaseBlockInstance>(this));
    ForgetExtents();
    if (child->holdsCable_) NoteCable();
    child->SettingsChanged();
}

bool BaseBlockInstance::IsInside(BaseBlockInstance const& other) const {
    for (BaseBlockInstance const* block = this; block; block = block->parent_) {
        if (block == &other) return true;
    }
    return false;
}

void BaseBlockInstance::SetParent(SmartPtr<BaseBlockInstance> const& parent) {
    zvk::WriteGuard const guard(GetLock());
    parent_ = parent.Get();
}

SmartPtr<BaseBlockInstance> BaseBlockInstance::GetParent() const {
    zvk::ReadGuard const guard(GetLock());
    return du::Upward(parent_);
}

std::vector<SmartPtr<BaseBlockInstance>> BaseBlockInstance::GetChildren() const {
    zvk::ReadGuard const guard(GetLock());
    return children_;
}

bool BaseBlockInstance::HasChildren() const {
    return !children_.empty();
}

std::vector<SmartPtr<ConnectorInstance>> BaseBlockInstance::GetConnectorInstances() const {
    zvk::ReadGuard const guard(GetLock());
    return connectorInstances_;
}

std::size_t BaseBlockInstance::GetNumConnectorInstances() const {
    zvk::ReadGuard const guard(GetLock());
    return connectorInstances_.size();
}

BaseBlockInstance::Family BaseBlockInstance::GetFamily() const {
    zvk::ReadGuard const guard(GetLock());
    Family family{SmartPtr<BaseBlockInstance>(const_cast<BaseBlockInstance*>(this))};
    for (std::size_t i = 0; i < family.size(); ++i) {
        SmartPtr<BaseBlockInstance> const block = family[i];
        family.insert(family.end(), block->children_.begin(), block->children_.end());
    }
    return family;
}

// Extents and fine checks.

DBox2D BaseBlockInstance::GetExtents() {
    {
        zvk::ReadGuard const guard(GetLock());
        if (extentsKnown_) return GetCachedExtents();
    }
    zvk::WriteGuard const guard(GetLock());
    Family const family = GetFamily();
    for (auto it = family.rbegin(); it != family.rend(); ++it) {
        BaseBlockInstance& block = **it;
        if (block.extentsKnown_) continue;
        block.SetCachedExtents(block.MeasureExtents());
        block.extentsKnown_ = true;
    }
    return GetCachedExtents();
}

DBox2D BaseBlockInstance::MeasureExtents() {
    DBox2D box = GraphicalFigureItem::GetExtents();
    for (auto const& child : children_)
        box.Enclose(child->GetCachedExtents());
    for (auto const& connector : connectorInstances_)
        box.Enclose(connector->GetExtents());
    return box;
}

void BaseBlockInstance::ForgetExtents() {
    for (BaseBlockInstance* block = this; block && block->extentsKnown_; block = block->parent_) {
        block->extentsKnown_ = false;
    }
}

void BaseBlockInstance::MemberExtentsChanged() {
    zvk::WriteGuard const guard(GetLock());
    ForgetExtents();
}

SmartPtr<figk::Zv2dGraphics> BaseBlockInstance::GetPictureInPlace() const {
    return transformed_ ? SmartPtr<figk::Zv2dGraphics>() : GetZv2dGraphics();
}

bool BaseBlockInstance::FineContentCheck(DBox2D const& box) const {
    zvk::ReadGuard const guard(GetLock());
    if (auto const picture = GetPictureInPlace()) return picture->InstanceContained(box);
    return GroupContained(*this, box);
}

bool BaseBlockInstance::FineOverlapCheck(DPoint2D const& point) const {
    zvk::ReadGuard const guard(GetLock());
    if (auto const picture = GetPictureInPlace()) return picture->InstanceOverlaps(point);
    return GroupOverlaps(*this, point);
}

bool BaseBlockInstance::FineOverlapCheck(DBox2D const& box) const {
    zvk::ReadGuard const guard(GetLock());
    if (auto const picture = GetPictureInPlace()) return picture->InstanceOverlaps(box);
    return GroupOverlaps(*this, box);
}

// Looks.

void BaseBlockInstance::SetLookAlone(BlockLook const& look) {
    (this->*look.setGraphics)(look.on);
    for (auto const& connector : connectorInstances_)
        ((*connector).*look.setItem)(look.on);
    (this->*look.setText)(look.on);
}

void BaseBlockInstance::SetFamilyLook(BlockLook const& look) {
    zvk::WriteGuard const guard(GetLock());
    for (auto const& block : GetFamily())
        block->SetLookAlone(look);
}

void BaseBlockInstance::SetHighlight(bool on) {
    SetFamilyLook({&GraphicGroupMember::SetMemberHighlight, &TextLabelContainer::SetTextHighlight,
                   &AbstractFigureItem::SetHighlight, on});
}

void BaseBlockInstance::SetPreselectHighlight(bool on) {
    SetFamilyLook({&GraphicGroupMember::SetMemberPreselectHighlight,
                   &TextLabelContainer::SetTextPreselectHighlight,
                   &AbstractFigureItem::SetPreselectHighlight, on});
}

void BaseBlockInstance::SetVisibility(bool on) {
    SetFamilyLook({&GraphicGroupMember::SetMemberVisibility, &TextLabelContainer::SetTextVisibility,
                   &AbstractFigureItem::SetVisibility, on});
}

// Transforms.

void BaseBlockInstance::TransformAlone(BlockTransform const& transform) {
    transform.Apply(static_cast<GraphicGroupMember&>(*this));
    transform.Apply(static_cast<TextLabelContainer&>(*this));
    for (auto const& connector : connectorInstances_)
        transform.Apply(*connector, *this);
    transformed_ = true;
    ForgetExtents();
}

void BaseBlockInstance::TransformFamily(BlockTransform const& transform) {
    for (auto const& block : GetFamily())
        block->TransformAlone(transform);
}

void BaseBlockInstance::Move(double dx, double dy) {
    TransformFamily(MoveTransform(dx, dy));
}

void BaseBlockInstance::Rotate(DPoint2D const& about, double radians) {
    TransformFamily(RotateTransform(about, radians));
}

void BaseBlockInstance::Scale(DPoint2D const& about, double factor) {
    TransformFamily(ScaleTransform(about, factor));
}

void BaseBlockInstance::Mirror(DPoint2D const& about, bool mirrorY) {
    TransformFamily(MirrorTransform(about, mirrorY));
}

void BaseBlockInstance::MoveItem(double dx, double dy) {
    if (dx == 0.0 && dy == 0.0) return;
    zvk::WriteGuard const guard(GetLock());
    if (!parent_) Move(dx, dy);
}

void BaseBlockInstance::RotateItem(DPoint2D const& about, double radians) {
    if (radians == 0.0) return;
    zvk::WriteGuard const guard(GetLock());
    if (!parent_) Rotate(about, radians);
}

void BaseBlockInstance::ScaleItem(DPoint2D const& about, double factor) {
    if (!IsUsableFactor(factor)) return;
    zvk::WriteGuard const guard(GetLock());
    if (!parent_) Scale(about, factor);
}

void BaseBlockInstance::MirrorItem(DPoint2D const& about, bool mirrorY) {
    zvk::WriteGuard const guard(GetLock());
    if (!parent_) Mirror(about, mirrorY);
}

// Labels, walking, settings.

Symbol BaseBlockInstance::GetTextOwnerId() const {
    return GetId();
}

void BaseBlockInstance::AcceptGraphicsAndLabels(AbstractFigureVisitor& visitor) {
    GraphicalFigureItem::Accept(visitor);
    TextLabelContainer::Accept(visitor);
}

void BaseBlockInstance::AcceptConnectors(AbstractFigureVisitor& visitor) {
    for (auto const& connector : GetConnectorInstances())
        connector->Accept(visitor);
}

void BaseBlockInstance::NoteCable() {
    for (BaseBlockInstance* block = this; block && !block->holdsCable_; block = block->parent_)
        block->holdsCable_ = true;
}

void BaseBlockInstance::SettingsChanged() {
    if (!holdsCable_) return;
    for (auto const& block : GetFamily())
        block->InheritedSettingsChanged();
}

ConstSmartPtr<figk::Setting> BaseBlockInstance::GetInheritedSetting(Setting::RepKey key,
                                                                    unsigned int& depth,
                                                                    bool) const {
    zvk::ReadGuard const guard(GetLock());
    std::vector<BaseBlockInstance const*> lineage;
    for (BaseBlockInstance const* block = this; block; block = block->parent_)
        lineage.push_back(block);
    // From the top down, without recursion, since nesting may be deep.
    ConstSmartPtr<figk::Setting> setting;
    SmartPtr<Figure> asked;
    for (auto it = lineage.rbegin(); it != lineage.rend(); ++it) {
        auto const figure = (*it)->GetFigure();
        if (!setting && figure && !(figure == asked)) {
            setting = figure->SettingList::GetSetting(key, depth, true);
        }
        asked = figure;
        ++depth;
        if (*it != this) setting = (*it)->GetSettingOver(setting, key, depth);
    }
    return setting;
}

void BaseBlockInstance::GetAllInheritedAttributes(figk::AttributeSet& out) const {
    for (auto block = GetParent(); block; block = block->GetParent())
        block->GetAllAttributes(out);
    if (auto const figure = GetFigure()) figure->GetAllAttributes(out);
}

SmartPtr<figk::Attribute> BaseBlockInstance::GetInheritedAttribute(Symbol const& name) const {
    for (auto block = GetParent(); block; block = block->GetParent()) {
        if (auto attribute = block->GetAttribute(name, false)) return attribute;
    }
    return AttributeOf(GetFigure(), name);
}

}  // namespace figrep
