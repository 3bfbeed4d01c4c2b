#include "workspace/archive_file.h"

#include "base/log.h"
#include "codecs/bmp_file.h"
#include "state/frames.h"
#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace nubo {
namespace {

constexpr std::string_view magic = "nWSP";
constexpr std::size_t length_bytes = 4, text_max = 255;

// ---- Reading -------------------------------------------------------------------------------------------------------

/// Takes fields one after the other. Behind the first that isn't all there none is.
class ArchiveReader {
public:
    explicit ArchiveReader(const InputFile& file) : file_(file) {}

    std::uint32_t number(std::size_t count) {
        std::array<std::uint8_t, length_bytes> bytes{};
        sound_ = sound_ && file_.read_at(at_, bytes.data(), count);
        std::uint32_t value = 0;
        for (std::size_t i = 0; sound_ && i < count; ++i) value = value << 8 | bytes[i];
        at_ += count;
        return value;
    }

    std::string text(std::size_t length) {
        std::string letters(length, '\0');
        sound_ = sound_ && file_.read_at(at_, letters.data(), length);
        at_ += length;
        return letters;
    }

    ArchivePart part() {
        const std::size_t size = number(length_bytes);
        sound_ = sound_ && at_ <= file_.size() && size <= file_.size() - at_;
        const ArchivePart part{at_, size};
        if (sound_) at_ += size;
        return part;
    }

    bool is_sound() const { return sound_; }
    bool is_at_end() const { return at_ == file_.size(); }

private:
    const InputFile& file_;
    std::size_t at_ = 0;
    bool sound_ = true;
};

// ---- Writing -------------------------------------------------------------------------------------------------------

void put_number(SafeFile& archive, std::size_t value) {
    std::array<std::uint8_t, length_bytes> bytes{};
    for (std::size_t i = 0; i < length_bytes; ++i)
        bytes[i] = static_cast<std::uint8_t>(value >> 8 * (length_bytes - 1 - i));
    archive.write(bytes.data(), bytes.size());
}

void put_text(SafeFile& archive, const std::string& text) {
    const auto length = static_cast<std::uint8_t>(std::min(text.size(), text_max));
    archive.write(&length, 1);
    archive.write(text.data(), length);
}

/// Copies bytes of a file to the end of another, block by block. False if they can't be read.
bool copy_bytes(const InputFile& from, const ArchivePart& part, SafeFile& to, CopyBuffer& buffer) {
    for (std::size_t done = 0; done < part.size;) {
        const std::size_t count = std::min(buffer.bytes.size(), part.size - done);
        if (!from.read_at(part.at + done, buffer.bytes.data(), count)) return false;
        to.write(buffer.bytes.data(), count);
        done += count;
        buffer.tell(done, part.size);
    }
    return true;
}

int refuse(const char* line, const std::string& name) {
    UA_log("[ ERROR ] : Workspace component is missing or corrupt! Aborting %s!", line);
    UA_log("[ STATS ] : %s", name.c_str());
    return -1;
}

}  // namespace

// ---- What is in one ------------------------------------------------------------------------------------------------

std::string component_name(FrameStem stem, int index, int frame_count) {
    if (index < frame_count) return frame_file_name(stem, index);
    return side_file_name(stem, side_endings[static_cast<unsigned>(index - frame_count)]);
}

const char* read_archive(const InputFile& file, ArchiveContents& contents) {
    ArchiveReader reader(file);
    if (reader.text(magic.size()) != magic) return "it is no archive of a workspace";
    contents.head.title = reader.text(reader.number(1));
    contents.head.notes = reader.text(reader.number(1));
    const std::uint32_t count = reader.number(length_bytes);
    if (!reader.is_sound()) return "it is cut short";
    if (count < 1 || count > frame_slots) return "its number of frames is out of range";
    contents.head.frame_count = static_cast<int>(count);
    contents.parts.clear();
    for (int i = 0; i < component_count(contents.head.frame_count); ++i) contents.parts.push_back(reader.part());
    if (!reader.is_sound()) return "it is cut short";
    return reader.is_at_end() ? nullptr : "there is more in it than its components";
}

const char* read_picture_head(const InputFile& file, const ArchivePart& part, BmpHeader& header) {
    std::vector<std::uint8_t> head(std::min(bmp_head_limit, part.size));
    if (!file.read_at(part.at, head.data(), head.size())) return "it can't be read";
    return read_bmp_header(head, part.size, header);
}

int find_bent_frame(const InputFile& file, const ArchiveContents& contents) {
    for (int slot = 0; slot < contents.head.frame_count; ++slot) {
        const ArchivePart& part = contents.parts[static_cast<unsigned>(slot)];
        BmpHeader header;
        if (read_picture_head(file, part, header) != nullptr) return slot;
        if (header.is_run_length() && fault_of_bmp(InputFile(file, part.at, part.size)) != nullptr) return slot;
    }
    return -1;
}

// ---- Copying -------------------------------------------------------------------------------------------------------

void CopyBuffer::tell(std::size_t done, std::size_t size) const {
    if (told) told(component, static_cast<double>(done) / static_cast<double>(size));
}

int pack_component(const std::string& name, SafeFile& archive, CopyBuffer& buffer) {
    constexpr std::size_t longest = std::numeric_limits<std::int32_t>::max();
    const InputFile file(name);
    if (!file.is_open() || file.size() > longest) return refuse("save", name);
    put_number(archive, file.size());
    return copy_bytes(file, {0, file.size()}, archive, buffer) ? 0 : refuse("save", name);
}

int unpack_component(const InputFile& archive, const ArchivePart& part, const std::string& name, CopyBuffer& buffer) {
    SafeFile file(name);
    const bool copied = file.is_sound() && copy_bytes(archive, part, file, buffer) && file.commit(SYNC_WITH_DISK);
    return copied ? 0 : refuse("load", name);
}

bool write_archive(SafeFile& archive, const Folder& folder, const ArchiveHead& head, CopyBuffer& buffer) {
    archive.write(magic.data(), magic.size());
    put_text(archive, head.title);
    put_text(archive, head.notes);
    put_number(archive, static_cast<std::size_t>(head.frame_count));
    for (buffer.component = 0; buffer.component < component_count(head.frame_count); ++buffer.component) {
        const std::string name = component_name(STEM_CURRENT, buffer.component, head.frame_count);
        if (pack_component(folder.file(name), archive, buffer) != 0) return false;
    }
    return true;
}

}  // namespace nubo
