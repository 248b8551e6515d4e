#include <readers/FileSource.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <vector>

namespace fighost {

namespace {

using FileHandle = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

int LeaveOpen(std::FILE*) {
    return 0;
}

FileHandle Open(std::string const& path) {
    if (path == "-") return {stdin, &LeaveOpen};
    return {std::fopen(path.c_str(), "rb"), &std::fclose};
}

FileSource::Status ReadAll(std::FILE* file, std::size_t limit, std::string& bytes) {
    constexpr std::size_t CHUNK = 1 << 18;
    std::size_t used = 0;
    for (;;) {
        std::size_t const wanted = std::min(CHUNK, limit + 1 - used);
        bytes.resize(used + wanted);
        std::size_t const got = std::fread(bytes.data() + used, 1, wanted, file);
        used += got;
        if (used > limit) return FileSource::Status::TOO_LARGE;
        if (got < wanted) break;
    }
    bytes.resize(used);
    return std::ferror(file) ? FileSource::Status::FAILED : FileSource::Status::READ;
}

}  // namespace

FileSource::Status DiskFiles::Read(std::string const& path, std::size_t limit, std::string& bytes) {
    bytes.clear();
    if (path != "-") {
        std::error_code failure;
        auto const status = std::filesystem::status(path, failure);
        if (!std::filesystem::exists(status)) return Status::MISSING;
        if (std::filesystem::is_directory(status)) return Status::FAILED;
    }
    FileHandle const file = Open(path);
    if (!file) return Status::FAILED;
    Status const result = ReadAll(file.get(), limit, bytes);
    if (result != Status::READ) std::string().swap(bytes);
    return result;
}

FileSource::Status MemoryFiles::Read(std::string const& path, std::size_t limit,
                                     std::string& bytes) {
    bytes.clear();
    auto const found = files.find(path);
    if (found == files.end()) return Status::MISSING;
    if (found->second.size() > limit) return Status::TOO_LARGE;
    bytes = found->second;
    return Status::READ;
}

namespace {

void AppendSteps(std::string_view path, std::vector<std::string>& steps, bool absolute) {
    std::size_t begin = 0;
    while (begin <= path.size()) {
        std::size_t const end = std::min(path.find('/', begin), path.size());
        std::string_view const step = path.substr(begin, end - begin);
        begin = end + 1;
        if (step.empty() || step == ".") continue;
        if (step == ".." && !steps.empty() && steps.back() != "..") {
            steps.pop_back();
        } else if (step != ".." || !absolute) {
            steps.emplace_back(step);
        }
    }
}

}  // namespace

std::string ResolveBeside(std::string_view file, std::string_view name) {
    std::string wanted(name);
    std::replace(wanted.begin(), wanted.end(), '\\', '/');
    bool const absoluteName = !wanted.empty() && wanted.front() == '/';
    bool const absolute = absoluteName || (!file.empty() && file.front() == '/');
    std::vector<std::string> steps;
    std::size_t const slash = file.rfind('/');
    if (!absoluteName && slash != std::string_view::npos) {
        AppendSteps(file.substr(0, slash), steps, absolute);
    }
    AppendSteps(wanted, steps, absolute);
    std::string result;
    for (std::string const& step : steps) {
        if (!result.empty() || absolute) result += '/';
        result += step;
    }
    return result;
}

std::string FileName(std::string_view path) {
    std::size_t const slash = path.find_last_of("/\\");
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

std::string FileStem(std::string_view path) {
    std::string name = FileName(path);
    std::size_t const dot = name.rfind('.');
    if (dot != std::string::npos && dot > 0) name.resize(dot);
    return name;
}

}  // namespace fighost
