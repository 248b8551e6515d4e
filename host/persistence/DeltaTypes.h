// Recorded changes made again from what was saved of them.
#pragma once

#include <functional>
#include <map>
#include <string>

#include <figk/AbstractDelta.h>
#include <figrep/Fwd.h>
#include <zvk/SerializedContentElement.h>

namespace fighost {

/// Exactly one of the two is set.
struct LoadedDelta {
    figrep::SmartPtr<figk::AbstractDelta> delta;
    std::string problem;  ///< why nothing could be made, as part of a sentence
};

/// The types of recorded changes that a host can load. The deltas find their targets by id when
/// they are applied; nothing here changes a figure.
class DeltaTypes {
public:
    /// Makes a delta of one type from its element; `figure` is the one that it is meant for.
    using Maker = std::function<LoadedDelta(zvk::SerializedContentElement const& element,
                                            figrep::SmartPtr<figrep::Figure> const& figure)>;

    /// All deltas of the library.
    DeltaTypes();

    /// Adds or replaces a type; a host adds those of its own.
    void Add(figrep::Symbol const& type, Maker maker);

    /// A component that has no type is a deletion, if it looks like one. An unknown type, a missing
    /// or wrongly typed property and a number that isn't finite make no delta.
    LoadedDelta Load(zvk::SerializedContentElement const& element,
                     figrep::SmartPtr<figrep::Figure> const& figure) const;

private:
    std::map<figrep::Symbol, Maker> makers_;
};

/// Whether a component is a deletion: these alone are saved without a type.
bool IsDeletion(zvk::SerializedContentElement const& element);

/// The type text of a component; empty without one.
figrep::Symbol TypeOf(zvk::SerializedContentElement const& element);

}  // namespace fighost
