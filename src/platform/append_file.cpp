#include "platform/append_file.h"

#include "base/log.h"
#include "platform/safe_file.h"
#include "platform/system_calls.h"
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>

namespace nubo {
namespace {

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

bool add(int file, std::size_t keep, const void* bytes, std::size_t size) {
    return ftruncate(file, static_cast<off_t>(keep)) == 0 && lseek(file, 0, SEEK_END) == static_cast<off_t>(keep) &&
           write_all(file, static_cast<const std::uint8_t*>(bytes), size) && system_calls.fsync(file) == 0;
}

}  // namespace

bool append_file(const std::string& path, std::size_t keep, const void* bytes, std::size_t size) {
    constexpr mode_t new_file_mode = 0666;
    const bool is_new = keep == 0 && !file_exists(path);
    const int flags = O_WRONLY | O_NOFOLLOW | O_CLOEXEC | (keep == 0 ? O_CREAT : 0);
    const int file = system_calls.open(path.c_str(), flags, new_file_mode);
    const bool added = file >= 0 && add(file, keep, bytes, size);
    if (!added) UA_log("[ ERROR ] : The file %s can't be added to: %s", path.c_str(), std::strerror(errno));
    if (file >= 0) close(file);
    if (added && is_new) sync_folder(std::filesystem::path(path).parent_path().string());
    return added;
}

}  // namespace nubo
