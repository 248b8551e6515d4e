#include <figrep/FigureItemDeleteDelta.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/FigureLink.h>
#include <zvk/SerializedContentElement.h>

namespace figrep {

FigureItemDeleteDelta::FigureItemDeleteDelta(SmartPtr<AbstractFigureItem> const& item)
    : AbstractFigureDelta(ACTION_DELETE, false),
      item_(item),
      id_(item ? item->GetId() : Symbol::EMPTY) {}

FigureItemDeleteDelta::FigureItemDeleteDelta(SmartPtr<Figure> const& figure, Symbol const& id)
    : AbstractFigureDelta(ACTION_DELETE, false),
      id_(id),
      figure_(figure ? figure->GetLink() : SmartPtr<FigureLink>()) {}

FigureItemDeleteDelta::~FigureItemDeleteDelta() = default;

bool FigureItemDeleteDelta::_Verify(figk::AbstractDeltaReceiver&) {
    auto const figure = figure_ ? figure_->GetFigure() : SmartPtr<Figure>();
    if (!item_ && figure) item_ = figure->Find(id_);
    return static_cast<bool>(item_);
}

void FigureItemDeleteDelta::_Apply(figk::AbstractDeltaReceiver& receiver) {
    auto* const target = dynamic_cast<FigureDeltaReceiverInterface*>(&receiver);
    if (!target) return;
    target->RemoveItem(item_);
    NoteChangedItem(item_);
}

void FigureItemDeleteDelta::_Serialize(zvk::SerializedContentElement* element) {
    SerializeBase(element);
    if (item_ && !id_.IsEmpty()) element->AddProperty(s_delta_id, id_);
}

}  // namespace figrep
