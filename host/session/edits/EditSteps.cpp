#include <session/edits/EditSteps.h>

#include <algorithm>

#include <figrep/BlockInstance.h>
#include <figrep/Figure.h>
#include <figrep/FigureItemDeleteDelta.h>
#include <figrep/Format.h>
#include <figrep/SubHighway.h>
#include <figrep/SubNet.h>
#include <persistence/Deletable.h>
#include <zvk/ReadWriteLock.h>

namespace fighost {

namespace {

using figrep::AbstractFigureItem;
using figrep::Figure;
using figrep::SmartPtr;

template <typename Like>
std::size_t PlaceIn(std::vector<SmartPtr<Like>> const& likes,
                    SmartPtr<AbstractFigureItem> const& item) {
    auto const found = std::find(likes.begin(), likes.end(), du::DynamicCast<Like>(item));
    return static_cast<std::size_t>(found - likes.begin());
}

std::size_t PlaceOf(Figure const& figure, SmartPtr<AbstractFigureItem> const& item) {
    switch (item->GetType()) {
        case AbstractFigureItem::ITEM_BLOCK_INSTANCE:
            return PlaceIn(figure.GetBlockInstances(), item);
        case AbstractFigureItem::ITEM_SUB_HIGHWAY:
            return PlaceIn(figure.GetSubHighways(), item);
        case AbstractFigureItem::ITEM_SUB_NET:
            return PlaceIn(figure.GetSubNets(), item);
        default:
            return 0;
    }
}

// A figure takes items in at the end, so what stood behind the item leaves and comes back after it.
template <typename Like>
void PutBackAmong(Figure& figure, std::vector<SmartPtr<Like>> const& likes,
                  SmartPtr<AbstractFigureItem> const& item, std::size_t place) {
    std::size_t const first = std::min(place, likes.size());
    for (std::size_t i = first; i < likes.size(); ++i)
        figure.RemoveItem(likes[i]);
    figure.Receive(du::DynamicCast<Like>(item));
    for (std::size_t i = first; i < likes.size(); ++i)
        figure.Receive(likes[i]);
}

void PutBack(Figure& figure, SmartPtr<AbstractFigureItem> const& item, std::size_t place) {
    zvk::WriteGuard const guard(figure.GetLock());
    switch (item->GetType()) {
        case AbstractFigureItem::ITEM_BLOCK_INSTANCE:
            return PutBackAmong(figure, figure.GetBlockInstances(), item, place);
        case AbstractFigureItem::ITEM_SUB_HIGHWAY:
            return PutBackAmong(figure, figure.GetSubHighways(), item, place);
        case AbstractFigureItem::ITEM_SUB_NET:
            return PutBackAmong(figure, figure.GetSubNets(), item, place);
        default:
            figure.Receive(du::DynamicCast<figrep::Format>(item));
    }
}

}  // namespace

ColorStep::ColorStep(SmartPtr<Figure> const& figure, SmartPtr<ColorDelta> const& delta)
    : figure_(figure), delta_(delta) {
    Redo();
}

ColorStep::~ColorStep() = default;

void ColorStep::Undo() {
    delta_->Undo(*figure_);
    figure_->RemoveDelta(delta_);
    figure_->PostAppearanceChangedEvent();
}

void ColorStep::Redo() {
    figure_->AddAndApplyDelta(delta_, false, true);
}

DeleteStep::DeleteStep(SmartPtr<Figure> const& figure, Items const& items) : figure_(figure) {
    for (auto const& item : items) {
        if (item && CanBeDeleted(*item))
            deleted_.push_back({new figrep::FigureItemDeleteDelta(item)});
    }
    Redo();
}

DeleteStep::~DeleteStep() = default;

// From the last to the first, so that each finds its like as they were when it went.
void DeleteStep::Undo() {
    for (auto entry = deleted_.rbegin(); entry != deleted_.rend(); ++entry) {
        PutBack(*figure_, entry->delta->GetItem(), entry->place);
        figure_->RemoveDelta(entry->delta);
    }
    figure_->ProcessNewContent();
    figure_->SetExtents(dg::DBox2D::EMPTY);
    figure_->PostChangedEvent();
}

void DeleteStep::Redo() {
    for (Deleted& entry : deleted_) {
        entry.place = PlaceOf(*figure_, entry.delta->GetItem());
        figure_->AddAndApplyDelta(entry.delta, false, false);
    }
    figure_->SetExtents(dg::DBox2D::EMPTY);
    figure_->PostChangedEvent();
}

}  // namespace fighost
