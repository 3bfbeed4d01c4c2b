#include "base/bitmap_memory.h"

#include <cstdint>
#include <sys/mman.h>

namespace nubo {
namespace {

constexpr std::uintptr_t page_bytes = 4096, large_page_bytes = 2 << 20;
constexpr std::uintptr_t small_bytes = 64 << 10;  // what is small comes of memory in use

/// Gives the system advice on the pages of so many rows from `first` on, if they have at least `least` bytes.
void advise(BITMAP* bitmap, int first, int count, std::uintptr_t least, int advice) {
    const auto pixels = static_cast<std::uintptr_t>(bitmap->w) * static_cast<std::uintptr_t>(count);
    const auto bytes = pixels * static_cast<std::uintptr_t>((bitmap_color_depth(bitmap) + 7) / 8);
    if (bytes < least) return;
    const auto start = reinterpret_cast<std::uintptr_t>(bitmap->line[first]), page = start / page_bytes * page_bytes;
    madvise(reinterpret_cast<void*>(page), bytes + start - page, advice);
}

}  // namespace

void prefer_large_pages(BITMAP* bitmap) { advise(bitmap, 0, bitmap->h, large_page_bytes, MADV_HUGEPAGE); }

void take_rows(BITMAP* bitmap, int first, int count) { advise(bitmap, first, count, small_bytes, MADV_POPULATE_WRITE); }

}  // namespace nubo
