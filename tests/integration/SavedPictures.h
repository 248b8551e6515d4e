// Whether what was saved of a figure gives the same figure again.
#pragma once

#include <figrep/Fwd.h>
#include <session/Session.h>

#include <string>

namespace fighost::test {

/// A figure of the sheet made from the bytes of a file with one saved figure, all changes of which
/// must apply. Null, with a failure, when the file can't be read.
figrep::SmartPtr<figrep::Figure> Reload(std::string const& bytes, SessionSheet const& sheet);

/// The first lines in which the figures' dumps differ; empty when they are equal.
std::string FirstDifference(figrep::SmartPtr<figrep::Figure> const& a,
                            figrep::SmartPtr<figrep::Figure> const& b);

}  // namespace fighost::test
