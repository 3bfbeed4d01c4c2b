#pragma once
// Reading bytes that may be hostile: only regular files, never past the end.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace nubo {

/// A regular file open for reading. A pipe, a device or a folder of that name counts as unreadable, so that no reader
/// hangs on one.
class InputFile {
public:
    explicit InputFile(const std::string& path);
    /// The same on bytes that are in memory already, and must live as long.
    explicit InputFile(std::span<const std::uint8_t> bytes) : memory_(bytes), size_(bytes.size()) {}
    /// A part of an open file, which must live as long; `size` bytes from the offset `at` that it has.
    InputFile(const InputFile& whole, std::size_t at, std::size_t size) : whole_(&whole), start_(at), size_(size) {}
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    bool is_open() const { return file_ >= 0 || whole_ != nullptr || memory_.data() != nullptr; }
    /// Bytes in the file when it was opened.
    std::size_t size() const { return size_; }
    /// Reads exactly `count` bytes from the offset `at`; false if they aren't all there.
    bool read_at(std::size_t at, void* to, std::size_t count) const;

private:
    int file_ = -1;
    std::span<const std::uint8_t> memory_{};
    const InputFile* whole_ = nullptr;
    std::size_t start_ = 0, size_ = 0;
};

/// Why the file at `path` can't be read: it isn't there, it is no regular file, or this user may not. Empty where it
/// can be; a file that nobody may read counts as unreadable to the superuser, too.
std::string why_unreadable(const std::string& path);

/// The first `limit` bytes of a file, or all if it is shorter. False if it can't be read, or the memory for it not be
/// had.
bool read_file(const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes);

}  // namespace nubo
