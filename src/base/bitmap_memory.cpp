#include "base/bitmap_memory.h"

#include <cstdint>
#include <sys/mman.h>

namespace nubo {

void take_rows(BITMAP* bitmap, int first, int count) {
    constexpr std::uintptr_t page_bytes = 4096, small_bytes = 64 << 10;  // what is small comes of memory in use
    const auto pixels = static_cast<std::uintptr_t>(bitmap->w) * static_cast<std::uintptr_t>(count);
    const auto bytes = pixels * static_cast<std::uintptr_t>((bitmap_color_depth(bitmap) + 7) / 8);
    if (bytes < small_bytes) return;
    const auto start = reinterpret_cast<std::uintptr_t>(bitmap->line[first]), page = start / page_bytes * page_bytes;
    madvise(reinterpret_cast<void*>(page), bytes + start - page, MADV_POPULATE_WRITE);
}

}  // namespace nubo
