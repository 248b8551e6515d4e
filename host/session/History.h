// What a user of one open design can undo and redo.
#pragma once

#include <du/SmartPtr.h>
#include <zvk/Operation.h>
#include <zvk/Scene.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace fighost {

/// Keys of what users do. Each is also the key of its text in the catalogue of the library's own
/// operations, so that a host translates all names in one place.
namespace operation_key {
constexpr std::string_view HIDE = "UndoRedoHide";
constexpr std::string_view SHOW = "UndoRedoShow";
constexpr std::string_view SHOW_ALL = "UndoRedoShowAll";
constexpr std::string_view ISOLATE = "UndoRedoIsolate";
constexpr std::string_view MOVE = "UndoRedoMove";
constexpr std::string_view ROTATE = "UndoRedoRotate";
constexpr std::string_view SCALE = "UndoRedoScale";
constexpr std::string_view MIRROR = "UndoRedoMirror";
constexpr std::string_view COLOR = "UndoRedoColor";
constexpr std::string_view BACKGROUND_COLOR = "UndoRedoBackgroundColor";
constexpr std::string_view DELETE_ITEMS = "UndoRedoDelete";
/// The library's own, for drags of the content.
constexpr std::string_view FIT_CONTENT = "UndoRedoFitContent";
}  // namespace operation_key

/// The stacks of undo and redo of one design.
///
/// `zvk::RecordOperation` hands an operation to the history whose scene it names; several histories
/// stand side by side. An operation of no history's scene is nobody's: what it did stays and can't
/// be undone. While any history lives, the process's operation sink is theirs.
///
/// Recording forgets what could be redone. An operation in which no step has an undo isn't kept,
/// since undoing it would show a user nothing, but it did change something, so it forgets the redo
/// stack too; one without steps is no change at all. Steps that say that they aren't recordable
/// are kept: they aren't worth storing in a file, and undo lives no longer than the session.
///
/// Ownership: operations hold their figures, so clear the history before letting figures go.
/// Threads: one at a time, the one on which the design is edited.
class History {
public:
    History();
    ~History();
    History(History const&) = delete;
    History& operator=(History const&) = delete;

    /// What operations name to be recorded here, and views show. Never null.
    du::SmartPtr<zvk::Scene> const& GetScene() const { return scene_; }

    /// An empty operation on this history's scene, named for users by the text of `key`, one of
    /// `operation_key`. The caller adds the steps and hands it to `zvk::RecordOperation`.
    du::SmartPtr<zvk::Operation> NewOperation(std::string_view key) const;

    /// Takes the last operation back, or does the last one taken back again. False when there is
    /// none. Operations recorded meanwhile are left out: they are part of the replay.
    bool Undo();
    bool Redo();

    bool CanUndo() const { return !done_.empty(); }
    bool CanRedo() const { return !undone_.empty(); }
    std::size_t CountUndo() const { return done_.size(); }
    std::size_t CountRedo() const { return undone_.size(); }

    /// The name of what `Undo` or `Redo` would take, in the user's language; empty for nothing.
    std::string GetUndoName() const;
    std::string GetRedoName() const;
    /// All names, the next one first.
    std::vector<std::string> GetUndoNames() const;
    std::vector<std::string> GetRedoNames() const;

    /// Whether an operation that says that it changes content is done and could be undone.
    bool ChangesContent() const;

    /// Forgets everything; what was done stays done.
    void Clear();

private:
    using Operations = std::vector<du::SmartPtr<zvk::Operation>>;

    static void Dispatch(du::SmartPtr<zvk::Operation> const& operation);
    void Record(du::SmartPtr<zvk::Operation> const& operation);
    bool Replay(Operations& from, Operations& to, void (zvk::Operation::*how)());

    du::SmartPtr<zvk::Scene> scene_;
    Operations done_;
    Operations undone_;  // the next to redo last
    bool replaying_ = false;
};

/// The catalogue in which the library and this host look up the names of operations.
constexpr std::string_view OPERATION_CATALOGUE = "zvecad:depecadStrings";

/// Gives the operations English names, unless the process has a catalogue for them already.
void InstallOperationNames();

}  // namespace fighost
