#pragma once
// Numbers in bytes from outside, in either order; behind the end all bytes are 0.
#include <cstddef>
#include <cstdint>
#include <span>

namespace nubo {

class ByteView {
public:
    explicit ByteView(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::size_t size() const { return bytes_.size(); }
    std::uint32_t byte(std::size_t at) const { return at < bytes_.size() ? bytes_[at] : 0U; }
    std::uint32_t little_16(std::size_t at) const { return byte(at) | byte(at + 1) << 8; }
    std::uint32_t little_32(std::size_t at) const { return little_16(at) | little_16(at + 2) << 16; }
    std::uint32_t big_16(std::size_t at) const { return byte(at) << 8 | byte(at + 1); }
    std::uint32_t big_32(std::size_t at) const { return big_16(at) << 16 | big_16(at + 2); }
    /// Up to `count` bytes from `at` on, as many as there are.
    std::span<const std::uint8_t> part(std::size_t at, std::size_t count) const {
        if (at >= bytes_.size()) return {};
        return bytes_.subspan(at, count < bytes_.size() - at ? count : bytes_.size() - at);
    }

private:
    std::span<const std::uint8_t> bytes_;
};

}  // namespace nubo
