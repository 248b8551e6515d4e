// Scripts of edits.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <readers/FileSource.h>
#include <readers/Findings.h>
#include <session/edits/Edits.h>

namespace fighost {

/// An edit and the place where it stands.
struct ScriptStep {
    Edit edit;
    Place place;
};

/// Exactly one of the two counts: with an error there are no steps.
struct EditScript {
    std::vector<ScriptStep> steps;
    std::optional<Finding> error;
};

/// Reads a script: one step per line, words parted by blanks. A word in double quotes may hold
/// blanks, `\"` and `\\`. A line that begins with `#`, and a line's rest behind a `#` that stands
/// alone, say nothing. The first mistake ends the reading. `file` is for messages.
EditScript ReadEditScript(std::string_view text, std::string const& file);
EditScript ReadEditScript(FileSource& files, std::string const& path);

}  // namespace fighost
