#include "workspace/workspace_files.h"

#include "base/log.h"
#include "platform/safe_file.h"
#include "workspace/bmp_files.h"
#include <algorithm>
#include <vector>

namespace nubo {
namespace {

std::vector<std::string> unread;

}  // namespace

bool set_aside(const std::string& file, const char* stem) {
    const std::size_t name_at = file.rfind('/') + 1;  // 0 without a folder
    const std::string front = file.substr(0, name_at) + stem, ending = file.substr(file.rfind('.'));
    std::string aside = front + ending;
    for (int i = 2; file_exists(aside); ++i) aside = front + "-" + std::to_string(i) + ending;
    if (!rename_file(file, aside)) return false;
    UA_log("[ INFO ] : The file %s was kept aside as %s", file.c_str(), aside.c_str());
    return true;
}

void keep_unread(const std::string& file) {
    if (!is_kept_unread(file)) unread.push_back(file);
}

bool is_kept_unread(const std::string& file) { return std::find(unread.begin(), unread.end(), file) != unread.end(); }

void forget_unread(const std::string& file) { std::erase(unread, file); }

bool make_way(const std::string& file) {
    if (!is_kept_unread(file)) return true;
    if (file_exists(file) && !set_aside(file)) return false;
    forget_unread(file);
    return true;
}

bool is_black(BITMAP* picture) {
    for (int y = 0; y < picture->h; ++y) {
        const Color* const row = pixels_at(picture, 0, y);
        if (!std::all_of(row, row + picture->w, [](Color color) { return color == 0; })) return false;
    }
    return true;
}

bool save_picture(const std::string& file, BITMAP* picture, int mark) {
    if (is_kept_unread(file) && is_black(picture)) return true;
    return make_way(file) && save_marked_bmp_file(file, picture, mark);
}

}  // namespace nubo
