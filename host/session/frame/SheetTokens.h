// What the tokens in title blocks stand for: facts about the sheet and its design.
#pragma once

#include <map>
#include <string>

#include <figrep/Fwd.h>
#include <figrep/TokenInterpreter.h>

namespace fighost {

/// The values of tokens for the figures of all open sessions.
///
/// A token is the name of an attribute of the sheet (TITLE, REVISION, ISSUE_DATE, COMPANY, COMMENT1
/// to COMMENT9, PAPER ...) or else of the design, where readers put the variables of the project.
/// Beside these there are `#` and `##`, number and count of sheets, SHEETNAME, SHEETPATH, FILENAME
/// and PROJECTNAME. Of TITLE and its kin an absent one is empty; any other unknown token stays as
/// it is written. Guarded by the kernel's lock.
class SheetTokens : public figrep::TokenInterpreter {
public:
    /// The one of the process; the first call installs it for all title blocks.
    static figrep::SmartPtr<SheetTokens> Install();

    /// Enters a sheet's figure. `number` counts from 1.
    void Enter(figrep::SmartPtr<figrep::Figure> const& figure,
               figrep::SmartPtr<figk::Sheet> const& sheet, std::string const& path,
               std::size_t number);
    void Leave(figrep::SmartPtr<figrep::Figure> const& figure);

    bool Interpret(figrep::SmartPtr<figrep::Figure> const& figure, std::string const& token,
                   std::string& result) override;

private:
    using Values = std::map<std::string, std::string>;

    SheetTokens() = default;

    std::map<figrep::Figure const*, Values> values_;  // looked up only
};

}  // namespace fighost
