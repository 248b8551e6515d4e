#include <figrep/CableInstance.h>

#include <figk/CableInstance.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <figrep/SubNet.h>
#include <zvk/ReadWriteLock.h>

#include <utility>

#include "BlockActions.h"

namespace figrep {

CableInstance::CableInstance(SmartPtr<zvk::ReadWriteLock> const& lock,
                             SmartPtr<figk::CableInstance> const& kernelCable)
    : BaseBlockInstance(lock, kernelCable) {
    NoteCable();
    CableInstance::DeriveId();
}

CableInstance::CableInstance(SmartPtr<Figure> const& figure, std::string const& name)
    : BaseBlockInstance(figure ? figure->GetLock() : SmartPtr<zvk::ReadWriteLock>(), name) {
    du::ConstructionGuard const guard(this);
    NoteCable();
    CableInstance::DeriveId();
    if (figure) figure->Receive(SmartPtr<CableInstance>(this));
}

CableInstance::~CableInstance() = default;

void CableInstance::DeriveId() {
    auto const item = GetKernelItem();
    SetId(item ? item->GetId() : Symbol(GetLocalName()));
}

CableInstance::FigureItemType CableInstance::GetType() const {
    return ITEM_CABLE_INSTANCE;
}

void CableInstance::Add(SmartPtr<SubNet> const& subNet) {
    SmartPtr<CableInstance> const self(this);
    if (!subNet || subNet->GetCable() == self) return;
    subNet->Add(self);
    zvk::WriteGuard const guard(GetLock());
    subNets_.push_back(subNet);
}

void CableInstance::ClearSubNets() {
    SmartPtr<CableInstance> const self(this);  // the sub-nets may hold the last references
    zvk::WriteGuard const guard(GetLock());
    for (auto const& subNet : std::exchange(subNets_, {}))
        subNet->Remove(self);
}

std::vector<SmartPtr<SubNet>> CableInstance::GetSubNets() const {
    zvk::ReadGuard const guard(GetLock());
    return subNets_;
}

void CableInstance::TransformAlone(BlockTransform const& transform) {
    BaseBlockInstance::TransformAlone(transform);
    for (auto const& subNet : subNets_)
        transform.Apply(*subNet);
}

void CableInstance::SetLookAlone(BlockLook const& look) {
    BaseBlockInstance::SetLookAlone(look);
    for (auto const& subNet : subNets_)
        ((*subNet).*look.setItem)(look.on);
}

void CableInstance::InheritedSettingsChanged() {
    for (auto const& subNet : subNets_)
        subNet->SettingsChanged();
}

void CableInstance::Accept(AbstractFigureVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<CableInstance>(this))) return;
    zvk::ReadGuard const guard(GetLock());
    AcceptGraphicsAndLabels(visitor);
}

SmartPtr<figk::CableInstance> CableInstance::GetKernelCableInstance() const {
    return GetKernelItemAs<figk::CableInstance>();
}

}  // namespace figrep
