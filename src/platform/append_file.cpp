#include "platform/append_file.h"

#include "base/log.h"
#include "platform/system_calls.h"
#include <cerrno>
#include <cstdint>
#include <cstring>

namespace nubo {
namespace {

bool add(int file, std::size_t keep, const void* bytes, std::size_t size) {
    return ftruncate(file, static_cast<off_t>(keep)) == 0 && lseek(file, 0, SEEK_END) == static_cast<off_t>(keep) &&
           write_all(file, static_cast<const std::uint8_t*>(bytes), size) && system_calls.fsync(file) == 0;
}

}  // namespace

bool append_file(const std::string& path, std::size_t keep, const void* bytes, std::size_t size) {
    constexpr mode_t new_file_mode = 0666;
    const int flags = O_WRONLY | O_NOFOLLOW | O_CLOEXEC | (keep == 0 ? O_CREAT : 0);
    const int file = system_calls.open(path.c_str(), flags, new_file_mode);
    const bool added = file >= 0 && add(file, keep, bytes, size);
    if (!added) UA_log("[ ERROR ] : The file %s can't be added to: %s", path.c_str(), std::strerror(errno));
    if (file >= 0) close(file);
    return added;
}

}  // namespace nubo
