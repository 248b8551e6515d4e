// The example design of the repository, open.
#pragma once

#include <gtest/gtest.h>
#include <session/Session.h>

#include <memory>
#include <string>

namespace fighost::test {

inline std::string const EXAMPLE_FILE =
    FIGREP_SOURCE_DIR "/examples/weather-station/weather-station.kicad_sch";

/// Null, with a failure, when the design can't be read.
inline std::unique_ptr<Session> OpenDesign(std::string const& path) {
    Session::Opened opened = Session::Open(path);
    EXPECT_FALSE(opened.error) << opened.error->ToString();
    return std::move(opened.session);
}

inline std::unique_ptr<Session> OpenExample() {
    return OpenDesign(EXAMPLE_FILE);
}

}  // namespace fighost::test
