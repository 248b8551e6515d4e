#include <figrep/Miscellaneous.h>

#include <figk/Miscellaneous.h>
#include <figrep/AbstractFigureVisitor.h>
#include <zvk/ReadWriteLock.h>

namespace figrep {

Miscellaneous::Miscellaneous(SmartPtr<zvk::ReadWriteLock> const& lock,
                             SmartPtr<figk::Miscellaneous> const& kernelMiscellaneous)
    : GraphicalFigureItem(lock, kernelMiscellaneous) {
    Miscellaneous::DeriveId();
}

Miscellaneous::~Miscellaneous() = default;

void Miscellaneous::DeriveId() {
    if (auto const item = GetKernelItem()) SetId(item->GetId());
}

Miscellaneous::FigureItemType Miscellaneous::GetType() const {
    return ITEM_MISCELLANEOUS;
}

void Miscellaneous::Accept(AbstractFigureVisitor& visitor) {
    if (!visitor.Visit(SmartPtr<Miscellaneous>(this))) return;
    zvk::ReadGuard const guard(GetLock());
    GraphicalFigureItem::Accept(visitor);
}

SmartPtr<figk::Miscellaneous> Miscellaneous::GetKernelMiscellaneous() const {
    return GetKernelItemAs<figk::Miscellaneous>();
}

}  // namespace figrep
