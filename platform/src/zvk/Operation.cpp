#include <zvk/Operation.h>

#include <utility>

namespace zvk {

namespace {

OperationSink& Sink() {
    static OperationSink& sink = *new OperationSink;
    return sink;
}

}  // namespace

Operation::Operation(du::Symbol const& name, du::SmartPtr<Scene> const& scene, bool changesContent)
    : name_(name), scene_(scene), changesContent_(changesContent) {}

Operation::~Operation() = default;

void Operation::AddStep(du::SmartPtr<OperationStep> const& step) {
    if (step) steps_.push_back(step);
}

// A step may add steps, which wait for the next time, or let the operation go; so the steps that are
// there now are kept.
void Operation::Undo() {
    auto const steps = steps_;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        if ((*step)->HasUndo()) (*step)->Undo();
    }
}

void Operation::Redo() {
    auto const steps = steps_;
    for (auto const& step : steps)
        step->Redo();
}

void RecordOperation(du::SmartPtr<Operation> const& operation) {
    OperationSink const sink = Sink();  // which may be replaced meanwhile
    if (operation && sink) sink(operation);
}

void SetOperationSink(OperationSink sink) {
    Sink() = std::move(sink);
}

}  // namespace zvk
