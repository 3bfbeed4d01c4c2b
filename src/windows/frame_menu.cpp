#include "windows/frame_menu.h"

#include "state/frames.h"
#include "view/view.h"
#include "windows/kit/activity_menus.h"
#include "windows/kit/confirm_box.h"
#include "windows/resize_window.h"
#include "workspace/frame_store.h"
#include "workspace/notices.h"
#include "workspace/state_file.h"
#include <array>

namespace nubo {
namespace {

void insert_frame(bool blank, Message message) {
    if (!insert_frames(frame_index, 1, blank)) return;
    save_workspace_state(state_file, true);
    flash_message(message);
}

constexpr std::array<MenuItem, 6> frame_items{{
    {LABEL_CLONE, MESSAGE_FRAME_CLONE, clone_frame},
    {LABEL_INSERT, MESSAGE_FRAME_INSERT, insert_blank_frame},
    {LABEL_RESIZE, MESSAGE_FRAME_RESIZE, resize_window},
    {LABEL_DELETE, MESSAGE_FRAME_DELETE, ask_to_delete_frame},
    {LABEL_CENTER, MESSAGE_CENTER_VIEW, center_frame},
    empty_row,
}};
constexpr ActivityMenu menu{.id = WINDOW_FRAME_MENU, .title = LABEL_FRAME, .items = frame_items};

}  // namespace

void clone_frame() { insert_frame(false, MESSAGE_FRAME_CLONED); }

void insert_blank_frame() { insert_frame(true, MESSAGE_FRAME_CREATED); }

void ask_to_delete_frame() {
    if (frame_count == 1) {
        confirm_box(LABEL_LAST_FRAME, LABEL_NONE, false, true);
        return;
    }
    if (!confirm(LABEL_DELETE_FRAME, LABEL_CANNOT_BE_UNDONE)) return;
    if (delete_frames(frame_index, 1)) save_workspace_state(state_file, true);
}

void frame_menu(int x, int y) { run_activity_menu(menu, x, y); }

}  // namespace nubo
