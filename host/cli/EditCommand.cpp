#include <cli/Commands.h>
#include <cli/SavedFile.h>
#include <session/edits/EditScript.h>
#include <session/edits/Edits.h>

#include <algorithm>
#include <optional>

namespace fighost {

namespace {

struct Step {
    Edit edit;
    Place place;         // of a script's step
    std::string option;  // as it was typed; empty for a script's step
};

// "ITEM=VALUE", where the item's name may hold the sign too.
std::vector<std::string> WordsOf(EditVerb const& verb, std::string const& typed) {
    if (!verb.takesNames && !verb.value) return {};
    auto const sign = typed.rfind('=');
    bool const both = verb.takesNames && verb.value && sign != std::string::npos;
    if (!both) return {typed};
    return {typed.substr(0, sign), typed.substr(sign + 1)};
}

EditVerb const& VerbOf(std::string const& name) {
    auto const& verbs = EditVerbs();
    return *std::find_if(verbs.begin(), verbs.end(),
                         [&](EditVerb const& verb) { return name == verb.name; });
}

std::string OptionForm(EditVerb const& verb) {
    std::string form = std::string("--") + verb.name;
    if (verb.takesNames) form += " ITEM";
    if (verb.value) form += std::string(verb.takesNames ? "=" : " ") + verb.value;
    return form;
}

ExitCode Refuse(Step const& step, std::string const& problem) {
    PrintMessage(step.option.empty() ? Finding{step.place, problem}.ToString()
                                     : "edit: " + step.option + ": " + problem);
    return EXIT_WRONG_USAGE;
}

ExitCode AddOption(TypedEdit const& typed, std::vector<Step>& steps) {
    EditVerb const& verb = VerbOf(typed.verb);
    auto const words = WordsOf(verb, typed.text);
    Step step;
    step.option = "--" + typed.verb + (typed.text.empty() ? "" : " " + typed.text);
    std::size_t const expected = (verb.takesNames ? 1 : 0) + (verb.value ? 1 : 0);
    if (words.size() != expected) return Refuse(step, "it should read " + OptionForm(verb));
    ParsedEdit parsed = ParseEdit(typed.verb, words);
    if (!parsed.edit) return Refuse(step, parsed.problem);
    step.edit = *parsed.edit;
    steps.push_back(std::move(step));
    return EXIT_DONE;
}

ExitCode AddScript(std::string const& path, std::vector<Step>& steps) {
    DiskFiles files;
    EditScript script = ReadEditScript(files, path);
    if (script.error) {
        PrintMessage(script.error->ToString());
        return EXIT_UNREADABLE_INPUT;
    }
    for (ScriptStep& step : script.steps)
        steps.push_back({std::move(step.edit), std::move(step.place), {}});
    return EXIT_DONE;
}

ExitCode ReadSteps(EditArguments const& arguments, std::vector<Step>& steps) {
    if (!arguments.sheet.empty()) {
        steps.push_back({*ParseEdit("sheet", {arguments.sheet}).edit, {}, "--sheet"});
    }
    for (TypedEdit const& typed : arguments.edits) {
        ExitCode const code =
            typed.verb == EDIT_SCRIPT ? AddScript(typed.text, steps) : AddOption(typed, steps);
        if (code != EXIT_DONE) return code;
    }
    return EXIT_DONE;
}

std::vector<std::string> InputsOf(EditArguments const& arguments) {
    std::vector<std::string> inputs{arguments.file, arguments.saved};
    for (TypedEdit const& typed : arguments.edits) {
        if (typed.verb == EDIT_SCRIPT) inputs.push_back(typed.text);
    }
    return inputs;
}

ExitCode DoAll(std::vector<Step> const& steps, Session& session) {
    Editor editor(session);
    for (Step const& step : steps) {
        auto const problem = editor.Do(step.edit);
        if (problem) return Refuse(step, *problem);
    }
    return EXIT_DONE;
}

}  // namespace

ExitCode EditFigures(EditArguments const& arguments) {
    if (arguments.edits.empty()) {
        PrintMessage("edit: say what is to be done; see 'edit --help'");
        return EXIT_WRONG_USAGE;
    }
    if (RefuseSharedInput("edit", InputsOf(arguments))) return EXIT_WRONG_USAGE;
    std::vector<Step> steps;
    ExitCode const read = ReadSteps(arguments, steps);
    if (read != EXIT_DONE) return read;
    SessionOptions options;
    options.saved = arguments.saved;
    options.savedMayBeMissing = true;
    std::unique_ptr<Session> const session = OpenSession(arguments, options);
    if (!session) return EXIT_UNREADABLE_INPUT;
    TellLostChanges(arguments, arguments.saved, *session);
    ExitCode const done = DoAll(steps, *session);
    return done == EXIT_DONE ? SaveFigures(*session, arguments.saved, arguments.quiet) : done;
}

}  // namespace fighost
