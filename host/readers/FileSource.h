// Where a reader gets its bytes from: the disk, or memory for tests and fuzzers.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace fighost {

/// Files by path. Paths are UTF-8 with '/' between folders.
class FileSource {
public:
    enum class Status { READ, MISSING, TOO_LARGE, FAILED };

    virtual ~FileSource() = default;

    /// Puts the whole file into `bytes`; leaves them empty unless it answers READ. Never reads more
    /// than `limit` bytes.
    virtual Status Read(std::string const& path, std::size_t limit, std::string& bytes) = 0;
};

/// Regular files of the machine; "-" is standard input.
class DiskFiles : public FileSource {
public:
    Status Read(std::string const& path, std::size_t limit, std::string& bytes) override;
};

/// Files that exist in memory only.
class MemoryFiles : public FileSource {
public:
    void Add(std::string path, std::string bytes) { files[std::move(path)] = std::move(bytes); }
    Status Read(std::string const& path, std::size_t limit, std::string& bytes) override;

private:
    std::map<std::string, std::string> files;
};

/// `name` as seen from the folder of `file`, with "." and ".." worked out by text alone. An
/// absolute name stays as it is; backslashes count as slashes.
std::string ResolveBeside(std::string_view file, std::string_view name);
/// The part behind the last slash, and the same without its last extension.
std::string FileName(std::string_view path);
std::string FileStem(std::string_view path);

}  // namespace fighost
