#include <session/frame/SheetTokens.h>

#include <figk/Attribute.h>
#include <figk/Design.h>
#include <figk/SchematicKernel.h>
#include <figk/Sheet.h>
#include <figrep/Figure.h>
#include <figrep/TitleBlockTextSection.h>
#include <zvk/ReadWriteLock.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

std::map<std::string, std::string> AttributesOf(figk::AbstractItem const& item) {
    figk::AttributeSet set;
    item.GetAttributes(set);
    std::map<std::string, std::string> values;
    for (auto const& attribute : set)
        values[attribute->GetName().GetString()] = attribute->GetValue().GetString();
    return values;
}

// What every title block may name, whether or not a sheet says it.
constexpr char const* ALWAYS_KNOWN[] = {"TITLE",    "ISSUE_DATE", "REVISION", "COMPANY",
                                        "PAPER",    "LAYER",      "COMMENT1", "COMMENT2",
                                        "COMMENT3", "COMMENT4",   "COMMENT5", "COMMENT6",
                                        "COMMENT7", "COMMENT8",   "COMMENT9", "CURRENT_DATE"};

}  // namespace

SmartPtr<SheetTokens> SheetTokens::Install() {
    static SmartPtr<SheetTokens> const tokens = [] {
        SmartPtr<SheetTokens> const fresh(new SheetTokens());
        figrep::TitleBlockTextSection::SetTokenInterpreter(fresh);
        return fresh;
    }();
    return tokens;
}

void SheetTokens::Enter(SmartPtr<figrep::Figure> const& figure, SmartPtr<figk::Sheet> const& sheet,
                        std::string const& path, std::size_t number) {
    if (!figure || !sheet) return;
    zvk::WriteGuard const guard(figk::SchematicKernel::GetKernelLock());
    Values values = AttributesOf(*sheet);
    values.try_emplace("SHEETNAME", path == "/" ? "Root" : sheet->GetName());
    values.try_emplace("SHEETPATH", path);
    values.try_emplace("FILENAME", values["FILE"]);
    std::string const page = values["PAGE"];
    values["#"] = page.empty() ? std::to_string(number) : page;
    if (SmartPtr<figk::Design> const design = sheet->GetDesign()) {
        values["##"] = std::to_string(design->GetSheets().size());
        values.try_emplace("PROJECTNAME", design->GetName());
        Values ofDesign = AttributesOf(*design);
        values.merge(ofDesign);
    }
    for (char const* name : ALWAYS_KNOWN)
        values.try_emplace(name);
    values_[figure.Get()] = std::move(values);
}

void SheetTokens::Leave(SmartPtr<figrep::Figure> const& figure) {
    zvk::WriteGuard const guard(figk::SchematicKernel::GetKernelLock());
    values_.erase(figure.Get());
}

bool SheetTokens::Interpret(SmartPtr<figrep::Figure> const& figure, std::string const& token,
                            std::string& result) {
    auto const values = values_.find(figure.Get());
    if (values == values_.end()) return false;
    auto const value = values->second.find(token);
    if (value == values->second.end()) return false;
    result = value->second;
    return true;
}

}  // namespace fighost
