// Recorded changes that a figure couldn't make.
#pragma once

#include <figrep/Fwd.h>

namespace fighost {

/// Takes the list of failures off the figure; whether one of them is to be told. A change without
/// any item, as of showing all where nothing is hidden, was never meant to do anything.
bool TakeFailures(figrep::Figure& figure);

}  // namespace fighost
