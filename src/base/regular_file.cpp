#include "base/regular_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo {

int open_regular_file(const char* path, int flags) {
    constexpr mode_t new_file_mode = 0666;
    // A pipe without its other end doesn't hold us, and no terminal becomes ours.
    const int file = open(path, flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, new_file_mode);
    struct stat status;
    if (file < 0 || (fstat(file, &status) == 0 && S_ISREG(status.st_mode))) return file;
    close(file);
    errno = EINVAL;
    return -1;
}

}  // namespace nubo
