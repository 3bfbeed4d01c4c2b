#pragma once
// When the memory of a bitmap comes.
#include <allegro.h>

namespace nubo {

/// Has the system hand over the memory of so many rows from `first` on, which are written next. What it hands over at
/// the first write to each page takes ten times as long on a virtual machine. Where the system can't, nothing happens.
void take_rows(BITMAP* bitmap, int first, int count);

}  // namespace nubo
