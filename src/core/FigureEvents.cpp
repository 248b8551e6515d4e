#include <figrep/FigureEvents.h>

#include <dom/ObserverProxy.h>
#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <figrep/FigureObserver.h>
#include <figrep/SchematicFigureItemsContainer.h>
#include <zvk/ReadWriteLock.h>

namespace figrep {

FigureChangedEvent::FigureChangedEvent(SmartPtr<Figure> const& figure, unsigned char eventId)
    : figure_(figure), eventId_(eventId) {}
FigureChangedEvent::FigureChangedEvent(FigureChangedEvent const&) = default;
FigureChangedEvent& FigureChangedEvent::operator=(FigureChangedEvent const&) = default;
FigureChangedEvent::~FigureChangedEvent() = default;

void FigureChangedEvent::PostEvent(SmartPtr<dom::ObserverProxy> const& proxy) const {
    if (!proxy) return;
    proxy->Begin();
    proxy->PushUInt8Value(eventId_);
    proxy->End();
}

FigureItemsChangedEvent::FigureItemsChangedEvent(
    SmartPtr<Figure> const& figure, std::vector<SmartPtr<AbstractFigureItem>> const& items,
    unsigned char eventId, bool flag)
    : items_(new SchematicFigureItemsContainer(figure, items, flag)), eventId_(eventId) {}
FigureItemsChangedEvent::FigureItemsChangedEvent(FigureItemsChangedEvent const&) = default;
FigureItemsChangedEvent& FigureItemsChangedEvent::operator=(FigureItemsChangedEvent const&) =
    default;
FigureItemsChangedEvent::~FigureItemsChangedEvent() = default;

void FigureItemsChangedEvent::PostEvent(SmartPtr<dom::ObserverProxy> const& proxy) const {
    if (!proxy) return;
    proxy->Begin();
    proxy->PushUInt8Value(eventId_);
    proxy->PushSmartPtr(items_);
    proxy->End();
}

unsigned char Figure::GetBaseEventId() {
    static unsigned char const base = zvk::Observable::GetNextEventId();
    return base;
}

bool Figure::RegisterObserver(SmartPtr<FigureObserver> const& observer) {
    if (!observer) return false;
    SmartPtr<dom::ObserverProxy> const proxy = new dom::ObserverProxy(observer);
    zvk::WriteGuard guard(GetLock());
    return _RegisterObserver(observer, proxy);
}

bool Figure::UnregisterObserver(SmartPtr<FigureObserver> const& observer) {
    return observer && DoUnregisterObserver(observer);
}

void Figure::PostObservableEvent(dom::ObservableEvent const& event, bool flag) {
    zvk::Observable::PostObservableEvent(event, flag);
}

void Figure::PostEvent(unsigned char constant) {
    auto const id = static_cast<unsigned char>(GetBaseEventId() + constant);
    PostObservableEvent(FigureChangedEvent(this, id), false);
}

void Figure::PostItemsChanged(Items const& items) {
    auto const id = static_cast<unsigned char>(GetBaseEventId() + ITEMS_CHANGED_EVENT);
    PostObservableEvent(FigureItemsChangedEvent(this, items, id, false), false);
}

void Figure::PostChangedEvent() {
    zvk::WriteGuard guard(GetLock());
    PostEvent(ITEM_CHANGED_EVENT);
}

void Figure::PostAppearanceChangedEvent() {
    zvk::WriteGuard guard(GetLock());
    PostEvent(APPEARANCE_CHANGED_EVENT);
}

void Figure::PostVisibilityEvent(Items const& items, bool visible) {
    zvk::WriteGuard guard(GetLock());
    auto const id = static_cast<unsigned char>(GetBaseEventId() + ITEMS_VISIBILITY_EVENT);
    PostObservableEvent(FigureItemsChangedEvent(this, items, id, visible), false);
}

void Figure::Refresh() {
    PostChangedEvent();
}

}  // namespace figrep
