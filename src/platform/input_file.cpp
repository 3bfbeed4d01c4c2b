#include "platform/input_file.h"

#include "base/memory.h"
#include "base/regular_file.h"
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo {

InputFile::InputFile(const std::string& path) {
    file_ = open_regular_file(path.c_str(), O_RDONLY);
    struct stat status;
    if (file_ >= 0 && fstat(file_, &status) == 0) size_ = static_cast<std::size_t>(status.st_size);
}

InputFile::~InputFile() {
    if (file_ >= 0) close(file_);
}

bool InputFile::read_at(std::size_t at, void* to, std::size_t count) const {
    if (!is_open() || at > size_ || count > size_ - at) return false;
    if (whole_ != nullptr) return whole_->read_at(start_ + at, to, count);
    if (file_ < 0) {
        std::copy_n(memory_.data() + at, count, static_cast<std::uint8_t*>(to));
        return true;
    }
    auto* target = static_cast<std::uint8_t*>(to);
    while (count > 0) {
        const ssize_t got = pread(file_, target, count, static_cast<off_t>(at));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;  // an error, or the file was cut meanwhile
        target += got;
        at += static_cast<std::size_t>(got);
        count -= static_cast<std::size_t>(got);
    }
    return true;
}

std::string why_unreadable(const std::string& path) {
    constexpr mode_t any_read_bit = S_IRUSR | S_IRGRP | S_IROTH;
    struct stat status;
    if (stat(path.c_str(), &status) != 0)
        return errno == ENOENT || errno == ENOTDIR ? "there is no such file" : std::strerror(errno);
    if (!S_ISREG(status.st_mode)) return "it is no file";
    const bool may = (status.st_mode & any_read_bit) != 0 && faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) == 0;
    return may ? "" : "it may not be read";
}

bool read_file(const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes) {
    const InputFile file(path);
    const auto make_room = [&] { return bytes.resize(std::min(limit, file.size())), true; };
    return file.is_open() && unless_memory_ends(make_room, false) && file.read_at(0, bytes.data(), bytes.size());
}

}  // namespace nubo
