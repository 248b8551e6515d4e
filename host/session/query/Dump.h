// A sheet's trees and settings written down, the same on every run.
#pragma once

#include <session/Session.h>

#include <string>

namespace fighost {

/// The trees of the sheet's wires as `figrep::DebugConnectivityVisitor` writes them, with ids in
/// the brackets. What has no id, such as a junction, is numbered in the order of the walk.
std::string DumpConnectivity(SessionSheet const& sheet);

/// The settings of the sheet's items as `figrep::DebugSettingsVisitor` writes them.
std::string DumpSettings(SessionSheet const& sheet);

}  // namespace fighost
