#include <zvk/Window.h>

namespace zvk {

Window::~Window() = default;

void Window::SetCursor(du::Symbol const& cursor) {
    cursor_ = cursor;
}

void Window::ResetCursor() {
    cursor_ = du::Symbol::EMPTY;
}

}  // namespace zvk
