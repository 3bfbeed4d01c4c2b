#include "windows/picture_formats.h"

#include "base/log.h"
#include "codecs/bmp_file.h"
#include "codecs/gif.h"
#include "codecs/ilbm.h"
#include "codecs/jpeg.h"
#include "codecs/pcx.h"
#include "codecs/png.h"
#include "platform/input_file.h"
#include "platform/memory_packfile.h"
#include "platform/safe_file.h"
#include "state/options.h"
#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>

namespace nubo {
namespace {

// ---- From a file to a codec's bytes and back -----------------------------------------------------------------------

template <ReadPicture (*decode)(FileBytes)> ReadPicture read_whole(const std::string& path) {
    constexpr std::size_t file_size_max = std::size_t{1} << 30;
    Bytes bytes;
    if (!read_file(path, file_size_max, bytes)) return {nullptr, "the file can't be read"};
    return decode(bytes);
}

template <bool (*encode)(BITMAP*, Bytes&)> bool write_whole(const std::string& path, BITMAP* picture) {
    Bytes bytes;
    if (encode(picture, bytes)) return write_file(path, bytes.data(), bytes.size());
    UA_log("[ ERROR ] : Picture %s couldn't be encoded", path.c_str());
    return false;
}

bool encode_gif(BITMAP* picture, Bytes& bytes) {
    return write_gif(picture, static_cast<GifReduction>(int{opt_gif_reduction}), bytes);
}
bool encode_jpeg(BITMAP* picture, Bytes& bytes) { return write_jpeg(picture, jpeg_quality, bytes); }

ReadPicture read_bmp(const std::string& path) {
    ReadPicture result{load_bmp_file(path), {}};
    if (!result.bitmap) result.cause = "no picture in it can be read";
    return result;
}

// ---- The table -----------------------------------------------------------------------------------------------------

constexpr std::array<PictureFormat, picture_type_count> picture_formats{{
    {FILE_GIF, "GIF", "GIF", 0, read_whole<read_gif>, write_whole<encode_gif>},
    {FILE_PCX, "PCX", "", 0, read_whole<read_pcx>, write_whole<write_pcx>},
    {FILE_BMP, "BMP", "BM", 0, read_bmp, save_bmp_file},
    {FILE_PNG, "PNG", "PNG", 1, read_whole<read_png>, write_whole<write_png>},
    {FILE_JPG, "JPG", "\xff\xd8", 0, read_whole<read_jpeg>, write_whole<encode_jpeg>},
    {FILE_LBM, "LBM", "FORM", 0, read_whole<read_ilbm>,
     write_whole<write_png>},  // known by its magic when it comes back
}};
static_assert(rows_in_order(picture_formats, &PictureFormat::type));

constexpr std::array<std::string_view, ending_count> endings{"GIF", "PCX", "BMP", "PNG", "JPG",
                                                             "LBM", "TTF", "FON", "WSP"};

struct OtherMagic {
    FileType type;
    std::string_view magic;
};
constexpr std::array<OtherMagic, 3> other_magics{{{FILE_WSP, "nWSP"}, {FILE_FAVORITES, "COL"}, {FILE_SCHEME, "SCH"}}};

bool stands_at(std::string_view bytes, std::string_view magic, std::size_t at) {
    return !magic.empty() && bytes.size() >= at + magic.size() && bytes.substr(at, magic.size()) == magic;
}

FileType type_of_bytes(const Bytes& bytes) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    for (const PictureFormat& format : picture_formats)
        if (stands_at(text, format.magic, format.magic_at)) return format.type;
    for (const OtherMagic& other : other_magics)
        if (stands_at(text, other.magic, 0)) return other.type;
    return FILE_UNKNOWN;
}

}  // namespace

const PictureFormat& picture_format(FileType type) { return picture_formats[static_cast<std::size_t>(type)]; }

FileType file_type_from_extension(std::string_view name, BrowserMode mode) {
    constexpr std::size_t ending_size = 4;  // with the point
    if (name.size() < ending_size || name[name.size() - ending_size] != '.') return FILE_UNKNOWN;
    std::string ending(name.substr(name.size() - ending_size + 1));
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    const auto found = std::find(endings.begin(), endings.end(), ending);
    if (found == endings.end()) return FILE_UNKNOWN;
    const auto type = static_cast<FileType>(found - endings.begin());
    const bool is_font = type == FILE_TTF || type == FILE_FON;
    return mode != BROWSE_FOR_FONT || is_font ? type : FILE_UNKNOWN;
}

FileType file_type_from_magic(const std::string& path) {
    constexpr std::size_t looked_at = 4;
    Bytes bytes;
    if (read_file(path, looked_at, bytes)) return type_of_bytes(bytes);
    UA_log("[ ERROR ] : Failure to read file at OS level! Aborting operation!");
    return FILE_UNKNOWN;
}

FileType file_type_of(const std::string& path) {
    std::error_code no_file;
    const FileType type = file_type_from_extension(path, BROWSE_TO_LOAD);
    const bool has_bytes = std::filesystem::is_regular_file(path, no_file);
    return type == FILE_UNKNOWN && has_bytes ? file_type_from_magic(path) : type;
}

ReadPicture read_picture_file(const std::string& path, FileType& type) {
    type = file_type_from_extension(path, BROWSE_TO_LOAD);
    const FileType told = file_type_from_magic(path);
    ReadPicture result{nullptr, "it is no picture of a known kind"};
    if (is_picture_type(type)) result = picture_format(type).read(path);
    if (!result.bitmap && is_picture_type(told) && told != type) {
        type = told;
        result = picture_format(type).read(path);
    }
    if (result.bitmap == nullptr || !result.cause.empty())
        UA_log("[ ERROR ] : Picture %s: %s", path.c_str(), result.cause.c_str());
    return result;
}

bool write_picture_file(const std::string& path, BITMAP* picture) {
    const FileType type = file_type_from_extension(path, BROWSE_TO_SAVE);
    return picture_format(is_picture_type(type) ? type : FILE_PNG).write(path, picture);
}

}  // namespace nubo
