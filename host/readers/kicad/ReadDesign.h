// Reads a KiCad schematic: the root sheet with all its sub-sheets, as one design.
#pragma once

#include <optional>
#include <string>

#include <figkernel/DesignSource.h>
#include <readers/FileSource.h>
#include <readers/Findings.h>
#include <readers/kicad/file/Limits.h>

namespace fighost::kicad {

/// Either a design or an error; warnings come with both.
struct ReadResult {
    figkernel::DesignSource design;
    Findings findings;
    std::optional<Finding> error;

    bool IsGood() const { return !error.has_value(); }
};

/// Reads the root sheet at `path` (`.kicad_sch`, or the `.kicad_pro` beside it), the sheets that it
/// includes and its project file.
///
/// File format versions from 20210126. Never throws for what stands in the files, never recurses by
/// their size and keeps to `limits`. What can't be shown is left out and counted in the findings; a
/// sub-sheet that can't be read becomes a marked block. Cost: a few passes over the files, and
/// n log n in the items of each sheet.
ReadResult ReadDesign(FileSource& files, std::string const& path, Limits const& limits = Limits());

/// The same from the disk; "-" reads the root from standard input.
ReadResult ReadDesign(std::string const& path, Limits const& limits = Limits());

/// A root sheet given as bytes, without any file beside it. Whatever the bytes are, this ends
/// within the limits: it is what a fuzzer calls.
ReadResult ReadDesignBytes(std::string bytes, Limits const& limits = Limits());

}  // namespace fighost::kicad
