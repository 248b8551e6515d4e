// How items come to another place.
#pragma once

#include <figrep/AbstractFigureDelta.h>

#include <vector>

namespace figrep {

/// Takes items through a list of transforms and a move. All or nothing: when one item is gone, the
/// delta fails with status 0 and none is touched.
///
/// A delta made from items knows no ids until it is first written, one made from ids no items until
/// it is verified; neither list is made anew once it is filled.
class FigureMoveDelta : public AbstractFigureDelta {
public:
    using Items = std::vector<SmartPtr<AbstractFigureItem>>;
    using Transforms = std::vector<SmartPtr<TransformAction>>;

    /// `offset` in figure units. With `moveBeforeTransforms` the move comes first, as the inverse
    /// of a move needs it; that isn't saved.
    FigureMoveDelta(Items const& items, Transforms const& transforms, DPoint2D const& offset,
                    bool moveBeforeTransforms);
    /// For loaders: the items are looked up in the figure when the delta is applied.
    FigureMoveDelta(std::vector<Symbol> const& ids, Transforms const& transforms,
                    DPoint2D const& offset);
    ~FigureMoveDelta() override;

    /// "move_delta", the type under which the delta is saved.
    static Symbol GetClassTypeValue();
    static Symbol const s_delta_type_value;

    /// What the delta moves, in order; empty before a delta made from ids is verified.
    Items const& GetItems() const { return items_; }
    Transforms const& GetTransforms() const { return transforms_; }
    DPoint2D const& GetOffset() const { return offset_; }

protected:
    void _Apply(figk::AbstractDeltaReceiver& receiver) override;
    bool _Verify(figk::AbstractDeltaReceiver& receiver) override;
    void _Serialize(zvk::SerializedContentElement* element) override;

private:
    void ApplyTransforms(FigureDeltaReceiverInterface& receiver,
                         SmartPtr<AbstractFigureItem> const& item) const;
    void AcquireFigureItemIds();
    void SerializeTransforms(zvk::SerializedContentElement& element) const;

    Items items_;
    std::vector<Symbol> ids_;
    Transforms transforms_;
    DPoint2D offset_;
    bool moveBeforeTransforms_;
};

}  // namespace figrep
