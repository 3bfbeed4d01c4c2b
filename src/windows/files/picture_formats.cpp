#include "windows/files/picture_formats.h"

#include "base/log.h"
#include "base/memory.h"
#include "codecs/gif.h"
#include "codecs/ilbm.h"
#include "codecs/jpeg.h"
#include "codecs/pcx.h"
#include "codecs/png.h"
#include "platform/input_file.h"
#include "platform/memory_packfile.h"
#include "platform/safe_file.h"
#include "state/colors.h"
#include "state/guides.h"
#include "state/options.h"
#include "workspace/bmp_files.h"
#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <filesystem>

namespace nubo {
namespace {

// ---- From a file to a codec's bytes and back -----------------------------------------------------------------------

template <ReadPicture (*decode)(FileBytes)> ReadPicture read_whole(const std::string& path) {
    Bytes bytes;
    if (!read_file(path, picture_file_max, bytes)) return {nullptr, "the file can't be read"};
    return decode(bytes);
}

template <bool (*encode)(BITMAP*, Bytes&)> bool write_whole(const std::string& path, BITMAP* picture) {
    Bytes bytes;
    if (encode(picture, bytes)) return write_file(path, bytes.data(), bytes.size());
    UA_log("[ ERROR ] : Picture %s couldn't be encoded", path.c_str());
    return false;
}

bool encode_gif(BITMAP* picture, Bytes& bytes) {
    const auto reduction = static_cast<GifReduction>(int{opt_gif_reduction});
    return guides.clear_ground != 0 ? write_clear_gif(picture, mask_color, reduction, bytes)
                                    : write_gif(picture, reduction, bytes);
}
bool encode_png(BITMAP* picture, Bytes& bytes) {
    return guides.clear_ground != 0 ? write_clear_png(picture, mask_color, bytes, PNG_BEST) : write_png(picture, bytes);
}
bool write_jpeg_file(const std::string& path, BITMAP* picture) { return save_jpeg(path, picture, jpeg_quality); }

// ---- The table -----------------------------------------------------------------------------------------------------

constexpr std::array<std::string_view, 1> gif_endings{"GIF"}, pcx_endings{"PCX"}, bmp_endings{"BMP"},
    png_endings{"PNG"}, ttf_endings{"TTF"}, fon_endings{"FON"}, wsp_endings{"WSP"};
constexpr std::array<std::string_view, 2> jpg_endings{"JPG", "JPEG"};
constexpr std::array<std::string_view, 3> lbm_endings{"LBM", "IFF", "ILBM"};

constexpr bool has_clear = true;

// A picture in a type that isn't written is a PNG, known by its first bytes when it comes back.
constexpr std::array<FileFormat, FILE_TYPE_COUNT> file_formats{{
    {FILE_GIF, gif_endings, "GIF", 0, read_whole<read_gif>, write_whole<encode_gif>, PURPOSE_PICTURE, has_clear},
    {FILE_PCX, pcx_endings, "", 0, read_whole<read_pcx>, write_whole<write_pcx>},
    {FILE_BMP, bmp_endings, "BM", 0, read_whole<read_bmp>, save_bmp_file},
    {FILE_PNG, png_endings, "PNG", 1, read_whole<read_png>, write_whole<encode_png>, PURPOSE_PICTURE, has_clear},
    {FILE_JPG, jpg_endings, "\xff\xd8", 0, load_jpeg, write_jpeg_file},
    {FILE_LBM, lbm_endings, "FORM", 0, read_whole<read_ilbm>},
    {.type = FILE_TTF, .endings = ttf_endings, .purpose = PURPOSE_FONT},
    {.type = FILE_FON, .endings = fon_endings, .purpose = PURPOSE_FONT},
    {.type = FILE_WSP, .endings = wsp_endings, .magic = "nWSP", .purpose = PURPOSE_ARCHIVE},
    {.type = FILE_FAVORITES, .magic = "COL", .purpose = PURPOSE_FAVORITES},
    {.type = FILE_SCHEME, .magic = "SCH", .purpose = PURPOSE_SCHEME},
}};
static_assert(rows_in_order(file_formats, &FileFormat::type));

ReadPicture read_as(FileType type, const std::string& path) {
    return unless_memory_ends([&] { return file_format(type).read(path); }, {nullptr, "there isn't memory enough"});
}

/// Kinds of pictures that other programs know.
constexpr std::array<std::string_view, 5> foreign_endings{"TIFF", "TIF", "WEBP", "TGA", "PSD"};

/// What stands behind the last point, in capitals; empty without one.
std::string ending_of(std::string_view name) {
    const std::size_t point = name.rfind('.');
    std::string ending(point == std::string_view::npos ? std::string_view() : name.substr(point + 1));
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return ending;
}

FileType type_of_bytes(const Bytes& bytes) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    for (const FileFormat& format : file_formats)
        if (!format.magic.empty() && text.substr(std::min(format.magic_at, text.size())).starts_with(format.magic))
            return format.type;
    return FILE_UNKNOWN;
}

}  // namespace

const FileFormat& file_format(FileType type) { return file_formats[static_cast<std::size_t>(type)]; }

bool is_picture_type(FileType type) { return type != FILE_UNKNOWN && file_format(type).read != nullptr; }

FileType file_type_from_extension(std::string_view name, BrowserMode mode) {
    const std::string ending = ending_of(name);
    const auto has_it = [&](const FileFormat& row) { return std::ranges::count(row.endings, ending) != 0; };
    const auto format = std::ranges::find_if(file_formats, has_it);
    const bool counts = format != file_formats.end() && (mode != BROWSE_FOR_FONT || format->purpose == PURPOSE_FONT);
    return counts ? format->type : FILE_UNKNOWN;
}

std::string foreign_picture_ending(std::string_view name) {
    const std::string ending = ending_of(name);
    return std::ranges::count(foreign_endings, ending) != 0 ? ending : std::string();
}

FileType written_type(std::string_view name) {
    const FileType type = file_type_from_extension(name, BROWSE_TO_SAVE);
    return type != FILE_UNKNOWN && file_format(type).write != nullptr ? type : FILE_PNG;
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
    if (is_picture_type(type)) result = read_as(type, path);
    if (!result.bitmap && is_picture_type(told) && told != type) {
        type = told;
        result = read_as(type, path);
    }
    if (const std::string fault = result.bitmap ? "" : why_unreadable(path); !fault.empty()) result.cause = fault;
    if (result.bitmap == nullptr || !result.cause.empty())
        UA_log("[ ERROR ] : Picture %s: %s", path.c_str(), result.cause.c_str());
    return result;
}

std::string loss_text(const PictureLoss& loss) {
    std::string text;
    if (loss.images > 1) text += ". FIRST OF " + std::to_string(loss.images) + " IMAGES";
    if (loss.alpha) text += ". ALPHA DROPPED";
    if (loss.moved > 0) text += ". " + std::to_string(loss.moved) + " PIXELS MOVED OFF THE MASK COLOR";
    if (loss.sample_bits > 8) text += ". " + std::to_string(loss.sample_bits) + " BITS A CHANNEL CUT TO 8";
    return text;
}

bool write_picture_file(const std::string& path, BITMAP* picture) {
    const FileFormat& format = file_format(written_type(path));
    return unless_memory_ends([&] { return format.write(path, picture); }, false);
}

ReadPicture load_jpeg(const std::string& path) {
    Bytes bytes;
    if (read_file(path, picture_file_max, bytes)) return read_jpeg(bytes);
    std::fprintf(stderr, "can't open %s\n", path.c_str());
    return {nullptr, "the file can't be read"};
}

bool save_jpeg(const std::string& path, BITMAP* bitmap, int quality) {
    Bytes bytes;
    if (!write_jpeg(bitmap, quality, bytes)) return false;
    if (write_file(path, bytes.data(), bytes.size())) return true;
    std::fprintf(stderr, "can't open %s\n", path.c_str());
    UA_log("[ ERROR ] : Couldn't open new or existing JPG for saving!");
    return false;
}

}  // namespace nubo
