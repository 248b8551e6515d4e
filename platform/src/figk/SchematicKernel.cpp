#include <figk/AbstractVisitor.h>
#include <figk/Design.h>
#include <figk/GetSheetVisitor.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>

#include <mutex>

namespace figk {

namespace {

struct Installed {
    std::mutex mutex;
    SmartPtr<SchematicKernel> kernel;  // guarded by mutex
};

Installed& GetInstalled() {
    static Installed installed;
    return installed;
}

}  // namespace

SchematicKernel::SchematicKernel() = default;
SchematicKernel::~SchematicKernel() = default;

SmartPtr<SchematicKernel> SchematicKernel::GetSchematicKernel() {
    Installed& installed = GetInstalled();
    std::lock_guard guard(installed.mutex);
    if (!installed.kernel) installed.kernel = SmartPtr<SchematicKernel>(new SchematicKernel());
    return installed.kernel;
}

void SchematicKernel::SetSchematicKernel(SmartPtr<SchematicKernel> const& kernel) {
    Installed& installed = GetInstalled();
    // Swapped in, so that the former kernel goes after the mutex is free.
    SmartPtr<SchematicKernel> former = kernel;
    std::lock_guard guard(installed.mutex);
    former.Swap(installed.kernel);
}

SmartPtr<zvk::ReadWriteLock> const& SchematicKernel::GetKernelLock() {
    static SmartPtr<zvk::ReadWriteLock> const lock(new zvk::ReadWriteLock());
    return lock;
}

void SchematicKernel::Accept(AbstractVisitor& visitor) {
    visitor.Visit(SmartPtr<SchematicKernel>(this));
}

SmartPtr<Setting> SchematicKernel::GetSetting(Setting::Key const&, unsigned int&, bool) {
    return nullptr;
}

GetSheetVisitor::GetSheetVisitor(Symbol const& designId, Symbol const& sheetId)
    : designId_(designId), sheetId_(sheetId) {}
GetSheetVisitor::~GetSheetVisitor() = default;

bool GetSheetVisitor::Visit(SmartPtr<Design> const& design) {
    return design && !sheet_ && !designId_.IsEmpty() && design->GetId() == designId_;
}

bool GetSheetVisitor::Visit(SmartPtr<Sheet> const& sheet) {
    if (!sheet || sheet_ || sheetId_.IsEmpty() || sheet->GetId() != sheetId_) return false;
    SmartPtr<Design> const design = sheet->GetDesign();
    if (design && design->GetId() == designId_) sheet_ = sheet;
    return false;
}

}  // namespace figk
