// Runs a built program and keeps what it printed.
#pragma once

#include <string>
#include <vector>

namespace fighost::test {

struct Outcome {
    int code = -1;
    std::string out;
    std::string err;
};

/// Runs `bin/NAME` of the build with these arguments; `input` is its standard input.
Outcome RunProgram(std::string const& name, std::vector<std::string> const& arguments,
                   std::string const& input = {});

/// A new empty folder that goes with the object.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;

    std::string Path(std::string const& name) const { return path_ + "/" + name; }
    /// Names of the files inside, sorted.
    std::vector<std::string> Files() const;

private:
    std::string path_;
};

std::string ReadFile(std::string const& path);
void WriteFile(std::string const& path, std::string const& bytes);

}  // namespace fighost::test
