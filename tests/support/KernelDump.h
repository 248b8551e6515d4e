// Kernel trees as text, for tests of small drawings.
#pragma once

#include <string>

#include <figk/ConnectionNode.h>
#include <figk/Sheet.h>

namespace figrep::test {

/// A tree in walking order, junctions looked through: each node as "wire(0,0 10,0)", "bus(...)",
/// "port NAME", "pin U1:2" or "onto HIGHWAY", and behind it in brackets what is below it.
/// "wire(5,0)" is a segment without length.
std::string DumpTree(figk::SmartPtr<figk::ConnectionNode> const& head);

/// The trees of all pieces of that net on the sheet, one per line, without a last line break.
std::string DumpNet(figk::Sheet const& sheet, std::string const& net);

/// The same for a highway, by its name.
std::string DumpHighway(figk::Sheet const& sheet, std::string const& highway);

/// Everything that a sheet shows a visitor, one line each, in order: "block U1", "text hello",
/// "start", "end", "labels" and so on.
std::string DumpVisits(figk::Sheet& sheet);

}  // namespace figrep::test
