// Figures as they are saved: what they were made from, and what was changed in them.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <figk/AbstractDelta.h>
#include <figrep/Fwd.h>
#include <persistence/ContentXml.h>
#include <persistence/DeltaTypes.h>
#include <readers/FileSource.h>
#include <readers/Findings.h>
#include <zvk/SerializedContentElement.h>

namespace fighost {

/// One saved figure, and what became of its components since it was loaded.
///
/// A loaded component is written back as it was read, whatever it found in the present design and
/// whether or not it was understood, unless its delta has been taken off the figure's list. So
/// saving on a revision that has lost something loses nothing. Whatever else stands in the figure
/// is written back in its place.
class SavedFigure {
public:
    struct Component {
        std::shared_ptr<zvk::SerializedContentElement const> content;
        /// The delta on the figure's list; null when nothing could be made of the component, when
        /// its sheet is gone, and before it is applied.
        figrep::SmartPtr<figk::AbstractDelta> delta;
    };

    bool showGrid = false;
    /// All that was read; the contents of the components are parts of it.
    std::shared_ptr<zvk::SerializedContentElement const> content;
    std::vector<Component> components;

    /// The sheets that the figure was made from, by the ids of design and sheet.
    struct SheetId {
        std::string design;
        std::string sheet;
    };
    std::vector<SheetId> GetSheets() const;
};

/// Exactly one of figures and error is set.
struct ReadFigures {
    struct File {
        std::vector<SavedFigure> figures;
        KnownNames names;
        std::shared_ptr<zvk::SerializedContentElement const> content;  ///< all that was read
    };
    std::optional<File> file;
    std::optional<Finding> error;
    bool isMissing = false;  ///< the error is that there is no such file
};

/// Reads a file of saved figures. Everything that isn't such a file, that is newer than this
/// program, or that is damaged is one error with its place; a component that isn't understood is
/// none and is kept.
ReadFigures ReadSavedFigures(FileSource& files, std::string const& path);
ReadFigures ReadSavedFigures(std::string_view bytes, std::string const& path);

/// False for a setting that was put on no item at all, as showing all makes it where all is shown.
bool IsWorthSaving(figk::AbstractDelta const& delta);

/// A figure to be saved.
struct FigureToSave {
    figrep::SmartPtr<figrep::Figure> figure;  ///< null: one that isn't open; it is kept as it was
    SavedFigure const* saved = nullptr;       ///< what it was loaded from; null for a new one
};

/// The bytes of a file with these figures. `names` are those known so far; the figures' own names
/// replace them. `file` is what was read of the file that is replaced, null for a new one: what
/// isn't a figure in it is written back in its place. Its own figures come first in `figures`.
std::string WriteSavedFigures(std::vector<FigureToSave> const& figures, KnownNames const& names,
                              zvk::SerializedContentElement const* file = nullptr);

}  // namespace fighost
