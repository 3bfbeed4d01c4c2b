#include "platform/safe_file.h"

#include "base/log.h"
#include "platform/system_calls.h"
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo {

namespace {

constexpr std::size_t buffer_size = 256 * 1024;
constexpr mode_t new_file_mode = 0666, permission_bits = 0777;

/// The file that a path leads to when it is a link; else the path.
std::string behind_links(const std::string& path) {
    struct stat status;
    if (lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return path;
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
    return real ? real.get() : path;
}

std::string folder_of(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

/// Writes all bytes, however many pieces the system takes them in.
bool write_all(int file, const std::uint8_t* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = system_calls.write(file, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

}  // namespace

// ---- Writing -------------------------------------------------------------------------------------------------------

SafeFile::SafeFile(const std::string& path) : path_(behind_links(path)), unfinished_(path_ + unfinished_suffix) {
    buffer_.reserve(buffer_size);
    // One that a crash left behind is in the way; a new one is made rather than the old one emptied, so that nothing is
    // written through a link.
    if (file_exists(unfinished_)) system_calls.unlink(unfinished_.c_str());
    file_ = system_calls.open(unfinished_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, new_file_mode);
    exists_ = file_ >= 0;
    struct stat old;
    if (!exists_)
        fail("opened");
    else if (stat(path_.c_str(), &old) == 0 && fchmod(file_, old.st_mode & permission_bits) != 0)
        fail("given permissions");
}

SafeFile::~SafeFile() {
    if (file_ >= 0) close(file_);
    if (exists_) system_calls.unlink(unfinished_.c_str());
}

void SafeFile::fail(const char* step) {
    if (failure_.empty()) failure_ = std::string("can't be ") + step + ": " + std::strerror(errno);
}

void SafeFile::write(const void* bytes, std::size_t size) {
    const auto* from = static_cast<const std::uint8_t*>(bytes);
    while (size > 0 && failure_.empty()) {
        const std::size_t part = std::min(size, buffer_size - buffer_.size());
        buffer_.insert(buffer_.end(), from, from + part);
        from += part;
        size -= part;
        if (buffer_.size() == buffer_size) flush();
    }
}

void SafeFile::flush() {
    if (failure_.empty() && !write_all(file_, buffer_.data(), buffer_.size())) fail("written");
    buffer_.clear();
}

bool SafeFile::commit(FolderSync sync) {
    flush();
    if (failure_.empty() && system_calls.fsync(file_) != 0) fail("synced");
    // Some file systems tell only here that the bytes found no room.
    if (file_ >= 0 && close(file_) != 0) fail("closed");
    file_ = -1;
    if (failure_.empty() && system_calls.rename(unfinished_.c_str(), path_.c_str()) != 0) fail("put in place");
    if (!failure_.empty()) {
        UA_log("[ ERROR ] : The file %s %s", path_.c_str(), failure_.c_str());
        return false;
    }
    exists_ = false;
    if (sync == SYNC_FOLDER_NOW) sync_folder(folder_of(path_));
    return true;
}

bool write_file(const std::string& path, const void* bytes, std::size_t size) {
    SafeFile file(path);
    file.write(bytes, size);
    return file.commit();
}

// ---- Renaming and removing -----------------------------------------------------------------------------------------

bool rename_file(const std::string& from, const std::string& to) {
    if (system_calls.rename(from.c_str(), to.c_str()) == 0) return true;
    UA_log("[ ERROR ] : %s can't be renamed to %s: %s", from.c_str(), to.c_str(), std::strerror(errno));
    return false;
}

bool remove_file(const std::string& path) {
    if (system_calls.unlink(path.c_str()) == 0 || errno == ENOENT) return true;
    UA_log("[ ERROR ] : %s can't be removed: %s", path.c_str(), std::strerror(errno));
    return false;
}

void sync_folder(const std::string& folder) {
    const int file = system_calls.open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    // A file system that can't sync a folder says EINVAL: its names are as safe as they get.
    if (file < 0 || (system_calls.fsync(file) != 0 && errno != EINVAL))
        UA_log("[ ERROR ] : The folder %s can't be synced: %s", folder.c_str(), std::strerror(errno));
    if (file >= 0) close(file);
}

bool file_exists(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

}  // namespace nubo
