#include "platform/memory_packfile.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace nubo {
namespace {

struct MemoryFile {
    std::span<const std::uint8_t> source;
    std::size_t at;
    Bytes* target;
    std::size_t room;
    bool failed;
};

MemoryFile& memory_file(void* userdata) { return *static_cast<MemoryFile*>(userdata); }

std::size_t bytes_left(const MemoryFile& file) { return file.source.size() - file.at; }

int close_file(void* userdata) {
    delete static_cast<MemoryFile*>(userdata);
    return 0;
}

long read_bytes(void* to, long count, void* userdata) {
    MemoryFile& file = memory_file(userdata);
    const std::size_t size = std::min(static_cast<std::size_t>(count), bytes_left(file));
    if (size > 0) std::memcpy(to, file.source.data() + file.at, size);
    file.at += size;
    return static_cast<long>(size);
}

int read_byte(void* userdata) {
    std::uint8_t byte = 0;
    return read_bytes(&byte, 1, userdata) == 1 ? byte : EOF;
}

int unread_byte(int, void*) { return EOF; }

long write_bytes(const void* from, long count, void* userdata) {
    MemoryFile& file = memory_file(userdata);
    const std::size_t size = std::min(static_cast<std::size_t>(count), file.room - file.target->size());
    file.failed |= size < static_cast<std::size_t>(count);
    const auto* const bytes = static_cast<const std::uint8_t*>(from);
    file.target->insert(file.target->end(), bytes, bytes + size);
    return static_cast<long>(size);
}

int write_byte(int byte, void* userdata) {
    const auto value = static_cast<std::uint8_t>(byte);
    return write_bytes(&value, 1, userdata) == 1 ? value : EOF;
}

/// Goes forward and stops at the end without a failure, as Allegro's own does.
int skip_bytes(void* userdata, int offset) {
    MemoryFile& file = memory_file(userdata);
    file.at += std::min(static_cast<std::size_t>(std::max(offset, 0)), bytes_left(file));
    return offset < 0 ? -1 : 0;
}

int at_end(void* userdata) { return bytes_left(memory_file(userdata)) == 0; }

int has_failed(void* userdata) { return memory_file(userdata).failed; }

constexpr PACKFILE_VTABLE memory_calls{close_file,  read_byte,  unread_byte, read_bytes, write_byte,
                                       write_bytes, skip_bytes, at_end,      has_failed};

}  // namespace

PACKFILE* open_for_reading(std::span<const std::uint8_t> bytes) {
    return pack_fopen_vtable(&memory_calls, new MemoryFile{bytes, 0, nullptr, 0, false});
}

PACKFILE* open_for_writing(Bytes& bytes, std::size_t room) {
    return pack_fopen_vtable(&memory_calls, new MemoryFile{{}, 0, &bytes, room, false});
}

}  // namespace nubo
