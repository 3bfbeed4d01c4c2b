#pragma once
// A buffer for bytes whose number a file promises: it grows as they really come.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace nubo {

class GrowingBytes {
public:
    /// Makes room for `more` bytes behind the present ones, at least doubling what there is. False, with nothing
    /// changed, when the memory can't be had.
    bool make_room(std::size_t more) {
        if (size_ + more <= room_) return true;
        const std::size_t wanted = std::max(size_ + more, 2 * room_);
        void* const grown = std::realloc(bytes_.get(), wanted);
        if (grown == nullptr) return false;
        static_cast<void>(bytes_.release());  // realloc has taken it over
        bytes_.reset(static_cast<std::uint8_t*>(grown));
        room_ = wanted;
        return true;
    }

    /// Counts bytes that were written into the room at `end()`.
    void advance(std::size_t count) { size_ += count; }

    std::uint8_t* data() { return bytes_.get(); }
    const std::uint8_t* data() const { return bytes_.get(); }
    std::uint8_t* end() { return bytes_.get() + size_; }
    std::size_t size() const { return size_; }

private:
    struct Freer {
        void operator()(void* memory) const { std::free(memory); }
    };
    std::unique_ptr<std::uint8_t[], Freer> bytes_;
    std::size_t size_ = 0, room_ = 0;
};

}  // namespace nubo
