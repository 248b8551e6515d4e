// One step of an operation that can be undone.
#pragma once

#include <du/SmartPtr.h>
#include <du/Symbol.h>

#include <string>

namespace zvk {

/// A change that can be taken back and done again.
class OperationStep : public virtual du::RefCounted {
public:
    ~OperationStep() override;

    /// The class's name, for people who debug.
    virtual std::string GetDebugClassName() const;
    /// Whether the step is worth storing.
    virtual bool Recordable() const;
    /// Whether `Undo` takes the change back.
    virtual bool HasUndo() const;
    /// Which kind of step it is; empty for no particular one.
    virtual du::Symbol Type() const;
    virtual void Undo() = 0;
    virtual void Redo() = 0;

protected:
    OperationStep();
};

}  // namespace zvk
