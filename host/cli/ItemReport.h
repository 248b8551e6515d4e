// The status of items, as `info --item` prints it.
#pragma once

#include <cli/Json.h>
#include <session/query/ItemStatus.h>

#include <string>

namespace fighost {

Json ToJson(ItemStatus const& status);

/// A paragraph of lines.
std::string StatusText(ItemStatus const& status);

}  // namespace fighost
