#include "codecs/gif_lzw.h"

#include <cstring>

namespace nubo {
namespace {

constexpr int clear_code = 256, end_code = 257, first_free_code = 258;  // of a writer with indexes of 8 bits
constexpr int no_prefix = -1;

// ---- Reading codes -------------------------------------------------------------------------------------------------

class CodeReader {
public:
    explicit CodeReader(std::span<const std::uint8_t> data) : data_(data) {}

    /// The next code of `count` bits, or -1 when there are not so many left.
    int next(int count) {
        while (bit_count_ < count) {
            if (at_ == data_.size()) return -1;
            bits_ |= std::uint32_t{data_[at_++]} << bit_count_;
            bit_count_ += 8;
        }
        const std::uint32_t code = bits_ & ((1U << count) - 1);
        bits_ >>= count;
        bit_count_ -= count;
        return static_cast<int>(code);
    }

private:
    std::span<const std::uint8_t> data_;
    std::size_t at_ = 0;
    std::uint32_t bits_ = 0;
    int bit_count_ = 0;
};

/// What a code stands for, as a stretch of the indexes decoded so far: a new code is the stretch of the code before and
/// the one index that followed it, and these lie side by side already.
struct Stretch {
    std::size_t start, length;
};

constexpr std::size_t copy_step = 16;

/// Copies a stretch to the end of the same buffer; the two overlap when a code stands for itself. Room for `copy_step`
/// bytes more than the length is there, so that what lies far enough back goes in steps.
void copy_stretch(std::uint8_t* to, const std::uint8_t* from, std::size_t length) {
    if (static_cast<std::size_t>(to - from) < copy_step) {
        for (std::size_t i = 0; i < length; ++i) to[i] = from[i];
        return;
    }
    for (std::size_t i = 0; i < length; i += copy_step) std::memcpy(to + i, from + i, copy_step);
}

}  // namespace

bool decode_gif_indexes(std::span<const std::uint8_t> data, int minimum_bits, std::size_t pixels,
                        GrowingBytes& indexes) {
    if (minimum_bits < 1 || minimum_bits >= gif_code_bits_limit) return false;
    const int clear = 1 << minimum_bits, end = clear + 1;
    std::array<Stretch, gif_code_limit> table;  // from end + 1 on; filled up to `next` before it is read
    CodeReader reader(data);
    int next = end + 1, code_bits = minimum_bits + 1;
    Stretch before{0, 0};  // that of the last code; length 0 behind a clear code
    while (indexes.size() < pixels) {
        const int code = reader.next(code_bits);
        if (code < 0) return false;
        if (code == end) return true;
        if (code == clear) {
            next = end + 1;
            code_bits = minimum_bits + 1;
            before.length = 0;
            continue;
        }
        // With this code's first index, the stretch of the code before becomes that of the next code; this code may be
        // the next code itself.
        if (before.length > 0 && next < gif_code_limit)
            table[static_cast<std::size_t>(next++)] = {before.start, before.length + 1};
        if (code >= next) return false;
        if (next == 1 << code_bits && code_bits < gif_code_bits_limit) ++code_bits;
        const std::size_t start = indexes.size();
        const Stretch known = code > end ? table[static_cast<std::size_t>(code)] : Stretch{start, 1};
        const std::size_t length = std::min(known.length, pixels - start);
        if (!indexes.make_room(length + copy_step)) return false;
        if (code < clear)
            *indexes.end() = static_cast<std::uint8_t>(code);
        else
            copy_stretch(indexes.end(), indexes.data() + known.start, length);
        indexes.advance(length);
        before = {start, length};
    }
    return true;
}

// ---- Writing -------------------------------------------------------------------------------------------------------

GifEncoder::GifEncoder(PACKFILE* file) : next_code_(first_free_code), code_bits_(9), prefix_(no_prefix), file_(file) {
    put_code(clear_code);
}

void GifEncoder::add(std::span<const std::uint8_t> indexes) {
    for (const std::uint8_t index : indexes) add_symbol(index);
}

bool GifEncoder::finish() {
    // The end code makes a pair with the code before it, as any symbol does: it counts for the size of the codes.
    if (prefix_ != no_prefix) add_symbol(end_code);
    put_code(end_code);
    if (bit_count_ > 0) put_byte(static_cast<std::uint8_t>(bits_));
    if (block_size_ > 0) flush_block();
    return pack_putc(0, file_) == 0 && good_;
}

void GifEncoder::add_symbol(int symbol) {
    if (prefix_ == no_prefix) {
        prefix_ = symbol;
        return;
    }
    // A pair with the end code takes a code like the others but not a place: it would need a ninth bit, and nothing
    // comes after it that could look for it.
    const std::uint32_t pair = static_cast<std::uint32_t>(prefix_) << 8 | static_cast<std::uint32_t>(symbol & 0xff);
    std::uint32_t at = pair * 2654435761U >> (32 - hash_bits);  // Knuth's multiplicative hash
    while (symbol != end_code && entries_[at] != 0) {
        if (entries_[at] >> gif_code_bits_limit == pair) {
            prefix_ = static_cast<int>(entries_[at] % gif_code_limit);
            return;
        }
        at = (at + 1) % entries_.size();
    }
    put_code(prefix_);
    if (next_code_ < gif_code_limit) {
        if (symbol != end_code) entries_[at] = pair << gif_code_bits_limit | static_cast<std::uint32_t>(next_code_);
        // A reader enters each pair one code later than the writer: the new code itself still has the old size.
        if (next_code_++ == 1 << code_bits_ && code_bits_ < gif_code_bits_limit) ++code_bits_;
    }
    prefix_ = symbol;
}

void GifEncoder::put_code(int code) {
    bits_ |= static_cast<std::uint32_t>(code) << bit_count_;
    bit_count_ += code_bits_;
    for (; bit_count_ >= 8; bit_count_ -= 8, bits_ >>= 8) put_byte(static_cast<std::uint8_t>(bits_));
}

void GifEncoder::put_byte(std::uint8_t byte) {
    block_[1 + block_size_++] = byte;
    if (block_size_ == gif_block_bytes) flush_block();
}

void GifEncoder::flush_block() {
    block_[0] = static_cast<std::uint8_t>(block_size_);
    const long size = static_cast<long>(1 + block_size_);
    good_ = pack_fwrite(block_.data(), size, file_) == size && good_;
    block_size_ = 0;
}

}  // namespace nubo
