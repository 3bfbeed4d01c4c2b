#pragma once
// When the memory of a bitmap comes.
#include <allegro.h>

namespace nubo {

/// Asks for the memory of a bitmap in large pages, 2 MiB each, before anything is written to it: handed over in small
/// ones, a bitmap of 64 MiB costs sixteen thousand interruptions. What is smaller than a large page stays as it is.
void prefer_large_pages(BITMAP* bitmap);

/// Has the system hand over the memory of so many rows from `first` on, which are written next. What it hands over at
/// the first write to each page takes ten times as long on a virtual machine. Where the system can't, nothing happens.
void take_rows(BITMAP* bitmap, int first, int count);

}  // namespace nubo
