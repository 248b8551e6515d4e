#include <session/History.h>

#include <du/Localizer.h>
#include <zvk/OperationStep.h>

#include <algorithm>
#include <map>
#include <utility>

namespace fighost {

namespace {

using du::SmartPtr;

// All living histories by their scenes.
std::map<zvk::Scene const*, History*>& Histories() {
    static std::map<zvk::Scene const*, History*>& all = *new std::map<zvk::Scene const*, History*>;
    return all;
}

bool HasUndo(zvk::Operation const& operation) {
    auto const& steps = operation.GetSteps();
    return std::any_of(steps.begin(), steps.end(),
                       [](auto const& step) { return step->HasUndo(); });
}

std::vector<std::string> NamesOf(std::vector<SmartPtr<zvk::Operation>> const& operations) {
    std::vector<std::string> names;
    for (auto operation = operations.rbegin(); operation != operations.rend(); ++operation)
        names.push_back((*operation)->GetName().GetString());
    return names;
}

std::string NameOfLast(std::vector<SmartPtr<zvk::Operation>> const& operations) {
    return operations.empty() ? std::string() : operations.back()->GetName().GetString();
}

}  // namespace

History::History() : scene_(new zvk::Scene) {
    Histories()[scene_.Get()] = this;
    zvk::SetOperationSink(&History::Dispatch);
}

History::~History() {
    Histories().erase(scene_.Get());
    if (Histories().empty()) zvk::SetOperationSink(nullptr);
}

void History::Dispatch(SmartPtr<zvk::Operation> const& operation) {
    auto const found = Histories().find(operation->GetScene().Get());
    if (found != Histories().end()) found->second->Record(operation);
}

SmartPtr<zvk::Operation> History::NewOperation(std::string_view key) const {
    du::Symbol const name = du::Localizer::Find(OPERATION_CATALOGUE, key);
    return SmartPtr<zvk::Operation>(new zvk::Operation(name, scene_, true));
}

void History::Record(SmartPtr<zvk::Operation> const& operation) {
    if (replaying_ || operation->GetSteps().empty()) return;
    undone_.clear();
    if (HasUndo(*operation)) done_.push_back(operation);
}

bool History::Replay(Operations& from, Operations& to, void (zvk::Operation::*how)()) {
    // Whoever asks from within a step gets the next one when this one is over.
    if (from.empty() || replaying_) return false;
    SmartPtr<zvk::Operation> const operation = from.back();
    from.pop_back();
    replaying_ = true;
    ((*operation).*how)();
    replaying_ = false;
    to.push_back(operation);
    return true;
}

bool History::Undo() {
    return Replay(done_, undone_, &zvk::Operation::Undo);
}

bool History::Redo() {
    return Replay(undone_, done_, &zvk::Operation::Redo);
}

std::string History::GetUndoName() const {
    return NameOfLast(done_);
}

std::string History::GetRedoName() const {
    return NameOfLast(undone_);
}

std::vector<std::string> History::GetUndoNames() const {
    return NamesOf(done_);
}

std::vector<std::string> History::GetRedoNames() const {
    return NamesOf(undone_);
}

bool History::ChangesContent() const {
    return std::any_of(done_.begin(), done_.end(),
                       [](auto const& operation) { return operation->ChangesContent(); });
}

void History::Clear() {
    done_.clear();
    undone_.clear();
}

void InstallOperationNames() {
    using namespace operation_key;
    bool const known =
        du::Localizer::Find(OPERATION_CATALOGUE, FIT_CONTENT).GetString() != FIT_CONTENT;
    if (known) return;
    std::map<std::string, std::string> texts;
    for (auto const& [key, text] : std::initializer_list<std::pair<std::string_view, char const*>>{
             {HIDE, "Hide"},
             {SHOW, "Show"},
             {SHOW_ALL, "Show All"},
             {ISOLATE, "Isolate"},
             {MOVE, "Move"},
             {ROTATE, "Rotate"},
             {SCALE, "Scale"},
             {MIRROR, "Mirror"},
             {COLOR, "Change Color"},
             {BACKGROUND_COLOR, "Change Background Color"},
             {DELETE_ITEMS, "Delete"},
             {FIT_CONTENT, "Fit Content"}})
        texts.emplace(key, text);
    du::Localizer::SetCatalogue(OPERATION_CATALOGUE, std::move(texts));
}

}  // namespace fighost
