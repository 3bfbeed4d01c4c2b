#pragma once
// A whole Workspace as one file, ending in ".WSP". All numbers are big-endian.
//
//   4 bytes          "nWSP"
//   1 and so many    title
//   1 and so many    notes
//   4                N, the number of Frames, 1 to 100
//   N + 4 times      a component: 4 bytes with its length, and the bytes of a file of the WORKSPACE folder as they are:
//                    current.000 to the last one, current.cel, current.nal, current.tip, current.spa
//
// No names, no checksum: the place of a component tells what it is.
#include "codecs/bmp_header.h"
#include "platform/folder.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "workspace/frame_slot.h"
#include <functional>
#include <string>
#include <vector>

namespace nubo {

// ---- What is in one ------------------------------------------------------------------------------------------------

struct ArchiveHead {
    std::string title{}, notes{};  // up to 255 bytes each
    int frame_count = 0;
};

struct ArchivePart {
    std::size_t at = 0, size = 0;  // of a component's bytes
};

struct ArchiveContents {
    ArchiveHead head{};
    std::vector<ArchivePart> parts{};  // the Frames by their slots, then the side files
};

/// The name of component `index` of an archive of `frame_count` Frames, under one of the stems: "current.cel".
std::string component_name(FrameStem stem, int index, int frame_count);

constexpr int component_count(int frame_count) { return frame_count + static_cast<int>(side_endings.size()); }

/// Reads what an archive holds; the components are only measured. Null if it is whole, to its last byte, else what is
/// wrong with it.
const char* read_archive(const InputFile& file, ArchiveContents& contents);

/// Reads the head of the picture that a component holds. Null if it may be believed, else what is wrong with it.
const char* read_picture_head(const InputFile& file, const ArchivePart& part, BmpHeader& header);

/// The first Frame that is no picture, -1 if all are. A plain one is believed for its head and its length; a packed one
/// is read.
int find_bent_frame(const InputFile& file, const ArchiveContents& contents);

// ---- Copying -------------------------------------------------------------------------------------------------------

/// The one buffer of an operation, through which all components go, however large they are.
struct CopyBuffer {
    std::array<std::uint8_t, 32'768> bytes{};
    int component = 0;                           // the one under way
    std::function<void(int, double)> told = {};  // after each block: its number, and the share of it that is copied
    void tell(std::size_t done, std::size_t size) const;
};

/// Appends the file `name` to an archive, its length in front. 0, or -1 after a log line if it can't be read; what then
/// is written of the archive is useless.
int pack_component(const std::string& name, SafeFile& archive, CopyBuffer& buffer);

/// Makes the file `name` of a component. It lasts from the next `sync_disk` on. 0, or -1 after a log line.
int unpack_component(const InputFile& archive, const ArchivePart& part, const std::string& name, CopyBuffer& buffer);

/// Writes head and components, the files of a folder under their names in a Workspace. False after a log line, if one
/// can't be read; whether all could be written tells `commit`, which is left to the caller.
bool write_archive(SafeFile& archive, const Folder& folder, const ArchiveHead& head, CopyBuffer& buffer);

}  // namespace nubo
