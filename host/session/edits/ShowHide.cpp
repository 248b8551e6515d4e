#include <session/edits/ShowHide.h>

#include <figrep/AbstractFigureItem.h>
#include <figrep/Figure.h>
#include <session/Failures.h>
#include <session/History.h>
#include <session/query/FindItems.h>
#include <zvk/Operation.h>

namespace fighost {

namespace {

using figrep::SmartPtr;

void Isolate(Session& session, NamedItems const& items) {
    auto const operation = session.GetHistory().NewOperation(operation_key::ISOLATE);
    for (SessionSheet const& sheet : session.GetSheets())
        sheet.figure->IsolateItems(items.On(sheet), operation);
    zvk::RecordOperation(operation);
}

void Hide(Session& session, NamedItems const& items) {
    auto const operation = session.GetHistory().NewOperation(operation_key::HIDE);
    for (SessionSheet const& sheet : session.GetSheets()) {
        auto const here = items.On(sheet);
        if (!here.empty()) sheet.figure->HideItems(here, operation);
    }
    zvk::RecordOperation(operation);
}

}  // namespace

std::optional<std::string> ShowOnly(Session& session, VisibilityWish const& wish) {
    if (wish.IsEmpty()) return {};
    NamedItems const isolated = FindNamedItems(session, wish.isolate);
    NamedItems const hidden = FindNamedItems(session, wish.hide);
    if (auto const complaint = ComplaintAbout(isolated)) return complaint;
    if (auto const complaint = ComplaintAbout(hidden)) return complaint;
    if (!wish.isolate.empty()) Isolate(session, isolated);
    if (!wish.hide.empty()) Hide(session, hidden);
    for (SessionSheet const& sheet : session.GetSheets()) {
        TakeFailures(*sheet.figure);  // to isolate shows again what may not have been hidden
        sheet.figure->UpdateContent();
    }
    return {};
}

}  // namespace fighost
