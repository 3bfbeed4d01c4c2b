#pragma once
// Work that takes more memory than there may be left.
#include "base/log.h"
#include <new>

namespace nubo {

/// What `work()` gives; `refused` after a log line where memory ends in it. Around work that changes nothing which
/// stays: what it has taken by then is given back.
template <typename Work> auto unless_memory_ends(Work work, decltype(work()) refused) -> decltype(work()) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        UA_log("[ ERROR ] : There isn't memory enough");
        return refused;
    }
}

}  // namespace nubo
