// The segments of one kind in a figure, and which of them cross.
#pragma once

#include "CrossingSweep.h"

#include <figrep/CrossingPoint.h>
#include <figrep/Fwd.h>

#include <cstdint>
#include <list>
#include <unordered_map>
#include <vector>

namespace figrep {

/// Remembers the ends of all segments, the pairs that cross and the `CrossingPoint` of each pair,
/// so that a change of a few segments touches these and their partners alone.
///
/// A segment shows one crossing per place; of several there it takes the first in an order of
/// geometry, so that the outcome doesn't depend on the order of changes. Holds the segments.
class CrossingSegments {
public:
    CrossingSegments();
    ~CrossingSegments();

    // Taking in the segments of a sub-net or sub-highway: `Begin`, `Add` each, `Finish`.
    void BeginPass();
    /// False when the owner's segments are known and haven't changed. An owner outside any figure
    /// can't tell of changes and is always taken in anew.
    bool Begin(SmartPtr<AbstractFigureItem> const& owner);
    void Add(SmartPtr<Segment> const& segment);
    void Finish();
    /// Drops the owners that weren't met since `BeginPass`.
    void EndPass();

    void Note(AbstractFigureItem const& owner);
    /// Asks for new pictures of all segments that cross one of the owner's.
    void MarkPartners(AbstractFigureItem const& owner) const;
    /// The owners noted since they were taken in, in the order of their arrival. Cost: linear in all.
    std::vector<SmartPtr<AbstractFigureItem>> GetNotedOwners() const;
    void Remove(AbstractFigureItem const& owner);
    /// Takes all crossings off and forgets everything.
    void Clear();

    /// Finds the crossings and brings the segments' lists into line. False when nothing had
    /// changed, or when no segments cross.
    bool Update();

private:
    using Slot = std::uint32_t;

    struct Owner {
        SmartPtr<AbstractFigureItem> item;
        unsigned pass = 0;
        bool noted = false;
        std::vector<Slot> slots;
    };
    struct Partner {
        Slot slot;
        bool kept;                         // of an old list: found again at the same place
        SmartPtr<CrossingPoint> crossing;  // null until a segment shows it
    };
    /// A pair that `slot` should show and doesn't.
    struct Missing {
        Slot slot;
        Slot partner;
    };

    /// Up to this many changed segments are each tested against all others; beyond, a sweep over
    /// all is cheaper.
    static constexpr std::size_t FEW_CHANGES = 64;

    Slot NewSlot(SmartPtr<Segment> const& segment);
    void DropSlot(Slot slot);
    void DropOwner(Owner& owner);
    std::vector<Slot> MatchSlots(std::vector<Slot> const& before);
    void ReadEnds(Slot slot);
    void MarkDirty(Slot slot);
    void Touch(Slot slot);

    void Relink();
    void FindNearDirty();
    void TakeOldPartners(Slot slot);
    void Link(WireCrossing const& found);
    SmartPtr<CrossingPoint> TakeKnown(Slot slot, Slot partner, DPoint2D const& position);
    void InsertPartner(Slot slot, Partner const& partner);
    void ErasePartner(Slot slot, Slot partner);
    Partner* FindPartner(Slot slot, Slot partner);

    void RemoveStale(Slot slot, std::vector<Missing>& missing);
    std::vector<Slot> GetShown(Slot slot) const;
    bool ComesFirst(Slot a, Slot b) const;
    DPoint2D PositionOf(Slot a, Slot b) const;
    void Show(Missing const& missing);

    std::list<Owner> owners_;
    std::unordered_map<AbstractFigureItem const*, std::list<Owner>::iterator> ownerIndex_;
    unsigned pass_ = 0;
    Owner* current_ = nullptr;
    std::vector<SmartPtr<Segment>> collected_;

    // By slot. A free slot has no segment and ends that aren't numbers.
    std::vector<SmartPtr<Segment>> segments_;
    std::vector<WireSpan> spans_;
    std::vector<std::vector<Partner>> partners_;  // each sorted by slot
    std::vector<unsigned char> marks_;  // DIRTY, TOUCHED: whether in the list of this name
    std::vector<Slot> free_;

    std::vector<Slot> dirty_;                             // with new ends
    std::vector<Slot> touched_;                           // whose list of crossings may be wrong
    std::unordered_map<Slot, std::vector<Partner>> old_;  // partners before, while linking
    std::size_t pairs_ = 0;
    CrossingSweep sweep_;
    std::vector<WireCrossing> found_;
};

}  // namespace figrep
