#include <zvk/OperationStep.h>

namespace zvk {

OperationStep::OperationStep() = default;

OperationStep::~OperationStep() = default;

std::string OperationStep::GetDebugClassName() const {
    return "OperationStep";
}

bool OperationStep::Recordable() const {
    return true;
}

bool OperationStep::HasUndo() const {
    return true;
}

du::Symbol OperationStep::Type() const {
    return du::Symbol::EMPTY;
}

}  // namespace zvk
