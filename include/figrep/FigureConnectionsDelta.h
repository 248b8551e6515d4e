// How connections that a move pulled apart stay visible.
#pragma once

#include <figrep/AbstractFigureDelta.h>

#include <vector>

namespace figrep {

/// Puts a red `UnroutedConnection` in the place of each broken connection (action 1), or takes them
/// back (action 2); any other action changes nothing. A connection that isn't found is passed over.
///
/// Fails with status 0 when a sub-net is gone. Walks each sub-net once for all its records; each
/// walk makes the sub-net the active one of its figure.
class FigureConnectionsDelta : public AbstractFigureDelta {
public:
    using Records = std::vector<SmartPtr<BrokenConnectionRecord>>;

    FigureConnectionsDelta(Records const& records, Action action);
    ~FigureConnectionsDelta() override;

    Records const& GetConnectionRecords() const { return records_; }

    /// "connections_delta", the type under which the delta is saved.
    static Symbol GetClassTypeValue();

protected:
    void _Apply(figk::AbstractDeltaReceiver& receiver) override;
    bool _Verify(figk::AbstractDeltaReceiver& receiver) override;
    void _Serialize(zvk::SerializedContentElement* element) override;

private:
    template <typename Change>
    void ForEachSubNet(Change const& change) const;

    static Symbol const s_delta_type_value;

    Records records_;
};

}  // namespace figrep
