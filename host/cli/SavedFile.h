// What the commands that take a saved figure have in common.
#pragma once

#include <cli/Commands.h>
#include <cstddef>
#include <string>
#include <vector>

namespace fighost {

/// How many saved changes didn't come through whole.
std::size_t CountLost(std::vector<SavedReport> const& reports);

/// Warns that changes in the file `saved` don't fit the design, if that is so.
void TellLostChanges(CommonArguments const& arguments, std::string const& saved,
                     Session const& session);

/// Whether more than one of these files is standard input, "-", which can be read only once. Tells
/// it for the command.
bool RefuseSharedInput(std::string const& command, std::vector<std::string> const& files);

/// Writes the session's figures to a file, whole or not at all.
ExitCode SaveFigures(Session const& session, std::string const& path, bool quiet);

}  // namespace fighost
