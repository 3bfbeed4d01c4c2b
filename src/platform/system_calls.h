#pragma once
// The calls to the system that change files. All writing of the program's own goes through this table, so that a test
// can let the n-th of them fail, or end the process there, and look at what the disk then holds.
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

namespace nubo {

/// Each behaves as the call of its name: a negative result is a failure with the cause in `errno`.
struct SystemCalls {
    int (*open)(const char* path, int flags, mode_t mode);
    ssize_t (*write)(int file, const void* bytes, std::size_t size);
    int (*fsync)(int file);
    int (*syncfs)(int file);
    int (*rename)(const char* from, const char* to);
    int (*unlink)(const char* path);
};

/// The system's own calls. A test replaces single entries before it starts what it watches.
inline constinit SystemCalls system_calls{
    [](const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); },
    [](int file, const void* bytes, std::size_t size) { return ::write(file, bytes, size); },
    [](int file) { return ::fsync(file); },
    [](int file) { return ::syncfs(file); },
    [](const char* from, const char* to) { return std::rename(from, to); },
    [](const char* path) { return ::unlink(path); },
};

/// Writes all bytes, however many pieces the system takes them in.
inline bool write_all(int file, const std::uint8_t* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = system_calls.write(file, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

}  // namespace nubo
