// Where results go: standard output, or a file that is either whole or untouched.
#pragma once

#include <string>
#include <string_view>

namespace fighost {

/// Writes `bytes` to a temporary file beside `path`, flushes it to the disk and renames it over
/// `path`; "-" is standard output, where a pipe that its reader closed is no failure. On failure
/// `path` is as it was, and `error` says why.
bool WriteOutput(std::string const& path, std::string_view bytes, std::string& error);

}  // namespace fighost
