#pragma once
// Lets the n-th call to the system fail, or ends the process there; or lists the calls in their order.
#include "platform/system_calls.h"
#include <array>
#include <atomic>
#include <cerrno>
#include <string>
#include <unistd.h>
#include <vector>

namespace nubo::faults {

/// `CALL_NAMING` is a rename or an unlink: only these change what stands under a name, so that a run ended before each
/// of them has met every state of the disk that a kill can leave.
enum Call : int { CALL_OPEN, CALL_WRITE, CALL_FSYNC, CALL_RENAME, CALL_UNLINK, CALL_NAMING, CALL_ANY };
inline constexpr int stop_here = -1;    // in place of an error: the process ends before the call is made
inline constexpr int stop_status = 77;  // with this exit status
inline constinit Call watched = CALL_ANY;
inline constinit std::atomic<int> calls_left = 0;  // threads that write files beside the main flow call too
inline constinit int fault = 0;
inline constinit bool lasting = false;  // all later calls fail too, as on a full disk
inline constinit SystemCalls real{};

/// True, with `errno` set, when this call is to fail.
inline bool strikes(Call call) {
    const bool naming = watched == CALL_NAMING && (call == CALL_RENAME || call == CALL_UNLINK);
    if (watched != CALL_ANY && call != watched && !naming) return false;
    int left = calls_left;
    while (left > 0)
        if (calls_left.compare_exchange_weak(left, left - 1)) return false;
    if (left < 0) return false;
    if (!lasting) calls_left = -1;
    if (fault == stop_here) _exit(stop_status);
    errno = fault;
    return true;
}

/// From here on call number `n`, from 0, of the watched kind meets `error`.
inline void arm(Call call, int n, int error, bool all_later = false) {
    static const SystemCalls own = system_calls;
    real = own;
    watched = call;
    calls_left = n;
    fault = error;
    lasting = all_later;
    system_calls = {
        [](const char* path, int flags, mode_t mode) { return strikes(CALL_OPEN) ? -1 : real.open(path, flags, mode); },
        [](int file, const void* bytes, std::size_t size) {
            return strikes(CALL_WRITE) ? ssize_t{-1} : real.write(file, bytes, size);
        },
        [](int file) { return strikes(CALL_FSYNC) ? -1 : real.fsync(file); },
        [](int file) { return strikes(CALL_FSYNC) ? -1 : real.syncfs(file); },
        [](const char* from, const char* to) { return strikes(CALL_RENAME) ? -1 : real.rename(from, to); },
        [](const char* path) { return strikes(CALL_UNLINK) ? -1 : real.unlink(path); },
    };
}

/// True once the fault has struck.
inline bool struck() { return calls_left < 0 || (lasting && calls_left == 0); }

// ---- The calls in their order --------------------------------------------------------------------------------------

/// What `record` has seen: "sync", "rename" with both names, or "unlink". Names stand without their folder, a file
/// that is being written is called by its own name and "*".
inline std::vector<std::string> calls;

inline std::string name_of(const std::string& path) {
    const std::string name = path.substr(path.rfind('/') + 1);
    const bool is_unfinished = name.starts_with('.') && name.ends_with(".unfinished");
    return is_unfinished ? name.substr(1, name.rfind('.', name.size() - 12) - 1) + "*" : name;
}
inline std::string name_of(int file) {
    std::array<char, 4096> path{};
    const ssize_t size = readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), path.data(), path.size() - 1);
    return name_of(std::string(path.data(), size < 0 ? 0 : static_cast<std::size_t>(size)));
}

/// From here on the calls that make a change last are noted instead of waited for.
inline void record() {
    calls.clear();
    const auto sync = [](int file) { return calls.push_back("sync " + name_of(file)), 0; };
    system_calls.fsync = system_calls.syncfs = sync;
    system_calls.rename = [](const char* from, const char* to) {
        calls.push_back("rename " + name_of(from) + " " + name_of(to));
        return std::rename(from, to);
    };
    system_calls.unlink = [](const char* path) { return calls.push_back("unlink " + name_of(path)), ::unlink(path); };
}

inline void disarm() {
    calls_left = -1;
    lasting = false;
}

}  // namespace nubo::faults
