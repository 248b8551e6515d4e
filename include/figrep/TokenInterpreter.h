// The host's reading of tokens in title block texts.
#pragma once

#include <du/RefCounted.h>
#include <figrep/Fwd.h>

#include <string>

namespace figrep {

/// Turns a token ("page number", "date", ...) into the text to show. The vocabulary is the host's.
class TokenInterpreter : public virtual du::RefCounted {
public:
    ~TokenInterpreter() override;

    /// False when the token isn't known: the stored text stays. Called with the kernel lock held
    /// for writing.
    virtual bool Interpret(SmartPtr<Figure> const& figure, std::string const& token,
                           std::string& result) = 0;

protected:
    TokenInterpreter() = default;
};

}  // namespace figrep
