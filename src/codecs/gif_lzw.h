#pragma once
// The LZW coding of a GIF's indexes: codes of 3 to 12 bits, the least significant bit first.
#include "codecs/growing_bytes.h"
#include <allegro.h>
#include <array>
#include <span>

namespace nubo {

inline constexpr int gif_code_bits_limit = 12, gif_code_limit = 1 << gif_code_bits_limit;
inline constexpr std::size_t gif_block_bytes = 255;  // in a data sub-block, at most

/// Decodes up to `pixels` indexes into `indexes`, which starts empty. `minimum_bits` is that of the file; the codes
/// below 1 << minimum_bits are the indexes themselves, of which the lower 8 bits count. Ends at the end code, or when
/// all pixels have come. False when the data ends before either, a code can't be, `minimum_bits` isn't 1 to 11, or the
/// memory can't be had.
bool decode_gif_indexes(std::span<const std::uint8_t> data, int minimum_bits, std::size_t pixels,
                        GrowingBytes& indexes);

/// Writes indexes of 8 bits as data sub-blocks. The table is never cleared: once full, it serves as it is.
class GifEncoder {
public:
    /// Begins with the clear code.
    explicit GifEncoder(PACKFILE* file);

    /// The next indexes, in the order of the pixels.
    void add(std::span<const std::uint8_t> indexes);

    /// The end code, what is still held back, and the terminator. False when any byte could not be written.
    bool finish();

private:
    void add_symbol(int symbol);
    void put_code(int code);
    void put_byte(std::uint8_t byte);
    void flush_block();

    // An entry is the pair that a code stands for, over the code; 0 is a free place, since no pair has the code 0.
    static constexpr int hash_bits = 14;
    std::array<std::uint32_t, 1 << hash_bits> entries_{};
    int next_code_, code_bits_, prefix_;
    std::uint32_t bits_ = 0;  // not yet in a byte
    int bit_count_ = 0;
    std::array<std::uint8_t, 1 + gif_block_bytes> block_{};  // its size stands first
    std::size_t block_size_ = 0;
    PACKFILE* file_;
    bool good_ = true;
};

}  // namespace nubo
