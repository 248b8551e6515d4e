#include <session/Session.h>

#include <algorithm>
#include <utility>

#include <figk/Design.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figkernel/DesignBuilder.h>
#include <figkernel/SchematicKernel.h>
#include <figrep/AbstractFigureVisitor.h>
#include <figrep/Figure.h>
#include <figrep/FigureSheetDeltaGenerator.h>
#include <figrep/KernelToFigureFactory.h>
#include <figrep/PortNode.h>
#include <figrep/SchematicRepresentation.h>
#include <figrep/Setting.h>
#include <readers/kicad/ReadDesign.h>
#include <session/frame/SheetFrame.h>
#include <session/frame/SheetTokens.h>
#include <session/look/FlowArrows.h>
#include <zvk/Depiction.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

// The process's kernel; the first session installs one that can hold designs.
SmartPtr<figkernel::SchematicKernel> Kernel() {
    auto kernel =
        du::DynamicCast<figkernel::SchematicKernel>(figk::SchematicKernel::GetSchematicKernel());
    if (kernel) return kernel;
    kernel = SmartPtr<figkernel::SchematicKernel>(new figkernel::SchematicKernel());
    figk::SchematicKernel::SetSchematicKernel(kernel);
    return kernel;
}

char const* KindName(figkernel::BuildFinding::Kind kind) {
    using figkernel::BuildFinding;
    switch (kind) {
        case BuildFinding::BAD_INDEX:
            return "build-bad-index";
        case BuildFinding::BAD_POINT:
            return "build-bad-point";
        case BuildFinding::NO_LENGTH:
            return "build-no-length";
        case BuildFinding::COVERED:
            return "build-covered";
        case BuildFinding::LOST_TAP:
            return "build-lost-tap";
        case BuildFinding::FOREIGN_NET:
            return "build-foreign-net";
        case BuildFinding::DUPLICATE_ID:
            return "build-duplicate-id";
        case BuildFinding::BAD_NESTING:
            return "build-bad-nesting";
        case BuildFinding::DEEP_GROUP:
            return "build-deep-group";
    }
    return "build";
}

std::string SentenceOf(figkernel::BuildFinding const& finding) {
    std::string sentence = finding.text;
    if (!finding.id.empty()) sentence += " Id: " + finding.id + ".";
    if (!finding.sheet.empty()) sentence += " Sheet: " + finding.sheet + ".";
    return sentence;
}

figrep::ConstSmartPtr<figrep::Setting> CrossingSetting(figk::CrossingPointStyle style) {
    SmartPtr<figk::BaseSettingValue> const value(
        new figk::SettingValue<figk::CrossingPointStyle>(style));
    return SmartPtr<figrep::Setting>(new figrep::Setting(
        figrep::Setting::CROSSING_POINT_STYLE, value, figk::Setting::LEVEL_PROFILE, true));
}

// Trees that begin at the start of flow are cut into other runs of wire, which only those who want
// to see the flow shall notice.
void ForgetFlow(figkernel::DesignSource& source) {
    for (figkernel::SheetSource& sheet : source.sheets)
        sheet.flowStarts.clear();
}

// Enters the nodes of ports into the process's record of where nets go on.
class PortRegistrar : public figrep::AbstractFigureVisitor {
public:
    explicit PortRegistrar(SmartPtr<figrep::Figure> const& figure) : figure_(figure) {}

    bool Visit(SmartPtr<figrep::PortNode> const& node) override {
        nodes_.push_back(node);
        return false;
    }

    void Register() {
        // After the walk: entering a node can turn trees, which nobody may do under a walk.
        figure_->Accept(*this);
        auto const record = figrep::SchematicRepresentation::GetSingleton();
        for (auto const& node : nodes_)
            record->PortNodeAddFigureDetail(node, figure_);
    }

private:
    SmartPtr<figrep::Figure> figure_;
    std::vector<SmartPtr<figrep::PortNode>> nodes_;
};

// Entering the node of a highway's port tidies away the nets that no other figure carries on, and
// while figures are still being entered that would be all of them. The authoring application
// doesn't tidy.
class WithoutTidying {
public:
    WithoutTidying() : before_(zvk::depiction::IsRunningDepict()) {
        zvk::depiction::SetRunningDepict(true);
    }
    WithoutTidying(WithoutTidying const&) = delete;
    WithoutTidying& operator=(WithoutTidying const&) = delete;
    ~WithoutTidying() { zvk::depiction::SetRunningDepict(before_); }

private:
    bool before_;
};

void RegisterPorts(std::vector<SessionSheet> const& sheets) {
    WithoutTidying const guard;
    for (SessionSheet const& sheet : sheets)
        PortRegistrar(sheet.figure).Register();
}

// A saved figure finds its sheet by ids, and another open design can have the same.
bool ShowsAnotherSheet(SessionSheet const& sheet) {
    auto const shown = sheet.figure->GetSheets();
    return !shown.empty() && std::find(shown.begin(), shown.end(), sheet.record) == shown.end();
}

}  // namespace

Session::Opened Session::Open(std::string const& path, SessionOptions const& options) {
    DiskFiles files;
    return Open(files, path, options);
}

Session::Opened Session::Open(FileSource& files, std::string const& path,
                              SessionOptions const& options) {
    Opened opened;
    InstallOperationNames();
    std::unique_ptr<Session> session(new Session());
    session->file_ = path;
    if (session->Load(files, options, opened.error)) opened.session = std::move(session);
    return opened;
}

bool Session::Load(FileSource& files, SessionOptions const& options,
                   std::optional<Finding>& error) {
    kicad::ReadResult read = kicad::ReadDesign(files, file_);
    findings_ = std::move(read.findings);
    error = std::move(read.error);
    if (error) return false;
    if (!options.arrows) ForgetFlow(read.design);
    figkernel::DesignSource const& source = read.design;
    figkernel::BuildResult const built =
        figkernel::Build(source, figk::SchematicKernel::GetKernelLock());
    for (figkernel::BuildFinding const& finding : built.findings) {
        findings_.Warn(KindName(finding.kind), {file_, 0, 0}, SentenceOf(finding));
    }
    design_ = built.design;
    Kernel()->AddDesign(design_);
    std::vector<std::string> paths;
    for (figkernel::SheetSource const& sheet : source.sheets)
        paths.push_back(sheet.path);
    if (!options.saved.empty()) {
        error = savedState_.Read(files, options.saved, options.savedMayBeMissing);
    }
    if (error || !AddSheets(paths, options, error)) return false;
    KeepTree(source);
    return true;
}

// Sheets stand in the order of the source. A kernel doesn't know how they hang together.
void Session::KeepTree(figkernel::DesignSource const& source) {
    for (std::size_t i = 0; i < sheets_.size() && i < source.sheets.size(); ++i) {
        figkernel::SourceIndex const parent = source.sheets[i].parent;
        if (parent < i) sheets_[i].parent = sheets_[parent].id;
    }
}

bool Session::AddSheets(std::vector<std::string> const& paths, SessionOptions const& options,
                        std::optional<Finding>& error) {
    std::vector<SmartPtr<figk::Sheet>> const records = design_->GetSheets();
    for (std::size_t i = 0; i < records.size(); ++i) {
        AddSheet(records[i], paths[i], options);
        if (ShowsAnotherSheet(sheets_.back())) {
            error = Finding::InFile(file_, "a design with the same id is open already");
            return false;
        }
    }
    savedState_.ApplyLeftOvers();
    // All figures must be there before ports are entered: a port looks for the others.
    RegisterPorts(sheets_);
    for (SessionSheet const& sheet : sheets_)
        sheet.figure->UpdateContent();
    return true;
}

void Session::AddSheet(SmartPtr<figk::Sheet> const& record, std::string const& path,
                       SessionOptions const& options) {
    figrep::KernelToFigureFactory factory;
    SessionSheet sheet;
    sheet.id = record->GetId().GetString();
    sheet.name = record->GetName();
    sheet.path = path;
    sheet.record = record;
    sheet.figure = factory.CreateFigure();
    sheet.figure->AddSetting(CrossingSetting(options.crossings), false);
    SheetTokens::Install()->Enter(sheet.figure, record, path, sheets_.size() + 1);
    AddSheetFrame(record, sheet.figure);
    if (!savedState_.Apply(*record, path, sheet.figure)) {
        figrep::FigureSheetDeltaGenerator generator(record);
        sheet.figure->GenerateDeltas(generator);
        sheet.figure->ApplyDeltas(false);
    }
    ApplyLook(sheet.figure, options.look);
    if (options.arrows) ShowFlow(sheet.figure);
    figrep::SchematicRepresentation::GetSingleton()->AddActiveFigure(sheet.figure, record->GetId());
    sheets_.push_back(sheet);
}

std::string Session::SaveFigures() const {
    std::vector<SmartPtr<figrep::Figure>> figures;
    for (SessionSheet const& sheet : sheets_)
        figures.push_back(sheet.figure);
    return savedState_.Write(figures);
}

Session::~Session() {
    history_.Clear();  // operations hold figures
    auto const record = figrep::SchematicRepresentation::GetSingleton();
    for (SessionSheet const& sheet : sheets_) {
        record->RemoveFigure(sheet.figure);
        SheetTokens::Install()->Leave(sheet.figure);
    }
    sheets_.clear();
    savedState_ = SavedState();  // it holds figures too
    if (design_) Kernel()->RemoveDesign(design_);
}

std::string Session::GetDesignName() const {
    return design_ ? design_->GetName() : std::string();
}

std::vector<SessionSheet const*> Session::FindSheets(std::string const& nameOrPath) const {
    std::vector<SessionSheet const*> found;
    for (SessionSheet const& sheet : sheets_) {
        if (sheet.path == nameOrPath) return {&sheet};
        if (sheet.name == nameOrPath) found.push_back(&sheet);
    }
    return found;
}

}  // namespace fighost
