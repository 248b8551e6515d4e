// What a user undoes at once.
#pragma once

#include <du/SmartPtr.h>
#include <du/Symbol.h>
#include <zvk/OperationStep.h>
#include <zvk/Scene.h>

#include <functional>
#include <vector>

namespace zvk {

/// A named list of steps. Steps count as done when they are added.
class Operation : public virtual du::RefCounted {
public:
    /// `name` is shown to users. A null scene is allowed. `changesContent` tells hosts that there
    /// is something to save.
    Operation(du::Symbol const& name, du::SmartPtr<Scene> const& scene, bool changesContent);
    ~Operation() override;

    du::Symbol const& GetName() const { return name_; }
    du::SmartPtr<Scene> const& GetScene() const { return scene_; }
    bool ChangesContent() const { return changesContent_; }

    /// Null is left out.
    void AddStep(du::SmartPtr<OperationStep> const& step);
    std::vector<du::SmartPtr<OperationStep>> const& GetSteps() const { return steps_; }

    /// Takes the steps back, last to first, but for those that have no undo.
    void Undo();
    /// Does the steps again, first to last.
    void Redo();

private:
    du::Symbol name_;
    du::SmartPtr<Scene> scene_;
    bool changesContent_;
    std::vector<du::SmartPtr<OperationStep>> steps_;
};

using OperationSink = std::function<void(du::SmartPtr<Operation> const&)>;

/// Hands a finished operation to the host's sink, which keeps it for undo. Null, and an operation
/// without a sink, go nowhere.
void RecordOperation(du::SmartPtr<Operation> const& operation);

/// Installs the sink, on one thread, before operations are recorded; an empty one removes it.
void SetOperationSink(OperationSink sink);

}  // namespace zvk
