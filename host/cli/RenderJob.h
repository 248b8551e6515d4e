// Paints the sheets of one run of `render` and writes the pictures.
#pragma once

#include <cli/Commands.h>
#include <cli/ExitCode.h>
#include <string>
#include <vector>

#include <session/Session.h>

namespace fighost {

enum class PictureFormat { UNKNOWN, SVG, PNG, PDF };

/// By `--format`, else by the extension; what goes to standard output is SVG.
PictureFormat FormatOf(RenderArguments const& arguments);

/// What one run of the command paints; by now the figures look as the arguments want it.
struct RenderJob {
    RenderArguments const& arguments;
    Session const& session;
    std::vector<SessionSheet const*> sheets;
    PictureFormat format;
};

/// Why the sheets don't fit the output, in one sentence; empty when they do.
std::string ProblemOf(RenderJob const& job);

/// Stops at the first picture that can't be written.
ExitCode PaintAll(RenderJob const& job);

}  // namespace fighost
