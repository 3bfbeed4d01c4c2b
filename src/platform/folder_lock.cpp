#include "platform/folder_lock.h"

#include "base/log.h"
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace nubo {

bool lock_folder(const std::string& folder) {
    // Stays open to the end of the process: the lock goes with the last descriptor.
    const int file = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file >= 0 && flock(file, LOCK_EX | LOCK_NB) == 0) return true;
    const int cause = errno;
    if (file >= 0) close(file);
    if (cause == EWOULDBLOCK) return false;
    UA_log("[ INFO ] : The folder %s can't be locked: %s", folder.c_str(), std::strerror(cause));
    return true;
}

}  // namespace nubo
