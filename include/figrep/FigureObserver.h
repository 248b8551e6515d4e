// One named handler for each event of a figure.
#pragma once

#include <figrep/Fwd.h>
#include <zvk/Observer.h>

namespace figrep {

/// Base of whoever watches figures: override the handlers of interest, register with
/// `Figure::RegisterObserver`. Handlers run where the host dispatches messages, never under the
/// lock of the thread that posted.
class FigureObserver : public zvk::Observer {
public:
    void OnDestroy() override;

    /// Calls the handler that belongs to `id`. Numbers below the figure's go to the base, numbers
    /// above it reach nobody.
    void HandleEvent(unsigned char id, dom::MessageReader& reader) override;

    virtual void OnFigureContentChanged();
    virtual void OnFigureAppearanceChanged();
    virtual void OnFigureItemHighlighted();
    virtual void OnFigureItemsChanged(SmartPtr<SchematicFigureItemsContainer> const& items);
    /// The container's flag is the visibility that the items now have.
    virtual void OnFigureItemsVisibility(SmartPtr<SchematicFigureItemsContainer> const& items);

protected:
    FigureObserver();
    ~FigureObserver() override;
};

}  // namespace figrep
