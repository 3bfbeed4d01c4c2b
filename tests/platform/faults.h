#pragma once
// Lets the n-th call to the system fail, or ends the process there.
#include "platform/system_calls.h"
#include <cerrno>
#include <unistd.h>

namespace nubo::faults {

/// `CALL_NAMING` is a rename or an unlink: only these change what stands under a name, so that a run ended before each
/// of them has met every state of the disk that a kill can leave.
enum Call : int { CALL_OPEN, CALL_WRITE, CALL_FSYNC, CALL_RENAME, CALL_UNLINK, CALL_NAMING, CALL_ANY };
inline constexpr int stop_here = -1;    // in place of an error: the process ends before the call is made
inline constexpr int stop_status = 77;  // with this exit status
inline constinit Call watched = CALL_ANY;
inline constinit int calls_left = 0, fault = 0;
inline constinit bool lasting = false;  // all later calls fail too, as on a full disk
inline constinit SystemCalls real{};

/// True, with `errno` set, when this call is to fail.
inline bool strikes(Call call) {
    const bool naming = watched == CALL_NAMING && (call == CALL_RENAME || call == CALL_UNLINK);
    if (watched != CALL_ANY && call != watched && !naming) return false;
    if (calls_left < 0) return false;
    if (calls_left > 0) return --calls_left, false;
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

inline void disarm() {
    calls_left = -1;
    lasting = false;
}

}  // namespace nubo::faults
