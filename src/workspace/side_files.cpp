#include "workspace/side_files.h"

#include "base/log.h"
#include "paint/cel_pixels.h"
#include "platform/safe_file.h"
#include "state/cel.h"
#include "state/run.h"
#include "state/stroke.h"
#include "workspace/bmp_files.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/workspace_files.h"
#include <array>
#include <utility>

namespace nubo {
namespace {

constexpr int new_cel_side = 16;

struct SideRow {
    SideFile kind;
    const char *ending, *repaired;
};
constexpr std::array<SideRow, SIDE_COUNT> side_rows{{
    {SIDE_CEL, "cel", "[ INFO ] : Cel container repaired"},
    {SIDE_NAIL, "nal", "[ INFO ] : Nail container repaired"},
    {SIDE_TIP, "tip", "[ INFO ] : Custom tip container repaired"},
}};
static_assert(rows_in_order(side_rows, &SideRow::kind));

const SideRow& row_of(SideFile kind) { return side_rows[static_cast<unsigned>(kind)]; }

void blacken_tip() { rectfill(tip_sheet, 0, custom_tip_y, custom_tip_w - 1, custom_tip_y + custom_tip_h - 1, 0); }

bool save_tip(const std::string& path) {
    const OwnedBitmap tip(create_sub_bitmap(tip_sheet, 0, custom_tip_y, custom_tip_w, custom_tip_h));
    return tip && save_picture(path, tip.get());
}

void blacken(SideFile kind) {
    switch (kind) {
    case SIDE_CEL: take_cel(make_bitmap(new_cel_side, new_cel_side)); break;
    case SIDE_NAIL: clear_to_color(nail_sheet, 0); break;
    case SIDE_TIP: blacken_tip(); break;
    case SIDE_COUNT: break;
    }
}

// The state tells the Cel's shape too, but a run that was killed between both files leaves a state of another Cel.
CelShape shape_in(const std::string& cel_file) {
    const int mark = mark_of_bmp(InputFile(cel_file));
    return mark < CEL_SHAPE_COUNT ? static_cast<CelShape>(mark) : CEL_IS_WHOLE;
}

bool take(SideFile kind, OwnedBitmap picture, const std::string& path) {
    switch (kind) {
    case SIDE_CEL: return take_cel(std::move(picture), shape_in(path));
    case SIDE_NAIL: blit(picture.get(), nail_sheet, 0, 0, 0, 0, nail_side, nail_side); return true;
    case SIDE_TIP: blit(picture.get(), tip_sheet, 0, 0, 0, custom_tip_y, custom_tip_w, custom_tip_h); return true;
    case SIDE_COUNT: break;
    }
    return false;
}

}  // namespace

bool save_side_file(const Folder& folder, SideFile kind, const std::string& stem) {
    const std::string path = folder.file(stem + row_of(kind).ending);
    if (kind == SIDE_TIP) return save_tip(path);
    if (kind == SIDE_NAIL) return save_picture(path, nail_sheet);
    return save_picture(path, cel_mask, guides.cel_shape);
}

bool load_side_file(const Folder& folder, SideFile kind, const std::string& stem) {
    const std::string path = folder.file(stem + row_of(kind).ending);
    if (!file_exists(path)) return false;
    PictureFault fault;
    OwnedBitmap picture = load_bmp_file(path, fault);
    if (picture && take(kind, std::move(picture), path)) {
        forget_unread(path);
        return true;
    }
    if (fault == PICTURE_MALFORMED && set_aside(path)) return false;
    blacken(kind);
    keep_unread(path);
    flash_message(MESSAGE_FILE_OUT_OF_REACH);
    return true;
}

void repair_workspace(const Folder& folder, int kind) {
    if (kind < 0 || kind >= SIDE_COUNT) return;
    mark_damage();
    UA_log("[ INFO ] : Workspace damage encountered. Attempting repair!");
    const auto side = static_cast<SideFile>(kind);
    blacken(side);
    if (save_side_file(folder, side, "current.")) UA_log(row_of(side).repaired);
}

void blank_side_content() {
    clear_to_color(cel, 0);
    clear_to_color(cel_mask, 0);
    clear_to_color(nail_sheet, 0);
    blacken_tip();
}

}  // namespace nubo
