// The events by which a figure tells its observers of changes.
#pragma once

#include <dom/ObservableEvent.h>
#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// An event that carries nothing but its number.
class FigureChangedEvent : public dom::ObservableEvent {
public:
    /// `eventId` is the figure's base number plus one of its constants.
    FigureChangedEvent(SmartPtr<Figure> const& figure, unsigned char eventId);
    FigureChangedEvent(FigureChangedEvent const&);
    FigureChangedEvent& operator=(FigureChangedEvent const&);
    ~FigureChangedEvent() override;

    void PostEvent(SmartPtr<dom::ObserverProxy> const& proxy) const override;

private:
    SmartPtr<Figure> figure_;
    unsigned char eventId_;
};

/// An event that carries a snapshot of items. Every proxy gets a reference of its own.
class FigureItemsChangedEvent : public dom::ObservableEvent {
public:
    FigureItemsChangedEvent(SmartPtr<Figure> const& figure,
                            std::vector<SmartPtr<AbstractFigureItem>> const& items,
                            unsigned char eventId, bool flag);
    FigureItemsChangedEvent(FigureItemsChangedEvent const&);
    FigureItemsChangedEvent& operator=(FigureItemsChangedEvent const&);
    ~FigureItemsChangedEvent() override;

    void PostEvent(SmartPtr<dom::ObserverProxy> const& proxy) const override;

private:
    SmartPtr<SchematicFigureItemsContainer> items_;
    unsigned char eventId_;
};

}  // namespace figrep
