#include <figrep/FigureObserver.h>

#include <dom/MessageReader.h>
#include <figrep/Figure.h>
#include <figrep/SchematicFigureItemsContainer.h>

namespace figrep {

namespace {

// The message carries one reference to the container; the result takes it over.
SmartPtr<SchematicFigureItemsContainer> TakeContainer(dom::MessageReader& reader) {
    return du::DynamicCast<SchematicFigureItemsContainer>(du::Adopt(reader.GetRawPtr()));
}

}  // namespace

FigureObserver::FigureObserver() = default;
FigureObserver::~FigureObserver() = default;

void FigureObserver::OnDestroy() {}

void FigureObserver::HandleEvent(unsigned char id, dom::MessageReader& reader) {
    unsigned char const base = Figure::GetBaseEventId();
    if (id < base) {
        zvk::Observer::HandleEvent(id, reader);
        return;
    }
    switch (static_cast<unsigned char>(id - base)) {
        case Figure::APPEARANCE_CHANGED_EVENT:
            OnFigureAppearanceChanged();
            break;
        case Figure::ITEM_CHANGED_EVENT:
            OnFigureContentChanged();
            break;
        case Figure::ITEMS_CHANGED_EVENT:
            OnFigureItemsChanged(TakeContainer(reader));
            break;
        case Figure::ITEM_HIGHLIGHTED_EVENT:
            OnFigureItemHighlighted();
            break;
        case Figure::ITEMS_VISIBILITY_EVENT:
            OnFigureItemsVisibility(TakeContainer(reader));
            break;
        default:
            break;
    }
}

void FigureObserver::OnFigureContentChanged() {}
void FigureObserver::OnFigureAppearanceChanged() {}
void FigureObserver::OnFigureItemHighlighted() {}
void FigureObserver::OnFigureItemsChanged(SmartPtr<SchematicFigureItemsContainer> const&) {}
void FigureObserver::OnFigureItemsVisibility(SmartPtr<SchematicFigureItemsContainer> const&) {}

}  // namespace figrep
