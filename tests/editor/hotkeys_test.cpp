// Each row of the key table, by its key as it is at the start: what it does is seen in what it changes.
#include "gui/columns.h"
#include "platform/clipboard.h"
#include "state/guides.h"
#include "state/messages.h"
#include "windows/cel/selection_in_hand.h"
#include "windows/menus_kit.h"
#include "windows/option_slider.h"
#include "workspace/frame_store.h"

namespace nubo {
namespace {

constexpr Color white = 0xffffff, red = 0xff0000, blue = 0x0000ff;
constexpr int frames = 5, middle_frame = 2;
// The paper: white, and from this column on in the mask colour, with the mouse on a blue pixel.
constexpr int mask_column = 200, hand_x = 100, hand_y = 80;

enum Moment : int { WHILE_HELD, AFTERWARDS, AFTER_A_RIGHT_CLICK };

struct KeyCase {
    Hotkey action;
    int modifier, code;  // Allegro's; a row without a key at the start is given one
    Moment seen;
    bool (*acted)();
    bool cel_floats = false;  // the key is for a Cel that floats
    bool with_shift = false;  // beside the modifier
};

bool shows(Label label) { return slot_of(label) >= 0; }
bool titled(Label label) { return gui::label[slot_title] == label; }
Color pixel(int x, int y) { return *pixels_at(current_frame, x, y); }
bool measures(BITMAP* bitmap, int width, int height) { return bitmap->w == width && bitmap->h == height; }

constexpr KeyCase cases[] = {
    {HOTKEY_CEL_GET, 0, KEY_ESC, AFTERWARDS, [] { return status_message == MESSAGE_GRAB_FIRST; }},
    {HOTKEY_CEL_CLIP, 0, KEY_TAB, AFTERWARDS, [] { return measures(cel, mask_column, view_h); }},
    {HOTKEY_CEL_PASTE, 0, KEY_TILDE, AFTER_A_RIGHT_CLICK,
     [] { return pixel(mask_column - 1, 10) == red && pixel(mask_column, 10) == red; }},
    {HOTKEY_CEL_PASTE, 0, KEY_F4, AFTER_A_RIGHT_CLICK, [] { return pixel(mask_column - 1, 10) == red; }},
    {HOTKEY_CEL_BELOW, 0, 0, AFTER_A_RIGHT_CLICK,
     [] { return pixel(mask_column - 1, 10) == white && pixel(mask_column, 10) == red; }},
    {HOTKEY_CEL_ONE_COLOR, 0, 0, AFTERWARDS, [] { return shows(LABEL_CONVERT_CEL); }},
    {HOTKEY_CEL_TURN, 0, 0, AFTERWARDS, [] { return status_message == MESSAGE_TURN_CENTER; }},
    {HOTKEY_PIC_CLEAR, 0, KEY_X, AFTERWARDS, [] { return pixel(10, 10) == mask_color; }},
    {HOTKEY_PIC_RESTORE, 0, KEY_R, AFTERWARDS, [] { return pixel(10, 10) == red; }},
    {HOTKEY_PIC_SAVE, 0, KEY_F5, AFTERWARDS, [] { return titled(LABEL_SAVE_FILE); }},
    {HOTKEY_PIC_LOAD, 0, KEY_F9, AFTERWARDS, [] { return titled(LABEL_LOAD_FILE); }},
    {HOTKEY_FRAME_CLONE, 0, 0, AFTERWARDS,
     [] { return frame_count == frames + 1 && status_message == MESSAGE_FRAME_CLONED; }},
    {HOTKEY_FRAME_INSERT, 0, 0, AFTERWARDS,
     [] { return frame_count == frames + 1 && status_message == MESSAGE_FRAME_CREATED; }},
    {HOTKEY_FRAME_RESIZE, 0, 0, AFTERWARDS, [] { return menu_id == WINDOW_RESIZE; }},
    {HOTKEY_FRAME_DELETE, 0, 0, AFTERWARDS, [] { return frame_count == frames && shows(LABEL_DELETE_FRAME); }},
    {HOTKEY_PAN_UP, 0, KEY_UP, AFTERWARDS, [] { return pan_y < 0 && pan_x == 0; }},
    {HOTKEY_PAN_UP, 0, KEY_W, AFTERWARDS, [] { return pan_y < 0 && pan_x == 0; }},
    {HOTKEY_PAN_DOWN, 0, KEY_DOWN, AFTERWARDS, [] { return pan_y > 0 && pan_x == 0; }},
    {HOTKEY_PAN_DOWN, 0, KEY_S, AFTERWARDS, [] { return pan_y > 0 && pan_x == 0; }},
    {HOTKEY_PAN_LEFT, 0, KEY_LEFT, AFTERWARDS, [] { return pan_x < 0 && pan_y == 0; }},
    {HOTKEY_PAN_LEFT, 0, KEY_A, AFTERWARDS, [] { return pan_x < 0 && pan_y == 0; }},
    {HOTKEY_PAN_RIGHT, 0, KEY_RIGHT, AFTERWARDS, [] { return pan_x > 0 && pan_y == 0; }},
    {HOTKEY_PAN_RIGHT, 0, KEY_D, AFTERWARDS, [] { return pan_x > 0 && pan_y == 0; }},
    {HOTKEY_QUICK_PAN, 0, KEY_0_PAD, WHILE_HELD, [] { return status_message == MESSAGE_QUICK_PAN_TOO_SMALL; }},
    {HOTKEY_FRAME_NEXT, 0, KEY_PGDN, AFTERWARDS, [] { return frame_index == middle_frame + 1; }},
    {HOTKEY_FRAME_PREVIOUS, 0, KEY_DEL, AFTERWARDS, [] { return frame_index == middle_frame - 1; }},
    {HOTKEY_FRAME_FIRST, 0, KEY_HOME, AFTERWARDS, [] { return frame_index == 0; }},
    {HOTKEY_FRAME_LAST, 0, KEY_END, AFTERWARDS, [] { return frame_index == frames - 1; }},
    {HOTKEY_FRAME_CENTER, 0, KEY_5_PAD, AFTERWARDS, [] { return zoom == zoom_min && pan_x == 0; }},
    {HOTKEY_BRUSH_EYEDROPPER, 0, KEY_F1, AFTERWARDS, [] { return brush_color == blue && mask_color != blue; }},
    {HOTKEY_MASK_EYEDROPPER, 0, KEY_F2, AFTERWARDS, [] { return mask_color == blue && brush_color != blue; }},
    {HOTKEY_COLOR_MENU, 0, KEY_C, AFTERWARDS, [] { return menu_id == WINDOW_COLOR; }},
    {HOTKEY_BRUSH_TIP, 0, KEY_B, AFTERWARDS, [] { return titled(LABEL_BRUSHIE); }},
    {HOTKEY_BRUSH_TOOL, 0, KEY_7_PAD, AFTERWARDS, [] { return titled(LABEL_BRUSHES); }},
    {HOTKEY_INK, 0, KEY_9_PAD, AFTERWARDS, [] { return menu_id == WINDOW_INK; }},
    {HOTKEY_TOGGLE_MENU, 0, KEY_BACKSPACE, AFTERWARDS, [] { return gui::hidden[DRAWING_UNDO] != 0; }},
    {HOTKEY_MEASURE, 0, KEY_F12, WHILE_HELD, [] { return measure_x == hand_x && measure_y == hand_y; }},
    {HOTKEY_FRAME_JUMP, 0, KEY_BACKSLASH, WHILE_HELD, [] { return gui::type[0] == ELEMENT_THUMBNAIL; }},
    {HOTKEY_TOOL_OPTION, 0, KEY_INSERT, AFTERWARDS,
     [] { return tool_option(TOOL_BOX, OPTION_FILLED) != 0 && status_message == MESSAGE_BRUSH_FILLED; }},
    {HOTKEY_INK_OPTION, 0, KEY_PGUP, WHILE_HELD, [] { return titled(LABEL_SET_INK_STRENGTH); }},
    {HOTKEY_COPY, KEY_LCONTROL, KEY_C, AFTERWARDS, [] { return status_message == MESSAGE_FRAME_COPIED; }},
    {HOTKEY_PASTE, KEY_LCONTROL, KEY_V, AFTERWARDS, [] { return status_message == MESSAGE_CLIPBOARD_EMPTY; }},
    {HOTKEY_UNDO, 0, KEY_U, AFTERWARDS, [] { return pixel(hand_x, hand_y) == blue && pixel(20, 20) == white; }},
    {HOTKEY_REDO, KEY_LSHIFT, KEY_U, AFTERWARDS, [] { return pixel(20, 20) == red; }},
    {HOTKEY_ZOOM_IN, 0, KEY_PLUS_PAD, AFTERWARDS, [] { return zoom == zoom_min + 2; }},
    {HOTKEY_ZOOM_OUT, 0, KEY_MINUS_PAD, AFTERWARDS, [] { return zoom == zoom_min; }},
    {HOTKEY_FAVORITES, 0, KEY_P, AFTERWARDS, [] { return menu_id == WINDOW_FAVORITES; }},
    {HOTKEY_EXIT, 0, KEY_Q, AFTERWARDS, [] { return exit_requested == 0 && shows(LABEL_EXIT_QUESTION); }},
    {HOTKEY_RAPID_EXIT, 0, 0, AFTERWARDS, [] { return exit_requested != 0; }},
    {HOTKEY_CEL_FLIP_ACROSS, 0, KEY_H, WHILE_HELD, [] { return *pixels_at(cel, 3, 0) == white; }, true},
    {HOTKEY_CEL_FLIP_DOWN, 0, KEY_V, WHILE_HELD, [] { return *pixels_at(cel, 0, 1) == white; }, true},
    {HOTKEY_HISTORY, KEY_LSHIFT, KEY_Z, AFTERWARDS, [] { return frame_behind_preview != nullptr; }},
    {HOTKEY_GUIDES, 0, KEY_G, AFTERWARDS, [] { return gui::w[0] == 319 && gui::h[0] == 116; }},
    {HOTKEY_SYMMETRY, 0, KEY_M, AFTERWARDS, [] { return guides.symmetry == SYMMETRY_ACROSS; }},
    {HOTKEY_GHOST, 0, KEY_O, AFTERWARDS, [] { return guides.ghost == GHOST_BEHIND; }},
    {HOTKEY_GRID, KEY_LSHIFT, KEY_G, AFTERWARDS, [] { return guides.pixel_grid == 1 && guides.cell_grid == 0; }},
    {HOTKEY_CHECKER, 0, KEY_K, AFTERWARDS, [] { return guides.checker == 1; }},
    {HOTKEY_COPY_CEL, KEY_LCONTROL, KEY_C, AFTERWARDS, [] { return status_message == MESSAGE_CEL_COPIED; }, false,
     true},
    {HOTKEY_TILES, 0, KEY_T, AFTERWARDS, [] { return guides.tiles == TILES_BOTH; }},
    {HOTKEY_LASSO, 0, KEY_L, AFTERWARDS, [] { return draw_over_frame != nullptr && select_tool == SELECT_BY_LASSO; }},
    {HOTKEY_WAND, KEY_LSHIFT, KEY_L, AFTERWARDS,
     [] { return draw_over_frame != nullptr && select_tool == SELECT_BY_WAND; }},
};

/// Takes what is copied and has nothing to paste.
const ClipboardStandIn forgetful_clipboard{[](ClipboardOffer) { return true; }, [](auto, auto&) { return Fetched{}; }};

constinit const KeyCase* played = nullptr;

class HotkeysTest : public ActivityTest {
protected:
    HotkeysTest() {
        mask_color = 0x203040;
        replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h));
        insert_frames(0, frames - 1, true);
        set_clipboard_stand_in(&forgetful_clipboard);
    }

    /// The same for each row: nothing open, a stroke to undo where it undoes, one undone where it redoes.
    static void prepare(const KeyCase& one) {
        while (frame_count > frames) delete_frames(0, 1);
        fetch_frame(frame_index, middle_frame);
        mask_color = 0x203040;
        brush_color = red;
        new_frame(view_w, view_h, white);
        rectfill(current_frame, mask_column, 0, view_w - 1, view_h - 1, static_cast<int>(mask_color));
        *pixels_at(current_frame, hand_x, hand_y) = blue;
        replace_bitmap(original_frame, make_bitmap(view_w, view_h, red));
        for (BITMAP** bitmap : {&cel, &cel_mask}) {
            replace_bitmap(*bitmap, make_bitmap(4, 2, red));
            *pixels_at(*bitmap, 0, 0) = white;
        }
        cel_x = mask_column - 2;
        cel_y = 10;
        pan_x = pan_y = 0;
        const bool is_zoomed =
            one.action == HOTKEY_ZOOM_IN || one.action == HOTKEY_ZOOM_OUT || one.action == HOTKEY_FRAME_CENTER;
        zoom = is_zoomed ? zoom_min + 1 : zoom_min;
        take_tool(TOOL_BOX);
        tool_option(TOOL_BOX, OPTION_FILLED) = 0;
        take_ink(one.action == HOTKEY_INK_OPTION ? INK_GLASS : INK_OPAQUE);
        status_message = status_coordinates;
        status_timer = 0;
        if (one.action == HOTKEY_UNDO || one.action == HOTKEY_REDO) {
            save_undo(false);
            *pixels_at(current_frame, 20, 20) = red;
            note_all_touched();
        }
        if (one.action == HOTKEY_REDO) undo_last();
        if (one.code == 0) hotkeys[at(one.action)][KEY_PRIMARY] = KEY_F11;
    }
};

TEST_F(HotkeysTest, EachRowDoesWhatItsKeySays) {
    for (const KeyCase& one : cases) {
        played = &one;
        prepare(one);
        play([](User& user) -> Script {
            const KeyCase& row = *played;
            const int code = row.code != 0 ? row.code : KEY_F11;
            co_await user.move_to(hand_x, hand_y);
            if (row.cel_floats) {
                co_await user.hold_key(KEY_TILDE);
                co_await user.release_key(KEY_TILDE);
            }
            ::key[KEY_LSHIFT] = row.with_shift || row.modifier == KEY_LSHIFT ? 1 : 0;
            if (row.modifier != 0) co_await user.hold_key(row.modifier);
            co_await user.hold_key(code);
            co_await user.wait(4);
            bool acted = row.acted();  // while the key is held
            co_await user.release_key(code);
            ::key[KEY_LSHIFT] = 0;
            if (row.modifier != 0) co_await user.release_key(row.modifier);
            if (row.seen == AFTER_A_RIGHT_CLICK) co_await click_place(user, 10, 10, right_button);
            if (row.seen != WHILE_HELD) acted = row.acted();
            EXPECT_TRUE(acted) << "row " << row.action << ", key " << row.code;
        });
        if (one.code == 0) hotkeys[at(one.action)][KEY_PRIMARY] = 0;
    }
    for (int action = 0; action < HOTKEY_COUNT; ++action) {
        const bool is_played = std::ranges::any_of(cases, [=](const KeyCase& one) { return one.action == action; });
        EXPECT_TRUE(is_played) << action;
    }
}

TEST_F(HotkeysTest, TheBoardsWheelEndsWithTheRow) {
    prepare({HOTKEY_FRAME_JUMP, 0, KEY_BACKSLASH, WHILE_HELD, nullptr});
    play([](User& user) -> Script {
        constexpr int focus = 17;  // of 5 rows of 7
        co_await user.hold_key(KEY_BACKSLASH);
        EXPECT_EQ(thumbnail_frame_of(focus), middle_frame);
        for (const auto& [notches, frame] : {std::pair{-1, frames - 1}, {-1, frames - 1}, {1, 0}, {1, 0}}) {
            co_await user.turn_wheel(notches);
            EXPECT_EQ(thumbnail_frame_of(focus), frame);
        }
        co_await user.release_key(KEY_BACKSLASH);
    });
}

TEST_F(HotkeysTest, AHeldKeyGoesFromFrameToFrame) {
    fetch_frame(frame_index, middle_frame);
    play([](User& user) -> Script {
        co_await user.hold_key(KEY_DEL);
        co_await user.wait(25);
        EXPECT_EQ(frame_index, 1) << "a stroke of the key is one step";
        co_await user.wait(75);  // a second in all: at 0, 0.4, 0.65 and 0.9
        co_await user.release_key(KEY_DEL);
        EXPECT_EQ(frame_index, 3);
        co_await user.wait(50);
        EXPECT_EQ(frame_index, 3);
    });
}

TEST_F(HotkeysTest, EscapeThatHasLeftAToolRestsForAMoment) {
    take_tool(TOOL_LINE);
    play([](User& user) -> Script {
        co_await click_place(user, 100, 60);
        for (int stroke = 0; stroke < 2; ++stroke) {
            co_await user.hold_key(KEY_ESC);
            if (stroke == 1) co_await user.wait(80);
            EXPECT_NE(status_message, MESSAGE_GRAB_FIRST);
            co_await user.release_key(KEY_ESC);
        }
        co_await user.wait(10);
        co_await user.hold_key(KEY_ESC);
        co_await user.release_key(KEY_ESC);
        EXPECT_EQ(status_message, MESSAGE_GRAB_FIRST);
    });
}

}  // namespace
}  // namespace nubo
