// What a delta may ask of whatever it is applied to.
#pragma once

#include <figk/AbstractDeltaReceiver.h>
#include <figrep/Fwd.h>

#include <vector>

namespace figrep {

/// The receiving end of figure deltas; `Figure` is the implementation. A delta that needs more
/// than this casts on to `Figure`.
class FigureDeltaReceiverInterface : public figk::AbstractDeltaReceiver {
public:
    FigureDeltaReceiverInterface() = default;
    FigureDeltaReceiverInterface(FigureDeltaReceiverInterface const&) = default;
    FigureDeltaReceiverInterface& operator=(FigureDeltaReceiverInterface const&) = default;
    ~FigureDeltaReceiverInterface() override = default;

    /// Replays the recorded deltas in order. With `refresh` each delta refreshes itself first.
    virtual void ApplyDeltas(bool refresh) = 0;
    /// Records one new delta and applies it; with `notify` observers are told.
    virtual void AddAndApplyDelta(SmartPtr<figk::AbstractDelta> const& delta, bool refresh,
                                  bool notify) = 0;
    /// Records several new deltas and applies them as one step.
    virtual void AddAndApplyDeltas(std::vector<SmartPtr<figk::AbstractDelta>> const& deltas,
                                   bool refresh) = 0;
    /// A copy of the recorded deltas.
    virtual std::vector<SmartPtr<figk::AbstractDelta>> GetDeltas() const = 0;

    virtual void Receive(SmartPtr<TitleBlock> const& titleBlock) = 0;
    virtual void Receive(SmartPtr<TableInstance> const& table) = 0;
    virtual void Receive(SmartPtr<SubNet> const& subNet) = 0;
    virtual void Receive(SmartPtr<SubHighway> const& subHighway) = 0;
    virtual void Receive(SmartPtr<Port> const& port) = 0;
    virtual void Receive(SmartPtr<Miscellaneous> const& miscellaneous) = 0;
    virtual void Receive(SmartPtr<Format> const& format) = 0;
    virtual void Receive(SmartPtr<figk::Design> const& design) = 0;
    virtual void Receive(SmartPtr<CableInstance> const& cable) = 0;
    virtual void Receive(SmartPtr<BlockInstance> const& block) = 0;

    virtual void RemoveItem(SmartPtr<AbstractFigureItem> const& item) = 0;

    virtual void MoveItem(SmartPtr<AbstractFigureItem> const& item, double dx, double dy) = 0;
    virtual void RotateItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                            double radians) = 0;
    virtual void ScaleItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                           double factor) = 0;
    virtual void MirrorItem(SmartPtr<AbstractFigureItem> const& item, DPoint2D const& about,
                            bool mirrorY) = 0;

    virtual SmartPtr<zvk::ReadWriteLock> const& GetLock() const = 0;

    /// Brings crossings and arrows up to date with content that a delta has brought.
    virtual void ProcessNewContent() = 0;
};

}  // namespace figrep
