// A design as figures, made step by step so that each step can be measured.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <figk/Design.h>
#include <figkernel/DesignSource.h>
#include <figrep/Fwd.h>
#include <readers/FileSource.h>

namespace figbench {

/// The figures of all sheets, loaded; without pictures until `UpdateContent`.
struct LoadedDesign {
    du::SmartPtr<figk::Design> design;
    std::vector<du::SmartPtr<figrep::Figure>> figures;

    void UpdateContent() const;
    /// Net and highway segments in all figures.
    std::size_t CountSegments() const;
};

/// Makes records and figures. Crossings are shown as arcs.
LoadedDesign LoadFigures(figkernel::DesignSource const& source);

/// Makes figures of records.
LoadedDesign LoadFigures(du::SmartPtr<figk::Design> const& design);

/// From the file to figures; what can't be read gives no figures.
LoadedDesign LoadFile(fighost::FileSource& files, std::string const& path);

/// The crossing style that programs begin with.
void ShowCrossingsAsArcs(du::SmartPtr<figrep::Figure> const& figure);

}  // namespace figbench
