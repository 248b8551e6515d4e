#include <persistence/Output.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace fighost {

namespace {

bool WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t const written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// An existing file keeps its permissions; a new one gets those of the process.
mode_t ModeFor(std::string const& path) {
    struct stat status = {};
    if (::stat(path.c_str(), &status) == 0) return status.st_mode & 07777;
    mode_t const mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

bool IsSpecial(std::string const& path) {
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

bool Fail(std::string& error, std::string const& path) {
    error = path + ": cannot write: " + std::strerror(errno);
    return false;
}

// So that the new name survives a crash, too. Not every file system can do this for a folder.
void FlushFolderOf(std::string const& path) {
    auto const folder = std::filesystem::path(path).parent_path();
    int const descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

// What a link leads to is replaced, not the link.
std::string FollowLinks(std::string const& path) {
    std::error_code failure;
    auto const target = std::filesystem::canonical(path, failure);
    return failure ? path : target.string();
}

bool WriteReplacing(std::string const& path, std::string_view bytes, std::string& error) {
    std::string temporary = path + ".XXXXXX";
    int const descriptor = ::mkstemp(temporary.data());
    if (descriptor < 0) return Fail(error, path);
    bool good = WriteAll(descriptor, bytes) && ::fchmod(descriptor, ModeFor(path)) == 0 &&
                ::fsync(descriptor) == 0;
    int const reason = errno;
    good = ::close(descriptor) == 0 && good;
    if (good && ::rename(temporary.c_str(), path.c_str()) == 0) {
        FlushFolderOf(path);
        return true;
    }
    if (!good && reason != 0) errno = reason;
    Fail(error, path);
    ::unlink(temporary.c_str());
    return false;
}

}  // namespace

bool WriteOutput(std::string const& path, std::string_view bytes, std::string& error) {
    if (path == "-") {
        // Who closes the pipe early has seen enough.
        if (WriteAll(STDOUT_FILENO, bytes) || errno == EPIPE) return true;
        return Fail(error, "standard output");
    }
    // A device or a pipe can't be replaced, and a folder can't be written at all.
    if (!IsSpecial(path)) return WriteReplacing(FollowLinks(path), bytes, error);
    int const descriptor = ::open(path.c_str(), O_WRONLY);
    if (descriptor < 0) return Fail(error, path);
    bool const good = WriteAll(descriptor, bytes);
    if (!good) Fail(error, path);
    ::close(descriptor);
    return good;
}

}  // namespace fighost
