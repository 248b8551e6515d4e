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

void Operation::Undo() {
    for (auto step = steps_.rbegin(); step != steps_.rend(); ++step) {
        if ((*step)->HasUndo()) (*step)->Undo();
    }
}

void Operation::Redo() {
    for (auto const& step : steps_)
        step->Redo();
}

void RecordOperation(du::SmartPtr<Operation> const& operation) {
    if (operation && Sink()) Sink()(operation);
}

void SetOperationSink(OperationSink sink) {
    Sink() = std::move(sink);
}

}  // namespace zvk
