#pragma once
// Undoing filter 4, the one that reading a PNG spends its time on: each byte waits for the one left of it.
#include <cstddef>
#include <cstdint>

namespace nubo {

/// Rows that `png_undo_paeth_rows` takes.
inline constexpr int png_paeth_rows = 4;

/// Undoes the filter of one row of `size` bytes, a whole number of pixels of `step` bytes; `above` is the row before
/// it, undone.
void png_undo_paeth(std::uint8_t* row, const std::uint8_t* above, std::size_t size, std::size_t step);

/// The same for `png_paeth_rows` rows that follow each other `stride` bytes apart, all of this filter. Quicker than one
/// after the other for pixels of 3 and 4 bytes.
void png_undo_paeth_rows(std::uint8_t* first, std::size_t stride, const std::uint8_t* above, std::size_t size,
                         std::size_t step);

}  // namespace nubo
