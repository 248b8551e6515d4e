#include <session/query/Dump.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/DebugConnectivityVisitor.h>
#include <figrep/DebugSettingsVisitor.h>
#include <figrep/Figure.h>

#include <sstream>
#include <unordered_map>

namespace fighost {

namespace {

// Names objects by what stays from run to run.
class NamingById : public figrep::DebugConnectivityVisitor {
public:
    using DebugConnectivityVisitor::DebugConnectivityVisitor;

protected:
    std::string NameOf(du::RefCounted const& object) override {
        auto const* item = dynamic_cast<figrep::AbstractFigureItem const*>(&object);
        if (item && !item->GetId().IsEmpty()) return item->GetId().GetString();
        return "node " +
               std::to_string(numbers_.try_emplace(&object, numbers_.size() + 1).first->second);
    }

private:
    std::unordered_map<du::RefCounted const*, std::size_t> numbers_;  // looked up only
};

}  // namespace

std::string DumpConnectivity(SessionSheet const& sheet) {
    std::ostringstream text;
    NamingById visitor(text);
    sheet.figure->Accept(visitor);
    return text.str();
}

std::string DumpSettings(SessionSheet const& sheet) {
    std::ostringstream text;
    figrep::DebugSettingsVisitor visitor(text);
    sheet.figure->Accept(visitor);
    return text.str();
}

}  // namespace fighost
