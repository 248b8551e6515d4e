// What a user can do to the figures of an open design, in words: the one vocabulary of the options
// of `edit` and of its scripts.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <dg/Color.h>
#include <dg/Point.h>
#include <session/Session.h>

namespace fighost {

/// One thing to do.
struct Edit {
    enum Kind {
        HIDE,
        SHOW,
        ISOLATE,
        SHOW_ALL,
        MOVE,
        ROTATE,
        SCALE,
        MIRROR,
        COLOR,
        FILL,
        DELETE_ITEMS,
        BACKGROUND,
        SHEET,
        UNDO,
        REDO
    };

    Kind kind = SHOW_ALL;
    std::vector<std::string> names;     ///< of items; of the sheet
    dg::DVec2 offset{0, 0};             ///< of a move, in figure units
    double number = 0;                  ///< an angle in radians, a factor
    bool mirrorY = false;               ///< false: left and right change places
    std::optional<dg::DPoint2D> about;  ///< unset: the middle of the items
    dg::Color color = dg::Color::BLACK;
};

/// A word of the vocabulary.
struct EditVerb {
    char const* name;
    Edit::Kind kind;
    bool takesNames;
    char const* value;  ///< the form of the word behind the names; null for none
    bool scriptOnly;    ///< has no option
    char const* help;
};
std::vector<EditVerb> const& EditVerbs();

/// Exactly one of edit and problem is set.
struct ParsedEdit {
    std::optional<Edit> edit;
    std::string problem;   ///< one sentence
    std::size_t word = 0;  ///< the word at fault: 0 the verb, from 1 on the others
};

/// `words` are the names of items and, last, the value where the verb has one.
ParsedEdit ParseEdit(std::string const& verb, std::vector<std::string> const& words);

/// Does edits one after the other. Each one is one operation in the session's history, and one
/// recorded change on each sheet that it concerns: those that have one of its items, or all when it
/// names none. To isolate concerns all sheets and takes up to three changes on each: hide the other
/// items, show these, hide the ports' nodes.
///
/// What couldn't be saved isn't done: an item that no saved change can name is refused. An edit
/// that is refused changes nothing.
class Editor {
public:
    /// The session must outlive the editor.
    explicit Editor(Session& session) : session_(session) {}

    /// Why it couldn't be done, in one sentence; nothing when it is done.
    std::optional<std::string> Do(Edit const& edit);

private:
    using Items = std::vector<figrep::SmartPtr<figrep::AbstractFigureItem>>;
    struct Part {
        SessionSheet const* sheet;
        Items items;
    };
    using Problem = std::optional<std::string>;

    Problem ChooseSheet(std::vector<std::string> const& names);
    Problem Replay(bool redo);
    Problem FindParts(Edit const& edit, std::vector<Part>& parts) const;
    std::vector<Part> WholeSheets() const;
    void Perform(Edit const& edit, std::vector<Part> const& parts,
                 figrep::SmartPtr<zvk::Operation> const& operation) const;

    Session& session_;
    SessionSheet const* sheet_ = nullptr;  // null: all
};

}  // namespace fighost
