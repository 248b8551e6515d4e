// The commands of the program: what each is told, and what it does.
#pragma once

#include <cli/ExitCode.h>
#include <memory>
#include <string>
#include <vector>

#include <session/Session.h>

namespace fighost {

/// What all commands have in common.
struct CommonArguments {
    std::string file;
    bool quiet = false;
};

struct RenderArguments : CommonArguments {
    std::string output;
    std::string format;      ///< "svg", "png" or "pdf"; empty: by the extension of the output
    std::string sheet;       ///< name or path; empty for all
    double dpi = 150;        ///< of PNG
    unsigned size = 0;       ///< width of PNG in pixels; 0: by `dpi`
    std::string theme;       ///< "light", "dark" or "print"; empty: by the background
    std::string background;  ///< empty for the theme's
    bool noFrame = false;
    std::vector<std::string> highlights;  ///< "NET" or "NET=COLOR"
    std::string crossings = "arc";
    bool arrows = false;
    std::vector<std::string> hide;     ///< names of items, nets or ports
    std::vector<std::string> isolate;  ///< the same
    std::string saved;                 ///< a file of saved figures; empty for none
};

struct InfoArguments : CommonArguments {
    std::string item;  ///< name or id; empty for the design
    bool json = false;
};

struct ListArguments : CommonArguments {
    std::string what;  ///< "nets", "items", "ports" or "sheets"
    bool json = false;
};

struct TraceArguments : CommonArguments {
    std::string net;             ///< may be empty where only `save` is wanted
    std::string save;            ///< where to save the way of all nets; empty: nowhere
    std::string representation;  ///< what was saved, in place of `file`; empty: none
    bool json = false;
};

struct FindArguments : CommonArguments {
    std::string text;
    std::string sheet;  ///< name or path; empty for all
    bool ignoreCase = false;
    bool json = false;
};

struct ApplyArguments : CommonArguments {
    std::string saved;
    std::string output;  ///< where the figures are saved again; empty for nowhere
    bool strict = false;
    bool json = false;
};

/// One option of `edit`, as it was typed.
struct TypedEdit {
    std::string verb;  ///< a word of the vocabulary, or `EDIT_SCRIPT`
    std::string text;
};
inline constexpr char const* EDIT_SCRIPT = "script";

struct EditArguments : CommonArguments {
    std::string saved;
    std::string sheet;             ///< name or path; empty for all
    std::vector<TypedEdit> edits;  ///< in their order
};

struct LogArguments {
    std::string figure;
    bool json = false;
};

struct PickArguments : CommonArguments {
    std::string place;        ///< "X,Y" or "X1,Y1,X2,Y2"
    std::string sheet = "/";  ///< name or path
    double tolerance = 0.5;   ///< in millimetres, of a point
    bool touching = false;    ///< of a window: what lies in it partly
    bool json = false;
};

struct DumpArguments : CommonArguments {
    std::string sheet;  ///< name or path; empty for all
    bool connectivity = false;
    bool settings = false;
};

ExitCode Render(RenderArguments const& arguments);
ExitCode Info(InfoArguments const& arguments);
ExitCode List(ListArguments const& arguments);
ExitCode Trace(TraceArguments const& arguments);
ExitCode Find(FindArguments const& arguments);
ExitCode EditFigures(EditArguments const& arguments);
ExitCode Pick(PickArguments const& arguments);
ExitCode Dump(DumpArguments const& arguments);
ExitCode Apply(ApplyArguments const& arguments);
ExitCode Log(LogArguments const& arguments);

/// Opens the design and tells standard error what there is to tell. Null after an error.
std::unique_ptr<Session> OpenSession(CommonArguments const& arguments,
                                     SessionOptions const& options = {});

/// Tells that the design has no such sheet.
ExitCode RefuseSheet(std::string const& command, std::string const& sheet);

/// Whether `output` is the design's root file, or is named as files of designs are; tells it for
/// the command. What a user draws is never written over.
bool RefuseOverDesign(std::string const& command, std::string const& design,
                      std::string const& output);

/// Prints data; false when standard output doesn't take it.
ExitCode PrintData(std::string const& data);

/// Prints a message to standard error.
void PrintMessage(std::string const& message);

}  // namespace fighost
