// What the program tells its caller.
#pragma once

namespace fighost {

enum ExitCode {
    EXIT_DONE = 0,
    EXIT_WRONG_USAGE = 1,
    EXIT_UNEXPECTED = 2,
    EXIT_UNREADABLE_INPUT = 3,
    EXIT_CANNOT_WRITE = 4,
    EXIT_FINDINGS = 5  ///< only where the caller asked for it
};

}  // namespace fighost
