#include "windows/files/opened_files.h"

#include "base/log.h"
#include "codecs/alpha.h"
#include "gui/elements.h"
#include "gui/shown_names.h"
#include "platform/input_file.h"
#include "state/colors.h"
#include "state/frame_sources.h"
#include "state/frames.h"
#include "windows/files/picture_formats.h"
#include "windows/files/workspace_archives.h"
#include "windows/kit/handed_files.h"
#include "workspace/folders.h"
#include "workspace/frame_store.h"
#include "workspace/notices.h"
#include "workspace/state_file.h"
#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace nubo {
namespace {

/// False after the user was told why the file isn't opened.
bool refuse(const std::string& file, const std::string& cause) {
    std::fprintf(stderr, "nubo: %s: %s\n", file.c_str(), cause.c_str());
    UA_log("[ ERROR ] : %s isn't opened: %s", file.c_str(), cause.c_str());
    flash_text("NOT OPENED: " + short_file_name(file) + ", " + shown_file_name(cause));
    return false;
}

/// `loss` grows by what the file loses.
bool open_as_frame(const std::string& file, PictureLoss& loss) {
    if (frame_count >= frame_slots) return refuse(file, "there are 100 Frames already");
    FileType type = FILE_UNKNOWN;
    ReadPicture picture = read_picture_file(file, type);
    if (!picture.bitmap) return refuse(file, picture.cause);
    settle_alpha(picture, ALPHA_MASK, mask_color, mask_color);
    if (!append_frame(picture.bitmap.get())) return refuse(file, "its Frame can't be written to the workspace");
    loss.alpha = loss.alpha || picture.loss.alpha;
    loss.moved += picture.loss.moved;
    loss.images = std::max(loss.images, picture.loss.images);
    loss.sample_bits = std::max(loss.sample_bits, picture.loss.sample_bits);
    frame_source[at(frame_count - 1)] = file;
    return true;
}

std::string why_not_loaded(const std::string& file) {
    const std::string fault = why_unreadable(file);
    return fault.empty() ? "it can't be loaded" : fault;
}

/// One at the most: each would put away the one before it. How many are refused.
int open_workspace_files(const std::vector<std::string>& files) {
    int refused = 0;
    for (const std::string& file : files)
        if (&file != &files.front())
            refused += refuse(file, "one workspace at a time") ? 0 : 1;
        else if (!load_workspace(file))
            refused += refuse(file, why_not_loaded(file)) ? 0 : 1;
    return refused;
}

void say_opened(int count, const PictureLoss& loss) {
    const std::string what =
        count == 1 ? "OPENED AS A NEW FRAME" : "OPENED " + std::to_string(count) + " PICTURES AS NEW FRAMES";
    flash_text(what + loss_text(loss));
}

/// `refused` files were refused before.
void open_pictures(const std::vector<std::string>& files, int refused) {
    if (files.empty()) return;
    const int first = frame_count;
    PictureLoss loss;
    const BusyNotice notice;
    for (const std::string& file : files)
        if (!open_as_frame(file, loss)) ++refused;
    if (frame_count == first) return;
    save_workspace_state(state_file, true);
    if (fetch_frame(frame_index, first) && refused == 0) say_opened(frame_count - first, loss);
}

}  // namespace

void open_files(const std::vector<std::string>& files) {
    std::vector<std::string> pictures, workspaces;
    for (const std::string& file : files) (file_type_of(file) == FILE_WSP ? workspaces : pictures).push_back(file);
    const int refused = open_workspace_files(workspaces);
    open_pictures(pictures, refused);
}

void open_handed_files() {
    if (files_wait()) open_files(take_waiting_files());
}

}  // namespace nubo
