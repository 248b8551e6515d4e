// How an item leaves a figure.
#pragma once

#include <figrep/AbstractFigureDelta.h>

namespace figrep {

/// Takes one item out of a figure, as far as `Figure::RemoveItem` takes out items of its kind.
///
/// Fails with status 0 when the item is gone. It is saved without a type; a loader knows it by what
/// it holds. Ownership: knows its figure without holding it.
class FigureItemDeleteDelta : public AbstractFigureDelta {
public:
    explicit FigureItemDeleteDelta(SmartPtr<AbstractFigureItem> const& item);
    /// For loaders: the item is looked up in `figure` when the delta is applied.
    FigureItemDeleteDelta(SmartPtr<Figure> const& figure, Symbol const& id);
    ~FigureItemDeleteDelta() override;

    /// Null until a delta made from an id is verified.
    SmartPtr<AbstractFigureItem> const& GetItem() const { return item_; }
    Symbol const& GetId() const { return id_; }

protected:
    void _Apply(figk::AbstractDeltaReceiver& receiver) override;
    bool _Verify(figk::AbstractDeltaReceiver& receiver) override;
    void _Serialize(zvk::SerializedContentElement* element) override;

private:
    SmartPtr<AbstractFigureItem> item_;
    Symbol id_;
    SmartPtr<FigureLink> figure_;
};

}  // namespace figrep
