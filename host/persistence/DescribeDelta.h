// Saved changes in words.
#pragma once

#include <string>
#include <vector>

#include <du/Symbol.h>
#include <persistence/ContentXml.h>
#include <zvk/SerializedContentElement.h>

namespace fighost {

/// The ids of the figure's items that a saved change names, each once, in order.
std::vector<du::Symbol> TargetsOf(zvk::SerializedContentElement const& element);

/// The last known name with the id behind it, or the id alone.
std::string NameWithId(du::Symbol const& id, KnownNames const& names);

/// What a saved change does: "move U1, U2". Types that this program doesn't know go by their text.
std::string DescribeDelta(zvk::SerializedContentElement const& element, KnownNames const& names);

}  // namespace fighost
