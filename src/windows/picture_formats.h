#pragma once
// The kinds of files, a row each: how one is known and, if it is a picture, read and written. Whoever asks for one
// tells the user. A new format is a codec and a row of the table.
#include "codecs/read_picture.h"
#include "state/files.h"
#include <string>
#include <string_view>

namespace nubo {

struct FileFormat {
    FileType type = FILE_UNKNOWN;
    std::string_view ending{};                                          // in capitals, of three letters; empty: none
    std::string_view magic{};                                           // by which a file of it is known; empty: none
    std::size_t magic_at = 0;                                           // where these bytes stand
    ReadPicture (*read)(const std::string& path) = nullptr;             // of pictures alone, like the next
    bool (*write)(const std::string& path, BITMAP* picture) = nullptr;  // wholly, or false after a log line
    FilePurpose purpose = PURPOSE_PICTURE;                              // for which it is loaded
};

/// The row of a type; FILE_UNKNOWN has none.
const FileFormat& file_format(FileType type);

/// True for a type of pictures.
bool is_picture_type(FileType type);

/// The type that the ending of `name` tells, FILE_UNKNOWN without one: the name is longer than three bytes, and the
/// fourth from its end is a point. With BROWSE_FOR_FONT only fonts count.
FileType file_type_from_extension(std::string_view name, BrowserMode mode);

/// The type that a file's first bytes tell; FILE_UNKNOWN if they tell none, or, after a log line, if it can't be read.
FileType file_type_from_magic(const std::string& path);

/// The type that the ending of a file's name tells, or where it tells none, its first bytes.
FileType file_type_of(const std::string& path);

/// Reads the picture at `path` by the ending of its name, or by its first bytes where they tell another format than
/// the ending, or where the name has none. The reason why there is no bitmap, or not all of it, is in the log too.
/// `type` becomes what it was read as.
ReadPicture read_picture_file(const std::string& path, FileType& type);

/// What was lost, as the status bar says it behind what was done: ". ALPHA DROPPED"; empty when nothing was.
std::string loss_text(const PictureLoss& loss);

/// Writes the picture to the file at `path`, wholly or not at all, as the type that its ending tells, or else as a PNG.
/// JPG takes the quality `jpeg_quality`, GIF its colours as `opt_gif_reduction` asks. False after a log line.
bool write_picture_file(const std::string& path, BITMAP* picture);

}  // namespace nubo
