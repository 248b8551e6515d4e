#include <figrep/Port.h>

#include <du/Upward.h>
#include <figk/Highway.h>
#include <figk/Net.h>
#include <figk/Port.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/PortNode.h>
#include <zvk/ReadWriteLock.h>

#include <algorithm>

#include "settings/Inheritance.h"

namespace figrep {

Port::Port(SmartPtr<Figure> const& figure, SmartPtr<zvk::ReadWriteLock> const& lock,
           std::string const& name)
    : AbstractFigureItem(lock, name) {
    du::ConstructionGuard const guard(this);
    if (figure) figure->Receive(SmartPtr<Port>(this));
    Port::DeriveId();
}

Port::Port(SmartPtr<zvk::ReadWriteLock> const& lock, SmartPtr<figk::Port> const& kernelPort)
    : AbstractFigureItem(lock, kernelPort) {
    Port::DeriveId();
}

Port::~Port() = default;

void Port::DeriveId() {
    std::string text;
    if (auto const record = GetKernelPort()) {
        SmartPtr<figk::AbstractItem> owner;
        if (record->OnHighwayNotNet()) {
            owner = record->GetHighway();
        } else {
            owner = record->GetNet();
        }
        if (owner) text = owner->GetId().GetString();
        text += "/";
    }
    SetId(Symbol(text + GetName()));
}

Port::FigureItemType Port::GetType() const {
    return ITEM_PORT;
}

std::string const& Port::GetName() const {
    static std::string const NONE;
    return GetKernelItem() ? AbstractFigureItem::GetName() : NONE;
}

SmartPtr<figk::Port> Port::GetKernelPort() const {
    return GetKernelItemAs<figk::Port>();
}

std::vector<SmartPtr<PortNode>> Port::GetPortNodes() const {
    zvk::ReadGuard const guard(GetLock());
    std::vector<SmartPtr<PortNode>> nodes;
    for (PortNode* const node : portNodes_) {
        if (auto held = du::Upward(node)) nodes.push_back(held);
    }
    return nodes;
}

bool Port::OnHighwayNotNet() const {
    zvk::ReadGuard const guard(GetLock());
    auto const record = GetKernelPort();
    return record && record->OnHighwayNotNet();
}

void Port::SetHighlight(bool on) {
    for (auto const& node : GetPortNodes())
        node->SetHighlight(on);
}

void Port::SetPreselectHighlight(bool on) {
    for (auto const& node : GetPortNodes())
        node->SetPreselectHighlight(on);
}

void Port::SetVisibility(bool on) {
    for (auto const& node : GetPortNodes())
        node->SetVisibility(on);
}

void Port::Accept(AbstractFigureVisitor& visitor) {
    visitor.Visit(SmartPtr<Port>(this));
}

ConstSmartPtr<figk::Setting> Port::GetInheritedSetting(Setting::RepKey key, unsigned int& depth,
                                                       bool) const {
    zvk::ReadGuard const guard(GetLock());
    return SettingOf(GetFigure(), key, depth);
}

void Port::GetAllInheritedAttributes(figk::AttributeSet& out) const {
    if (auto const figure = GetFigure()) figure->GetAllAttributes(out);
}

SmartPtr<figk::Attribute> Port::GetInheritedAttribute(Symbol const& name) const {
    return AttributeOf(GetFigure(), name);
}

void Port::Add(PortNode* node) {
    zvk::WriteGuard const guard(GetLock());
    portNodes_.push_back(node);
}

void Port::Forget(PortNode const* node) {
    zvk::WriteGuard const guard(GetLock());
    std::replace(portNodes_.begin(), portNodes_.end(), const_cast<PortNode*>(node),
                 static_cast<PortNode*>(nullptr));
}

unsigned int Port::GetNextPortNodeId() {
    zvk::WriteGuard const guard(GetLock());
    return static_cast<unsigned int>(portNodes_.size());
}

}  // namespace figrep
