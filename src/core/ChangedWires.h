// The wires of a figure whose crossings and arrows are to be looked at again.
#pragma once

#include <figrep/Fwd.h>

#include <cstddef>
#include <unordered_map>
#include <vector>

namespace figrep {

/// Sub-nets and sub-highways in the order in which they were first noted, each once. Guarded by
/// the figure's lock. All operations but `Take` and `Clear` take constant time.
class ChangedWires {
public:
    struct Entry {
        SmartPtr<AbstractFigureItem> wire;
        bool isNew;  // nothing on it dates from an earlier pass
    };

    ChangedWires();
    ~ChangedWires();

    /// A wire that is noted as new stays new.
    void Note(SmartPtr<AbstractFigureItem> const& wire, bool isNew);
    void Forget(AbstractFigureItem const& wire);
    bool IsEmpty() const { return index_.empty(); }
    /// Hands all out and forgets them.
    std::vector<Entry> Take();
    void Clear();

private:
    std::vector<Entry> entries_;  // forgotten ones have a null wire
    std::unordered_map<AbstractFigureItem const*, std::size_t> index_;
};

}  // namespace figrep
