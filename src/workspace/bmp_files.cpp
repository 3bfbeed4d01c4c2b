#include "workspace/bmp_files.h"

#include "base/log.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include <filesystem>
#include <system_error>
#include <utility>

namespace nubo {
namespace {

/// Why a file can't be opened: a folder or a pipe never will be, a link to a drive that isn't there may be.
PictureFault fault_of_opening(const std::string& path) {
    if (!file_exists(path)) return PICTURE_MISSING;
    std::error_code error;
    const auto type = std::filesystem::status(path, error).type();
    const bool other = type != std::filesystem::file_type::regular && type != std::filesystem::file_type::not_found;
    return !error && other ? PICTURE_MALFORMED : PICTURE_OUT_OF_REACH;
}

}  // namespace

bool save_bmp_file(const std::string& path, BITMAP* bitmap) { return save_marked_bmp_file(path, bitmap, 0); }

bool save_marked_bmp_file(const std::string& path, BITMAP* bitmap, int mark) {
    SafeFile file(path);
    write_bmp(file, bitmap, mark);
    return file.commit();
}

OwnedBitmap load_bmp_file(const std::string& path, PictureFault& fault) {
    const InputFile file(path);
    BmpPicture picture;
    if (file.is_open())
        picture = read_bmp(file);
    else
        picture.fault = fault_of_opening(path), picture.cause = "it can't be opened";
    fault = picture.fault;
    if (fault != PICTURE_FINE) UA_log("[ ERROR ] : The picture %s can't be loaded: %s", path.c_str(), picture.cause);
    return std::move(picture.bitmap);
}

OwnedBitmap load_bmp_file(const std::string& path) {
    PictureFault fault;
    return load_bmp_file(path, fault);
}

}  // namespace nubo
