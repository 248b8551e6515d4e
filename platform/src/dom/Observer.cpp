#include <dom/Observer.h>

#include "Mailbox.h"

namespace dom {

Observer::Observer() : mailbox_(Mailbox::Make(this)) {}

Observer::Observer(Observer const& other) : du::RefCounted(other), mailbox_(Mailbox::Make(this)) {}

Observer::~Observer() {
    mailbox_->Close();
}

}  // namespace dom
