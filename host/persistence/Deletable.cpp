#include <persistence/Deletable.h>

#include <figrep/BaseBlockInstance.h>

namespace fighost {

bool CanBeDeleted(figrep::AbstractFigureItem const& item) {
    using Item = figrep::AbstractFigureItem;
    switch (item.GetType()) {
        case Item::ITEM_BLOCK_INSTANCE: {
            // A block inside another one isn't in the figure's own list of blocks.
            auto const* block = dynamic_cast<figrep::BaseBlockInstance const*>(&item);
            return block && !block->GetParent();
        }
        case Item::ITEM_FORMAT:
        case Item::ITEM_SUB_HIGHWAY:
        case Item::ITEM_SUB_NET:
            return true;
        default:
            return false;
    }
}

}  // namespace fighost
