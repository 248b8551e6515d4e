#include <figrep/BlockInstance.h>

#include <figk/BlockInstance.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/ConnectorInstance.h>
#include <figrep/Figure.h>
#include <zvk/ReadWriteLock.h>

namespace figrep {

BlockInstance::BlockInstance(SmartPtr<zvk::ReadWriteLock> const& lock,
                             SmartPtr<figk::BlockInstance> const& kernelBlock)
    : BaseBlockInstance(lock, kernelBlock) {
    BlockInstance::DeriveId();
}

BlockInstance::BlockInstance(SmartPtr<Figure> const& figure, std::string const& name)
    : BaseBlockInstance(figure ? figure->GetLock() : SmartPtr<zvk::ReadWriteLock>(), name) {
    du::ConstructionGuard const guard(this);
    if (figure) figure->Receive(SmartPtr<BlockInstance>(this));
}

BlockInstance::~BlockInstance() = default;

void BlockInstance::DeriveId() {
    if (auto const item = GetKernelItem()) SetId(item->GetId());
}

BlockInstance::FigureItemType BlockInstance::GetType() const {
    return ITEM_BLOCK_INSTANCE;
}

void BlockInstance::Accept(AbstractFigureVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<BlockInstance>(this))) return;
    zvk::ReadGuard const guard(GetLock());
    AcceptGraphicsAndLabels(visitor);
    AcceptConnectors(visitor);
}

SmartPtr<figk::BlockInstance> BlockInstance::GetKernelBlockInstance() const {
    return GetKernelItemAs<figk::BlockInstance>();
}

}  // namespace figrep
