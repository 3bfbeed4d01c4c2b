#pragma once
// The kinds of files, a row each: how one is known and, if it is a picture, read and written. Whoever asks for one
// tells the user. A new format is a codec and a row of the table.
#include "codecs/read_picture.h"
#include "state/files.h"
#include <span>
#include <string>
#include <string_view>

namespace nubo {

struct FileFormat {
    FileType type = FILE_UNKNOWN;
    std::span<const std::string_view> endings{};                        // in capitals, of any length, its own first
    std::string_view magic{};                                           // by which a file of it is known; empty: none
    std::size_t magic_at = 0;                                           // where these bytes stand
    ReadPicture (*read)(const std::string& path) = nullptr;             // of pictures alone, like the next
    bool (*write)(const std::string& path, BITMAP* picture) = nullptr;  // wholly, or false after a log line; null: none
    FilePurpose purpose = PURPOSE_PICTURE;                              // for which it is loaded
    bool tells_clear = false;                                           // it is written with clear pixels

    std::string_view ending() const { return endings.empty() ? std::string_view() : endings.front(); }
};

/// The row of a type; FILE_UNKNOWN has none.
const FileFormat& file_format(FileType type);

/// True for a type of pictures.
bool is_picture_type(FileType type);

/// The type that the ending of `name`, what stands behind its last point, tells in capitals or small letters;
/// FILE_UNKNOWN for one that no type has. With BROWSE_FOR_FONT only fonts count.
FileType file_type_from_extension(std::string_view name, BrowserMode mode);

/// The ending of `name`, in capitals, if it is that of a kind of pictures that isn't written here, as "TIFF"; else
/// empty. Under such a name nobody looks for a PNG.
std::string foreign_picture_ending(std::string_view name);

/// The type of the picture that is written under that name: what its ending tells, if that is written, or else a PNG.
FileType written_type(std::string_view name);

/// The type that a file's first bytes tell; FILE_UNKNOWN if they tell none, or, after a log line, if it can't be read.
FileType file_type_from_magic(const std::string& path);

/// The type that the ending of a file's name tells, or where it tells none, its first bytes.
FileType file_type_of(const std::string& path);

/// Reads the picture at `path` by the ending of its name, or by its first bytes where they tell another format than
/// the ending, or where the name has none. The reason why there is no bitmap, or not all of it, is in the log too; of
/// a file that can't be read at all it is that of `why_unreadable`.
/// `type` becomes what it was read as. Of its alpha, if it has any, the caller disposes.
ReadPicture read_picture_file(const std::string& path, FileType& type);

/// What was lost or changed, as the status bar says it behind what was done: ". ALPHA DROPPED"; empty when nothing was.
std::string loss_text(const PictureLoss& loss);

/// Writes the picture to the file at `path`, wholly or not at all, as its `written_type`.
/// JPG takes the quality `jpeg_quality`, GIF its colours as `opt_gif_reduction` asks; with `guides.clear_ground` the
/// mask colour is clear in a PNG or GIF. False after a log line.
bool write_picture_file(const std::string& path, BITMAP* picture);

/// Reads the JPEG at `path`; one that can't be opened is named on standard error.
ReadPicture load_jpeg(const std::string& path);

/// Writes a JPEG of `quality` 0 to 100 to the file at `path`. False after a log line when that fails, and where the
/// file can't be written one on standard error too; the old file is then as it was.
bool save_jpeg(const std::string& path, BITMAP* bitmap, int quality);

}  // namespace nubo
