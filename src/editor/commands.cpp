// The commands: what only a key runs, and the table of all that have one.
#include "editor/commands.h"

#include "gui/presses.h"
#include "gui/window.h"
#include "state/colors.h"
#include "state/commands.h"
#include "state/frames.h"
#include "state/overlay.h"
#include "state/run.h"
#include "state/tools.h"
#include "state/view.h"
#include "view/frame_tiles.h"
#include "view/view.h"
#include "windows/cel/cel_commands.h"
#include "windows/cel/clipboard.h"
#include "windows/cel/select.h"
#include "windows/colors/color_window.h"
#include "windows/colors/screen_pick.h"
#include "windows/favorites_window.h"
#include "windows/files/file_browser.h"
#include "windows/frame_jump.h"
#include "windows/frame_menu.h"
#include "windows/guide_switches.h"
#include "windows/guides_window.h"
#include "windows/history_window.h"
#include "windows/ink_window.h"
#include "windows/kit/placement.h"
#include "windows/kit/quick_pan.h"
#include "windows/option_slider.h"
#include "windows/pic_commands.h"
#include "windows/resize_window.h"
#include "windows/tip_window.h"
#include "windows/tool_window.h"
#include "windows/user_menu.h"
#include "workspace/frame_store.h"
#include <algorithm>
#include <allegro.h>
#include <array>

namespace nubo {
namespace {

// ---- What only keys run: the view, panned in the tick of the timer thread -------------------------------------------

void pan_view(Shared<int>& pan, int direction) {
    pan += direction * pan_step[static_cast<std::size_t>(static_cast<int>(zoom))];
    pan_moved = 1;
}

void pan_up_by_key() { pan_view(pan_y, -1); }
void pan_down_by_key() { pan_view(pan_y, 1); }
void pan_left_by_key() { pan_view(pan_x, -1); }
void pan_right_by_key() { pan_view(pan_x, 1); }
void zoom_in_by_key() { view_zoom(ZOOM_IN); }
void zoom_out_by_key() { view_zoom(ZOOM_OUT); }

void measure_by_key() {
    if (measure_x != -1 || measure_state != 0) return;
    const auto [x, y] = real_pixel({pixel_x, pixel_y});
    if (x < 0 || y < 0 || x >= frame_w || y >= frame_h) return;
    measure_x = x;
    measure_y = y;
    measure_state = 1;
}

// ---- Frames: stepping needs more than one, and never goes to the one that is there ----------------------------------

void go_to_frame(int slot) {
    if (slot != frame_index) fetch_frame(frame_index, slot);
}

/// One Frame alone: nothing happens, and nothing waits for the key.
void go_to_end(int slot, Hotkey key) {
    if (frame_count < 2) return;
    go_to_frame(slot);
    wait_while_held(key);
}

void next_frame() { go_to_frame((frame_index + 1) % frame_count); }
void previous_frame() { go_to_frame((frame_index + frame_count - 1) % frame_count); }
void first_frame() { go_to_end(0, HOTKEY_FRAME_FIRST); }
void last_frame() { go_to_end(frame_count - 1, HOTKEY_FRAME_LAST); }

void resize_by_key() {
    wait_while_held(HOTKEY_FRAME_RESIZE);
    resize_window();
}

void delete_frame_by_key() {
    wait_while_held(HOTKEY_FRAME_DELETE);
    ask_to_delete_frame();
}

// ---- Windows and colours --------------------------------------------------------------------------------------------

void pick_color_into(Color& color) {
    const int picked = pick_screen_color(true);
    if (picked != pick_cancelled) color = static_cast<Color>(picked);
}

void pick_brush_color() { pick_color_into(brush_color); }
void pick_mask_color() { pick_color_into(mask_color); }

void color_window_by_key() { color_window(EDIT_BRUSH_COLOR); }
void tool_window_by_key() { tool_window(active_tool_slot); }
void ink_window_by_key() { ink_window(active_ink_slot); }

void exit_by_key() {
    wait_while_held(HOTKEY_EXIT);
    ask_to_quit();
}

void rapid_exit_by_key() {
    wait_while_held(HOTKEY_RAPID_EXIT);
    exit_requested = EXIT_BY_HAND;
}

// ---- The table ------------------------------------------------------------------------------------------------------

// PASTE and JUMP have alternates for keyboards without a key of its own for ` or \: Italian, Swedish, Turkish.
// clang-format off
constexpr std::array<Command, HOTKEY_COUNT> rows{{
    {HOTKEY_CEL_GET,          "CEL MENU - GET",           KEY_ESC,           0,              get_by_menu},
    {HOTKEY_CEL_CLIP,         "CEL MENU - CLIP",          KEY_TAB,           0,              clip_by_menu},
    {HOTKEY_CEL_PASTE,        "CEL MENU - PASTE",         KEY_TILDE,         KEY_F4,         paste_by_key},
    {HOTKEY_CEL_BELOW,        "CEL MENU - BELOW",         0,                 0,              below_by_key},
    {HOTKEY_CEL_ONE_COLOR,    "CEL MENU - 1 COLOR",       0,                 0,              ask_to_convert_cel},
    {HOTKEY_CEL_TURN,         "CEL MENU - TURN",          0,                 0,              turn_cel},
    {HOTKEY_PIC_CLEAR,        "PIC MENU - CLEAR",         KEY_X,             0,              clear_frame, WAIT_AFTER},
    {HOTKEY_PIC_RESTORE,      "PIC MENU - RESTORE",       KEY_R,             0,              restore_frame, WAIT_AFTER, IS_FREE},
    {HOTKEY_PIC_SAVE,         "PIC MENU - SAVE",          KEY_F5,            0,              save_frame_command, NO_WAIT, IS_FREE},
    {HOTKEY_PIC_LOAD,         "PIC MENU - LOAD",          KEY_F9,            0,              load_frame_command, NO_WAIT, IS_FREE},
    {HOTKEY_FRAME_CLONE,      "FRAME MENU - CLONE",       0,                 0,              clone_frame, WAIT_AFTER},
    {HOTKEY_FRAME_INSERT,     "FRAME MENU - INSERT",      0,                 0,              insert_blank_frame, WAIT_AFTER},
    {HOTKEY_FRAME_RESIZE,     "FRAME MENU - RESIZE",      0,                 0,              resize_by_key},
    {HOTKEY_FRAME_DELETE,     "FRAME MENU - DELETE",      0,                 0,              delete_frame_by_key},
    {HOTKEY_PAN_UP,           "FRAME - PAN UP",           KEY_UP,            KEY_W,          pan_up_by_key, NO_WAIT, GIVES_WAY, HOTKEYS_PAN},
    {HOTKEY_PAN_DOWN,         "FRAME - PAN DOWN",         KEY_DOWN,          KEY_S,          pan_down_by_key, NO_WAIT, GIVES_WAY, HOTKEYS_PAN},
    {HOTKEY_PAN_LEFT,         "FRAME - PAN LEFT",         KEY_LEFT,          KEY_A,          pan_left_by_key, NO_WAIT, GIVES_WAY, HOTKEYS_PAN},
    {HOTKEY_PAN_RIGHT,        "FRAME - PAN RIGHT",        KEY_RIGHT,         KEY_D,          pan_right_by_key, NO_WAIT, GIVES_WAY, HOTKEYS_PAN},
    {HOTKEY_QUICK_PAN,        "FRAME - QUICK PAN (HOLD)", KEY_0_PAD,         0,              quick_pan},
    {HOTKEY_FRAME_NEXT,       "FRAME - NEXT",             KEY_PGDN,          0,              next_frame, REPEATS, GIVES_WAY, HOTKEYS_MODAL},
    {HOTKEY_FRAME_PREVIOUS,   "FRAME - PREVIOUS",         KEY_DEL,           0,              previous_frame, REPEATS, GIVES_WAY, HOTKEYS_MODAL},
    {HOTKEY_FRAME_FIRST,      "FRAME - FIRST",            KEY_HOME,          0,              first_frame, NO_WAIT, GIVES_WAY, HOTKEYS_MODAL},
    {HOTKEY_FRAME_LAST,       "FRAME - LAST",             KEY_END,           0,              last_frame, NO_WAIT, GIVES_WAY, HOTKEYS_MODAL},
    {HOTKEY_FRAME_CENTER,     "FRAME - CENTER",           KEY_5_PAD,         0,              center_frame},
    {HOTKEY_BRUSH_EYEDROPPER, "COLOR - BRUSH EYEDROPPER", KEY_F1,            0,              pick_brush_color, WAIT_AFTER, IS_FREE},
    {HOTKEY_MASK_EYEDROPPER,  "COLOR - MASK EYEDROPPER",  KEY_F2,            0,              pick_mask_color, WAIT_AFTER, IS_FREE},
    {HOTKEY_COLOR_MENU,       "COLOR - SELECT MENU",      KEY_C,             0,              color_window_by_key},
    {HOTKEY_BRUSH_TIP,        "BRUSH TIP SELECT",         KEY_B,             0,              tip_window},
    {HOTKEY_BRUSH_TOOL,       "BRUSH TOOL SELECT",        KEY_7_PAD,         0,              tool_window_by_key},
    {HOTKEY_INK,              "INK SELECT",               KEY_9_PAD,         0,              ink_window_by_key},
    {HOTKEY_TOGGLE_MENU,      "HIDE/SHOW MENU",           KEY_BACKSPACE,     0,              toggle_window, WAIT_AFTER, IS_FREE},
    {HOTKEY_MEASURE,          "MEASURE DISTANCE",         KEY_F12,           0,              measure_by_key, NO_WAIT, IS_FREE},
    {HOTKEY_FRAME_JUMP,       "FRAME JUMP (HOLD)",        KEY_BACKSLASH,     KEY_BACKSLASH2, frame_jump},
    {HOTKEY_TOOL_OPTION,      "TOGGLE BRUSH OPTION",      KEY_INSERT,        0,              toggle_tool_option, WAIT_AFTER},
    {HOTKEY_INK_OPTION,       "TOGGLE INK OPTION",        KEY_PGUP,          0,              toggle_ink_option, WAIT_AFTER},
    {HOTKEY_COPY,             "COPY TO CLIPBOARD",        key_ctrl | KEY_C,  0,              clipboard_copy, WAIT_AFTER},
    {HOTKEY_PASTE,            "PASTE FROM CLIPBOARD",     key_ctrl | KEY_V,  0,              clipboard_paste, WAIT_AFTER},
    {HOTKEY_UNDO,             "UNDO",                     KEY_U,             0,              undo_by_user, REPEATS_QUICKLY},
    {HOTKEY_REDO,             "REDO",                     key_shift | KEY_U, 0,              redo_by_user, REPEATS_QUICKLY},
    {HOTKEY_ZOOM_IN,          "ZOOM IN",                  KEY_PLUS_PAD,      0,              zoom_in_by_key, WAIT_AFTER},
    {HOTKEY_ZOOM_OUT,         "ZOOM OUT",                 KEY_MINUS_PAD,     0,              zoom_out_by_key, WAIT_AFTER},
    {HOTKEY_FAVORITES,        "FAVORITES",                KEY_P,             0,              favorites_window, WAIT_AFTER},
    {HOTKEY_EXIT,             "EXIT PROGRAM",             KEY_Q,             0,              exit_by_key, NO_WAIT, IS_FREE},
    {HOTKEY_RAPID_EXIT,       "RAPID EXIT (NO DIALOG)",   0,                 0,              rapid_exit_by_key, NO_WAIT, IS_FREE, HOTKEYS_MODAL},
    {HOTKEY_CEL_FLIP_ACROSS,  "CEL - FLIP ACROSS",        KEY_H,             0,              flip_cel_across, WAIT_AFTER, GIVES_WAY, HOTKEYS_PLACING},
    {HOTKEY_CEL_FLIP_DOWN,    "CEL - FLIP DOWN",          KEY_V,             0,              flip_cel_down, WAIT_AFTER, GIVES_WAY, HOTKEYS_PLACING},
    {HOTKEY_HISTORY,          "HISTORY",                  key_shift | KEY_Z, 0,              history_window},
    {HOTKEY_GUIDES,           "GUIDES",                   KEY_G,             0,              guides_window},
    {HOTKEY_SYMMETRY,         "GUIDES - SYMMETRY",        KEY_M,             0,              switch_symmetry, WAIT_AFTER},
    {HOTKEY_GHOST,            "GUIDES - GHOST",           KEY_O,             0,              switch_ghost, WAIT_AFTER},
    {HOTKEY_GRID,             "GUIDES - GRID",            key_shift | KEY_G, 0,              switch_grid, WAIT_AFTER},
    {HOTKEY_CHECKER,          "GUIDES - CHECKER",         KEY_K,             0,              switch_checker, WAIT_AFTER},
    {HOTKEY_TILES,            "GUIDES - TILES",           KEY_T,             0,              switch_tiles, WAIT_AFTER},
    {HOTKEY_LASSO,            "CEL - LASSO",              KEY_L,             0,              lasso_by_key},
    {HOTKEY_WAND,             "CEL - WAND",               key_shift | KEY_L, 0,              wand_by_key},
    {HOTKEY_COPY_CEL,         "COPY CEL TO CLIPBOARD",    key_ctrl | key_shift | KEY_C, 0,   clipboard_copy_cel, WAIT_AFTER},
}};
// clang-format on
static_assert(rows_in_order(rows, &Command::action), "a command for each Hotkey, in their order");

constexpr std::size_t name_length = 26;  // characters in the hotkey window's first column
static_assert(std::ranges::all_of(rows, [](const Command& row) { return row.name.size() <= name_length; }),
              "a command's name is wider than its column");

}  // namespace

void hand_over_commands() { commands = rows; }

}  // namespace nubo
