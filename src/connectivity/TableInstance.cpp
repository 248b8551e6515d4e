#include <figrep/TableInstance.h>

#include <figk/TableInstance.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <zvk/ReadWriteLock.h>

namespace figrep {

TableInstance::TableInstance(SmartPtr<zvk::ReadWriteLock> const& lock,
                             SmartPtr<figk::TableInstance> const& kernelTable)
    : BaseBlockInstance(lock, kernelTable) {
    TableInstance::DeriveId();
}

TableInstance::TableInstance(SmartPtr<Figure> const& figure, std::string const& name)
    : BaseBlockInstance(figure ? figure->GetLock() : SmartPtr<zvk::ReadWriteLock>(), name) {
    du::ConstructionGuard const guard(this);
    TableInstance::DeriveId();
    if (figure) figure->Receive(SmartPtr<TableInstance>(this));
}

TableInstance::~TableInstance() = default;

void TableInstance::DeriveId() {
    auto const item = GetKernelItem();
    SetId(item ? item->GetId() : Symbol(GetLocalName()));
}

TableInstance::FigureItemType TableInstance::GetType() const {
    return ITEM_TABLE_INSTANCE;
}

void TableInstance::Accept(AbstractFigureVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<TableInstance>(this))) return;
    zvk::ReadGuard const guard(GetLock());
    AcceptGraphicsAndLabels(visitor);
}

SmartPtr<figk::TableInstance> TableInstance::GetKernelTableInstance() const {
    return GetKernelItemAs<figk::TableInstance>();
}

}  // namespace figrep
