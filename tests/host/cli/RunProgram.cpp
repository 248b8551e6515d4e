#include <host/cli/RunProgram.h>

#include <sys/wait.h>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace fighost::test {

namespace {

std::string Quoted(std::string const& text) {
    std::string quoted = "'";
    for (char c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

}  // namespace

Outcome RunProgram(std::string const& name, std::vector<std::string> const& arguments,
                   std::string const& input) {
    TemporaryFolder folder;
    WriteFile(folder.Path("in"), input);
    std::string command = Quoted(FIGREP_BINARY_DIR "/bin/" + name);
    for (std::string const& argument : arguments)
        command += " " + Quoted(argument);
    command += " <" + Quoted(folder.Path("in")) + " >" + Quoted(folder.Path("out")) + " 2>" +
               Quoted(folder.Path("err"));
    int const status = std::system(command.c_str());
    Outcome outcome;
    if (WIFEXITED(status)) outcome.code = WEXITSTATUS(status);
    outcome.out = ReadFile(folder.Path("out"));
    outcome.err = ReadFile(folder.Path("err"));
    return outcome;
}

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "figrep-test-XXXXXX").string();
    char const* made = ::mkdtemp(pattern.data());
    path_ = made ? made : ".";
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    if (path_ != ".") std::filesystem::remove_all(path_, ignored);
}

std::vector<std::string> TemporaryFolder::Files() const {
    std::vector<std::string> files;
    for (auto const& entry : std::filesystem::directory_iterator(path_)) {
        files.push_back(entry.path().filename().string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string ReadFile(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void WriteFile(std::string const& path, std::string const& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace fighost::test
