#include <zvk/Observer.h>

#include <zvk/Observable.h>

namespace zvk {

Observer::Observer() = default;

Observer::~Observer() = default;

void Observer::OnDestroy() {}

void Observer::HandleEvent(unsigned char id, dom::MessageReader& /*reader*/) {
    if (id == Observable::DESTROY_EVENT) OnDestroy();
}

}  // namespace zvk
