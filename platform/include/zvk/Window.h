// The window that a view is shown in.
#pragma once

#include <du/SmartPtr.h>
#include <du/Symbol.h>

namespace zvk {

/// As much of a window as views and markups need: its cursor. A host derives from it and hands the
/// cursor on to its window system; this class only remembers it.
class Window : public virtual du::RefCounted {
public:
    ~Window() override;

    /// `cursor` is one of the constants of `zvmk/Cursors.h` or a host's own.
    virtual void SetCursor(du::Symbol const& cursor);
    /// Back to the cursor that the window has by itself.
    virtual void ResetCursor();

    /// Empty for the window's own.
    du::Symbol const& GetCursor() const { return cursor_; }

private:
    du::Symbol cursor_;
};

}  // namespace zvk
