// The program `figrep`: reads its arguments and runs one command.
#include <CLI/CLI.hpp>

#include <cli/Commands.h>
#include <session/edits/Edits.h>
#include <csignal>
#include <exception>
#include <functional>
#include <string>
#include <utility>

namespace {

using namespace fighost;

constexpr char const* EXIT_CODES =
    "Exit codes: 0 done, 1 wrong usage, 2 unexpected, 3 unreadable input, 4 cannot write, "
    "5 findings (with --strict).";

// An unset variable of a shell script must not pass for a command without a saved figure.
CLI::Validator NamesAFile() {
    return {[](std::string& path) {
                return path.empty() ? std::string("the name of a file is missing") : std::string();
            },
            ""};
}

// The library's own check of a range lets through what isn't a number.
CLI::Validator NumberBetween(double least, double most) {
    std::string const range = CLI::Range(least, most).get_description();
    auto const complaint = [least, most, range](std::string const& text) {
        double number = 0;
        bool const isInside =
            CLI::detail::lexical_cast(text, number) && number >= least && number <= most;
        return isInside ? std::string() : "Value " + text + " is no " + range;
    };
    return CLI::Validator(complaint, range);
}

void AddCommon(CLI::App& command, CommonArguments& arguments) {
    command.add_option("FILE", arguments.file, "the design: its root .kicad_sch file")->required();
    command.add_flag("-q,--quiet", arguments.quiet, "print no warnings and no progress");
    command.footer(EXIT_CODES);
}

void AddRender(CLI::App& program, RenderArguments& arguments) {
    CLI::App& command = *program.add_subcommand("render", "Paint the sheets of a design");
    AddCommon(command, arguments);
    command
        .add_option("-o,--output", arguments.output,
                    "the picture; %s becomes the name of the sheet, - is standard output")
        ->required();
    command
        .add_option("--format", arguments.format,
                    "svg, png or pdf, whatever the extension of the output")
        ->check(CLI::IsMember({"svg", "png", "pdf"}));
    command.add_option("--dpi", arguments.dpi, "dots per inch of a PNG")
        ->check(NumberBetween(1, 10000))
        ->capture_default_str();
    command.add_option("--size", arguments.size, "width of a PNG in pixels, in place of --dpi")
        ->check(CLI::Range(1U, 30000U));
    command.add_option("--sheet", arguments.sheet, "name or path of the one sheet to paint");
    command
        .add_option("--theme", arguments.theme,
                    "light, dark or print; without it light, or dark where --background is")
        ->check(CLI::IsMember({"light", "dark", "print"}));
    command.add_option("--background", arguments.background,
                       "in place of the theme's: none, a common colour's name, #rgb or #rrggbb");
    command
        .add_option("--highlight", arguments.highlights,
                    "NET or NET=COLOR: make a net stand out on all sheets; may be repeated")
        ->allow_extra_args(false);
    command.add_flag("--no-frame", arguments.noFrame, "leave out frame and title block");
    command
        .add_option("--crossings", arguments.crossings,
                    "what wires show where they cross without connecting")
        ->check(CLI::IsMember({"arc", "gap", "none"}))
        ->capture_default_str();
    command.add_flag("--arrows", arguments.arrows,
                     "show on wires which way signals flow, where the design tells it");
    command
        .add_option("--hide", arguments.hide,
                    "ITEM, NET or PORT: leave it out on all sheets; may be repeated")
        ->allow_extra_args(false);
    command
        .add_option("--isolate", arguments.isolate,
                    "ITEM, NET or PORT: leave out all but this and the frame; may be repeated")
        ->allow_extra_args(false);
    command.add_option("--saved", arguments.saved, "a saved figure, as 'edit' makes it")
        ->check(NamesAFile());
}

void AddInfo(CLI::App& program, InfoArguments& arguments) {
    CLI::App& command = *program.add_subcommand("info", "Tell what a design holds");
    AddCommon(command, arguments);
    command.add_option("--item", arguments.item,
                       "tell of this item instead: its nets and why it looks as it does");
    command.add_flag("--json", arguments.json, "print one JSON object");
}

void AddList(CLI::App& program, ListArguments& arguments) {
    CLI::App& command =
        *program.add_subcommand("list", "List nets, items, ports or sheets, one per line");
    command.add_option("WHAT", arguments.what, "nets, items, ports or sheets")
        ->required()
        ->check(CLI::IsMember({"nets", "items", "ports", "sheets"}));
    AddCommon(command, arguments);
    command.add_flag("--json", arguments.json, "print one JSON array");
}

void AddTrace(CLI::App& program, TraceArguments& arguments) {
    CLI::App& command =
        *program.add_subcommand("trace", "Follow a net through the sheets, port by port");
    command.add_option("FILE", arguments.file, "the design; not with --representation");
    command.add_option("NET", arguments.net, "the net's full name, as 'list nets' has it");
    command.add_option("--save", arguments.save,
                       "write the ways of all nets to this file; NET may be left out then");
    command.add_option("--representation", arguments.representation,
                       "answer from a file that --save has written, without the design");
    command.add_flag("-q,--quiet", arguments.quiet, "print no warnings and no progress");
    command.add_flag("--json", arguments.json, "print one JSON object");
    command.footer(EXIT_CODES);
    command.callback([&arguments] {
        if (!arguments.representation.empty()) {
            if (!arguments.save.empty()) throw CLI::ExcludesError("--save", "--representation");
            if (!arguments.net.empty()) throw CLI::ExtrasError({arguments.file});
            // The design being away, the one word is the net.
            arguments.net = std::move(arguments.file);
            if (arguments.net.empty()) throw CLI::RequiredError("NET");
            return;
        }
        if (arguments.file.empty()) throw CLI::RequiredError("FILE");
        if (arguments.net.empty() && arguments.save.empty()) throw CLI::RequiredError("NET");
    });
}

void AddFind(CLI::App& program, FindArguments& arguments) {
    CLI::App& command = *program.add_subcommand(
        "find", "Find texts, items and nets, with sheet and grid cell of each");
    AddCommon(command, arguments);
    command.add_option("TEXT", arguments.text, "a part of a text or name, or a whole id")
        ->required();
    command.add_option("--sheet", arguments.sheet, "name or path of the one sheet to search");
    command.add_flag("-i,--ignore-case", arguments.ignoreCase, "A matches a");
    command.add_flag("--json", arguments.json, "print one JSON array");
}

// One option, which may be repeated. Its place among the others counts.
void AddEditOption(CLI::App& command, EditArguments& arguments, EditVerb const& verb) {
    std::string const name = verb.name;
    // Both spellings of the one word that has two.
    std::string const option = name == "colour" ? "--colour,--color" : "--" + name;
    if (!verb.takesNames && !verb.value) {
        command
            .add_flag_function(
                option,
                [&arguments, name](auto) {
                    arguments.edits.push_back({name, {}});
                },
                verb.help)
            ->trigger_on_parse();
        return;
    }
    std::string form = verb.takesNames ? "ITEM" : "";
    if (verb.value) form += (form.empty() ? "" : "=") + std::string(verb.value);
    command
        .add_option_function<std::string>(
            option,
            [&arguments, name](std::string const& text) {
                arguments.edits.push_back({name, text});
            },
            verb.help)
        ->trigger_on_parse()
        ->type_name(form);
}

void AddEdit(CLI::App& program, EditArguments& arguments) {
    CLI::App& command = *program.add_subcommand(
        "edit", "Change figures and save the changes, in the order of the options");
    AddCommon(command, arguments);
    command
        .add_option("--saved", arguments.saved,
                    "the saved figure; made when it isn't there, added to when it is")
        ->required()
        ->check(NamesAFile());
    command.add_option("--sheet", arguments.sheet, "name or path of the one sheet to change");
    command
        .add_option_function<std::string>(
            std::string("--") + EDIT_SCRIPT,
            [&arguments](std::string const& path) {
                arguments.edits.push_back({EDIT_SCRIPT, path});
            },
            "do the steps of a file, one per line; - is standard input")
        ->trigger_on_parse()
        ->type_name("FILE");
    for (EditVerb const& verb : EditVerbs()) {
        if (!verb.scriptOnly) AddEditOption(command, arguments, verb);
    }
}

void AddApply(CLI::App& program, ApplyArguments& arguments) {
    CLI::App& command = *program.add_subcommand(
        "apply", "Apply a saved figure and tell what became of each change");
    AddCommon(command, arguments);
    command.add_option("--saved", arguments.saved, "the saved figure")
        ->required()
        ->check(NamesAFile());
    command
        .add_option("-o,--output", arguments.output,
                    "save the figure again, with the design as it is now")
        ->check(NamesAFile());
    command.add_flag("--strict", arguments.strict, "exit with 5 when a change no longer applies");
    command.add_flag("--json", arguments.json, "print one JSON array");
}

void AddLog(CLI::App& program, LogArguments& arguments) {
    CLI::App& command =
        *program.add_subcommand("log", "Tell the changes of a saved figure in words");
    command.add_option("FIGURE", arguments.figure, "the saved figure")
        ->required()
        ->check(NamesAFile());
    command.add_flag("--json", arguments.json, "print one JSON array");
    command.footer(EXIT_CODES);
}

void AddPick(CLI::App& program, PickArguments& arguments) {
    CLI::App& command =
        *program.add_subcommand("pick", "Tell what lies at a point or in a window of a sheet");
    AddCommon(command, arguments);
    command
        .add_option("PLACE", arguments.place,
                    "X,Y or X1,Y1,X2,Y2 in mm from the upper left corner, y downward")
        ->required();
    command.add_option("--sheet", arguments.sheet, "name or path of the sheet")
        ->capture_default_str();
    command.add_option("--tolerance", arguments.tolerance, "how near a point counts, in mm")
        ->check(NumberBetween(0, 1000))
        ->capture_default_str();
    command.add_flag("--touching", arguments.touching, "also what lies in the window partly");
    command.add_flag("--json", arguments.json, "print one JSON array");
}

void AddDump(CLI::App& program, DumpArguments& arguments) {
    CLI::App& command = *program.add_subcommand("dump", "Write trees and settings, for developers");
    AddCommon(command, arguments);
    command.add_flag("--connectivity", arguments.connectivity, "the trees of the wires");
    command.add_flag("--settings", arguments.settings, "the settings of the items");
    command.add_option("--sheet", arguments.sheet, "name or path of the one sheet to write");
}

ExitCode Run(int argc, char** argv) {
    CLI::App program("figrep shows schematic designs as live figures.", "figrep");
    program.set_version_flag("--version", std::string("figrep ") + FIGREP_VERSION);
    program.require_subcommand(1);
    program.footer(std::string(EXIT_CODES) + "\n'figrep COMMAND --help' tells more.");
    RenderArguments render;
    InfoArguments info;
    ListArguments list;
    TraceArguments trace;
    AddRender(program, render);
    AddInfo(program, info);
    AddList(program, list);
    ApplyArguments apply;
    LogArguments log;
    AddTrace(program, trace);
    FindArguments find;
    AddFind(program, find);
    EditArguments edit;
    AddEdit(program, edit);
    PickArguments pick;
    AddPick(program, pick);
    DumpArguments dump;
    AddDump(program, dump);
    AddApply(program, apply);
    AddLog(program, log);
    try {
        program.parse(argc, argv);
    } catch (CLI::ParseError const& error) {
        // Asking for help or the version is no error.
        return program.exit(error) == 0 ? EXIT_DONE : EXIT_WRONG_USAGE;
    }
    if (program.got_subcommand("render")) return Render(render);
    if (program.got_subcommand("info")) return Info(info);
    if (program.got_subcommand("trace")) return Trace(trace);
    if (program.got_subcommand("find")) return Find(find);
    if (program.got_subcommand("edit")) return EditFigures(edit);
    if (program.got_subcommand("pick")) return Pick(pick);
    if (program.got_subcommand("dump")) return Dump(dump);
    if (program.got_subcommand("apply")) return Apply(apply);
    if (program.got_subcommand("log")) return Log(log);
    return List(list);
}

}  // namespace

int main(int argc, char** argv) {
    // A reader that closes the pipe early is told to the writer, and no reason to die.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return Run(argc, argv);
    } catch (std::exception const& error) {
        fighost::PrintMessage(std::string("figrep: unexpected: ") + error.what());
    } catch (...) {
        fighost::PrintMessage("figrep: unexpected failure");
    }
    return EXIT_UNEXPECTED;
}
