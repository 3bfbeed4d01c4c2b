#pragma once
// Files that are a row of fields: big-endian words, bytes, counted strings. One function walks the fields for both
// directions, so that reader and writer can't disagree.
#include "base/log.h"
#include "state/colors.h"
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace nubo {

/// What a number from a file is held to.
struct FieldRange {
    const char* name;  // for the log
    int low, high;     // both included
    int fallback;      // taken when the file's value is outside; a missing one leaves what stands
    int mark = 0;      // bits that may stand beside the number
};
inline constexpr int any_low = std::numeric_limits<int>::min(), any_high = std::numeric_limits<int>::max();
inline constexpr int byte_values = 256, half_values = 16;  // of a byte and of half of one
constexpr FieldRange any_number(const char* name) { return {name, any_low, any_high, 0}; }
constexpr FieldRange flag_field(const char* name, int fallback) { return {name, 0, 1, fallback}; }

/// Appends the fields of a walk to `bytes`.
class FieldWriter {
public:
    std::vector<std::uint8_t> bytes;

    template <typename Number> void byte(const Number& value, const FieldRange&) {
        put(static_cast<std::uint32_t>(static_cast<int>(value)), 1);
    }
    template <typename Number> void word(const Number& value, const FieldRange&) {
        put(static_cast<std::uint32_t>(static_cast<int>(value)), 4);
    }
    /// Two numbers below 16 in one byte, the first one in its low half.
    template <typename Number>
    void halves(const Number& low, const FieldRange&, const Number& high, const FieldRange&) {
        put(static_cast<std::uint32_t>(low + half_values * high), 1);
    }
    /// Up to eight numbers of 0 or 1, from the lowest bit on.
    void bits(std::initializer_list<int*> flags) {
        std::uint32_t value = 0, bit = 1;
        for (const int* const flag : flags) value |= *flag != 0 ? bit : 0, bit *= 2;
        put(value, 1);
    }
    template <std::size_t N> void block(const std::array<std::uint8_t, N>& block) {
        bytes.insert(bytes.end(), block.begin(), block.end());
    }
    void color(const Color& value, const char*) { put(value, 4); }
    void reserved(std::size_t count) { bytes.resize(bytes.size() + count); }
    template <std::size_t N> void text(const std::array<char, N>& buffer, const char*) {
        const auto end = std::find(buffer.begin(), buffer.end(), '\0');
        const auto length = std::min<std::ptrdiff_t>(end - buffer.begin(), 255);
        put(static_cast<std::uint32_t>(length), 1);
        bytes.insert(bytes.end(), buffer.begin(), buffer.begin() + length);
    }

private:
    void put(std::uint32_t value, int count) {
        while (--count >= 0) bytes.push_back(static_cast<std::uint8_t>(value >> 8 * count));
    }
};

/// Takes the fields of a walk from `bytes`, which may be anything. What is missing stays as it is: at its default.
class FieldReader {
public:
    /// `file` is the name for the log.
    FieldReader(const std::vector<std::uint8_t>& bytes, const char* file) : bytes_(bytes), file_(file) {}

    template <typename Number> void byte(Number& value, const FieldRange& range) { take_number(1, value, range); }
    template <typename Number> void word(Number& value, const FieldRange& range) { take_number(4, value, range); }
    template <typename Number>
    void halves(Number& low, const FieldRange& low_range, Number& high, const FieldRange& high_range) {
        std::uint32_t read = 0;
        if (!take(1, read)) return;
        hold(static_cast<int>(read) % half_values, low, low_range);
        hold(static_cast<int>(read) / half_values, high, high_range);
    }
    void bits(std::initializer_list<int*> flags) {
        std::uint32_t read = 0;
        if (!take(1, read)) return;
        for (int* const flag : flags) *flag = static_cast<int>(read & 1), read /= 2;
    }
    template <std::size_t N> void block(std::array<std::uint8_t, N>& block) {
        std::uint32_t read = 0;
        for (std::uint8_t& byte : block)
            if (take(1, read)) byte = static_cast<std::uint8_t>(read);
    }
    /// A colour's top byte is 0; one that isn't is cleared.
    void color(Color& value, const char* name) {
        std::uint32_t read = 0;
        if (!take(4, read)) return;
        if (read > 0xffffff) report(name, static_cast<int>(read), static_cast<int>(read & 0xffffff));
        value = read & 0xffffff;
    }
    void reserved(std::size_t count) { at_ += count; }
    /// Bytes that the buffer has no room for are dropped.
    template <std::size_t N> void text(std::array<char, N>& buffer, const char* name) {
        std::uint32_t length = 0;
        if (!take(1, length)) return;
        buffer.fill('\0');
        for (std::uint32_t i = 0, letter = 0; i < length && take(1, letter); ++i)
            if (i < N - 1) buffer[i] = static_cast<char>(letter);
        if (length > N - 1) report(name, static_cast<int>(length), static_cast<int>(N - 1));
    }

    /// Logs what the single fields didn't. True if all was there and in range.
    bool finish() {
        constexpr int shown = 8;
        if (faults_ > shown) UA_log("[ INFO ] : %s holds %d more values out of range", file_, faults_ - shown);
        if (short_)
            UA_log("[ INFO ] : %s is cut short at %d bytes. The rest got its defaults", file_,
                   static_cast<int>(bytes_.size()));
        return faults_ == 0 && !short_;
    }

private:
    bool take(std::size_t count, std::uint32_t& value) {
        value = 0;
        if (at_ > bytes_.size() || count > bytes_.size() - at_) {
            at_ = bytes_.size() + 1;  // nothing behind a cut is believed
            short_ = true;
            return false;
        }
        for (std::size_t i = 0; i < count; ++i) value = value << 8 | bytes_[at_++];
        return true;
    }

    template <typename Number> void take_number(std::size_t size, Number& value, const FieldRange& range) {
        std::uint32_t read = 0;
        if (take(size, read)) hold(static_cast<std::int32_t>(read), value, range);
    }

    template <typename Number> void hold(int number, Number& value, const FieldRange& range) {
        const bool in_range = (number & ~range.mark) >= range.low && (number & ~range.mark) <= range.high;
        if (!in_range) report(range.name, number, range.fallback);
        value = in_range ? number : range.fallback;
    }

    void report(const char* name, int value, int taken) {
        constexpr int shown = 8;
        if (++faults_ <= shown)
            UA_log("[ INFO ] : %s holds %d for %s, which is out of range. Set to %d", file_, value, name, taken);
    }

    const std::vector<std::uint8_t>& bytes_;
    const char* file_;
    std::size_t at_ = 0;
    int faults_ = 0;
    bool short_ = false;
};

}  // namespace nubo
