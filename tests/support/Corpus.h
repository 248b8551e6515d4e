// The real designs that the tests read when they are there.
#pragma once

#include <string>
#include <vector>

namespace corpus {

/// Root sheets of all KiCad designs below the folder that the environment variable `FIGREP_CORPUS`
/// names, sorted: the file named as its project, or a lone sheet without a project. Empty when the
/// variable is unset; tests then skip.
std::vector<std::string> RootSheets();

/// Skips the running test with a message when there is no corpus.
#define SKIP_WITHOUT_CORPUS() \
    if (corpus::RootSheets().empty()) GTEST_SKIP() << "FIGREP_CORPUS names no folder of designs"

}  // namespace corpus
