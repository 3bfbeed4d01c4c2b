#include "platform/safe_file.h"

#include "base/log.h"
#include "platform/system_calls.h"
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <new>
#include <string_view>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace nubo {

namespace {

constexpr std::size_t buffer_size = 256 * 1024;
constexpr mode_t new_file_mode = 0666, permission_bits = 0777, any_write_bit = S_IWUSR | S_IWGRP | S_IWOTH;

/// Ends the name of a file that is being written, ".name.PROCESS-NUMBER-HOST.unfinished".
constexpr std::string_view unfinished_suffix = ".unfinished";

/// "-" and the name of this machine, since a folder may be shared with others, whose processes have the same numbers.
std::string host_ending() {
    constexpr std::size_t longest = 64;
    utsname system{};
    std::string ending("-");
    if (uname(&system) == 0) ending.append(system.nodename, strnlen(system.nodename, longest));
    return ending;
}

/// The number at the end of `text`, which is taken off; 0 without one.
pid_t take_number(std::string_view& text) {
    const std::size_t start = text.find_last_not_of("0123456789") + 1;
    pid_t number = 0;
    std::from_chars(text.data() + start, text.data() + text.size(), number);
    text = text.substr(0, start);
    return number;
}

bool take_end(std::string_view& text, std::string_view end) {
    if (!text.ends_with(end)) return false;
    text.remove_suffix(end.size());
    return true;
}

/// The process of this machine that was writing the file of that name, 0 for any other name. Without a host it is of
/// this one: so the names were once.
pid_t writer_of(std::string_view name) {
    if (!name.starts_with('.') || !take_end(name, unfinished_suffix)) return 0;
    take_end(name, host_ending());
    take_number(name);
    if (!take_end(name, "-")) return 0;
    const pid_t process = take_number(name);
    return name.ends_with('.') ? process : 0;
}

bool is_gone(pid_t process) { return kill(process, 0) != 0 && errno == ESRCH; }

/// The file that a path leads to, step by step, since the last link may lead to a name that is still free. From a ring
/// of links one of them comes back.
std::filesystem::path behind_links(std::filesystem::path path) {
    constexpr int most_links = 40;
    for (int i = 0; i < most_links; ++i) {
        std::error_code no_link;
        const auto target = std::filesystem::read_symlink(path, no_link);
        if (no_link) break;
        path = path.parent_path() / target;  // the target alone where it is absolute
    }
    return path;
}

std::string folder_of(const std::filesystem::path& path) {
    return path.has_parent_path() ? path.parent_path().string() : ".";
}

thread_local const DiskWaiter* disk_waiter = nullptr;

/// One of the two calls that wait for the disk, with its result and `errno`.
int wait_for_disk(int (*sync)(int), int file, std::size_t bytes) {
    int result = 0, cause = 0;
    const auto wait = [&] {
        result = sync(file);
        cause = errno;
    };
    const bool has_waiter = disk_waiter != nullptr && *disk_waiter;
    if (has_waiter)
        (*disk_waiter)(wait, bytes);
    else
        wait();
    errno = cause;
    return result;
}

}  // namespace

// ---- Writing -------------------------------------------------------------------------------------------------------

SafeFile::SafeFile(const std::string& path)
    : path_(behind_links(path)), buffer_(new (std::nothrow) std::uint8_t[buffer_size]) {
    open_beside();
    take_permissions();
}

/// Never a name that exists, so that nothing is written over or through a link, in whatever folder this is.
void SafeFile::open_beside() {
    constexpr std::size_t longest_name = 150;  // bytes; with what is put around it below what file systems take
    static std::atomic<unsigned> count{0};     // a rescue is written beside the main flow
    const std::filesystem::path path(path_);
    const std::string begin = (path.parent_path() / ".").string() + path.filename().string().substr(0, longest_name);
    const std::string end = host_ending().append(unfinished_suffix);
    do {
        unfinished_ = begin + "." + std::to_string(getpid()) + "-" + std::to_string(count++) + end;
        file_ =
            system_calls.open(unfinished_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, new_file_mode);
    } while (file_ < 0 && errno == EEXIST);
    exists_ = file_ >= 0;
    if (!exists_) fail("opened");
}

void SafeFile::take_permissions() {
    struct stat old;
    if (!exists_ || lstat(path_.c_str(), &old) != 0) return;
    if (!S_ISREG(old.st_mode))
        errno = EINVAL, fail("replaced, being no regular file");
    else if (fchmod(file_, old.st_mode & permission_bits) != 0)
        fail("given permissions");
}

SafeFile::~SafeFile() {
    if (file_ >= 0) close(file_);
    if (exists_) system_calls.unlink(unfinished_.c_str());
}

void SafeFile::fail(const char* step) {
    if (!failure_.empty()) return;
    fault_ = errno;
    failure_ = std::string("can't be ") + step + ": " + std::strerror(fault_);
}

void SafeFile::reserve(std::size_t size) {
    if (!failure_.empty()) return;
    errno = posix_fallocate(file_, 0, static_cast<off_t>(size));  // gives its error back
    if (errno != 0) fail("given room");
}

bool SafeFile::is_sound() const {
    if (!failure_.empty()) UA_log("[ ERROR ] : The file %s %s", path_.c_str(), failure_.c_str());
    return failure_.empty();
}

void SafeFile::write(const void* bytes, std::size_t size) {
    const auto* from = static_cast<const std::uint8_t*>(bytes);
    size_ += size;
    if (!buffer_) return pass_on(from, size);
    while (size > 0 && failure_.empty()) {
        const std::size_t part = std::min(size, buffer_size - buffered_);
        std::copy_n(from, part, buffer_.get() + buffered_);
        buffered_ += part;
        from += part;
        size -= part;
        if (buffered_ == buffer_size) flush();
    }
}

void SafeFile::flush() {
    pass_on(buffer_.get(), buffered_);
    buffered_ = 0;
}

void SafeFile::pass_on(const std::uint8_t* bytes, std::size_t size) {
    if (failure_.empty() && !write_all(file_, bytes, size)) fail("written");
}

void SafeFile::sync() { finish(true); }

void SafeFile::finish(bool lasting) {
    if (file_ < 0) return;
    flush();
    if (lasting && failure_.empty() && wait_for_disk(system_calls.fsync, file_, size_) != 0) fail("synced");
    // Some file systems tell only here that the bytes found no room.
    if (close(file_) != 0) fail("closed");
    file_ = -1;
}

bool SafeFile::commit(FileSync when) {
    finish(when != SYNC_WITH_DISK);
    if (failure_.empty() && system_calls.rename(unfinished_.c_str(), path_.c_str()) != 0) fail("put in place");
    if (!is_sound()) return false;
    exists_ = false;
    if (when == SYNC_NOW) sync_folder(folder_of(path_));
    return true;
}

bool write_file(const std::string& path, const void* bytes, std::size_t size) {
    SafeFile file(path);
    file.write(bytes, size);
    return file.commit();
}

bool has_room_for(const std::string& folder, std::size_t size) {
    SafeFile probe(folder + "/room");
    probe.reserve(size);
    return probe.is_sound();
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

void remove_unfinished_files(const std::string& folder, UnfinishedFiles which) {
    std::error_code error;
    std::vector<std::string> paths;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename();
        const pid_t writer = which == UNFINISHED_BY_ENDED ? writer_of(name) : 0;
        const bool goes =
            which == UNFINISHED_BY_ALL ? name.ends_with(unfinished_suffix) : writer != 0 && is_gone(writer);
        if (goes) paths.push_back(entry->path().string());
    }
    for (const std::string& path : paths) remove_file(path);
}

void sync_folder(const std::string& folder) {
    const int file = system_calls.open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    // A file system that can't sync a folder says EINVAL: its names are as safe as they get.
    if (file < 0 || (wait_for_disk(system_calls.fsync, file, 0) != 0 && errno != EINVAL))
        UA_log("[ ERROR ] : The folder %s can't be synced: %s", folder.c_str(), std::strerror(errno));
    if (file >= 0) close(file);
}

bool sync_disk(const std::string& folder) {
    const int file = system_calls.open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    constexpr std::size_t whole_disk = std::numeric_limits<std::size_t>::max();
    const bool synced = file >= 0 && wait_for_disk(system_calls.syncfs, file, whole_disk) == 0;
    if (!synced) UA_log("[ ERROR ] : The disk of %s can't be synced: %s", folder.c_str(), std::strerror(errno));
    if (file >= 0) close(file);
    return synced;
}

bool file_exists(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

bool is_write_protected(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) return false;
    return (status.st_mode & any_write_bit) == 0 || faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0;
}

// ---- Waiting for the disk ------------------------------------------------------------------------------------------

DiskWaits::DiskWaits(DiskWaiter waiter) : waiter_(std::move(waiter)), before_(std::exchange(disk_waiter, &waiter_)) {}

DiskWaits::~DiskWaits() { disk_waiter = before_; }

}  // namespace nubo
