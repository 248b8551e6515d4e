// The host's listener for values of title block tokens.
#pragma once

#include <du/RefCounted.h>

namespace figrep {

/// Derived by a host that wants to hear about token values; the library only keeps it alive
/// together with the title block it was given to.
class TokenObserver : public virtual du::RefCounted {
public:
    ~TokenObserver() override;

protected:
    TokenObserver() = default;
};

}  // namespace figrep
