#include "harness/user.h"
#include "base/keys.h"

#include "editor/commands.h"
#include "editor/handlers.h"
#include "editor/loop.h"
#include "editor/screen.h"
#include "game/defaults.h"
#include "gui/present.h"
#include "platform/input_queue.h"
#include "windows/hand_over.h"
#include <cstdio>
#include <tuple>
#include <utility>

namespace nubo {
namespace {

constexpr int update_ms = 10;          // what the present step rests in the program
constexpr int updates_to_be_seen = 4;  // two GUI ticks at 60 Hz
constexpr int updates_to_give_up = 5000;
constexpr int left_button = 1, right_button = 2;

/// Gives a script that waits in vain a clear end: the loops of the program can't be left from here.
[[noreturn]] void give_up() {
    save_bmp("given_up.bmp", screen_buffer, nullptr);
    std::fprintf(stderr, "[  FAILED  ] the scripted user waited in vain; the screen is in given_up.bmp\n");
    std::fflush(nullptr);
    std::_Exit(1);
}

void set_tip_pixel(int tip, int dx, int dy, int value) {
    const int column = tip % tip_columns, row = tip / tip_columns;
    *pixels_at(tip_sheet, column * tip_w + tip_center_x + dx, row * tip_h + tip_center_y + dy) =
        static_cast<Color>(value) << 16;
}

void draw_test_tips() {
    constexpr int full = 0, soft = 100;
    replace_bitmap(tip_sheet, make_bitmap(tip_sheet_w, tip_sheet_h, transparent_color));
    set_tip_pixel(0, 0, 0, full);
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx) {
            set_tip_pixel(1, dx, dy, full);
            set_tip_pixel(2, dx, dy, soft);
        }
}

}  // namespace

// ---- The user ------------------------------------------------------------------------------------------------------

void User::Pause::await_suspend(std::coroutine_handle<> script) {
    user.script_ = script;
    user.updates_left_ = updates;
    user.updates_waited_ = 0;
    user.condition_ = condition;
}

User::Pause User::wait(int updates) { return {*this, updates}; }

User::Pause User::wait_until(std::function<bool()> condition) { return {*this, 0, std::move(condition)}; }

User::Pause User::move_to(int x, int y) {
    ::mouse_x = x * pixel_scale;
    ::mouse_y = y * pixel_scale;
    return wait(updates_to_be_seen);
}

User::Pause User::press_left(int x, int y) {
    ::mouse_b = ::mouse_b | left_button;
    return move_to(x, y);
}

User::Pause User::press_right(int x, int y) {
    ::mouse_b = ::mouse_b | right_button;
    return move_to(x, y);
}

User::Pause User::release_left() {
    ::mouse_b = ::mouse_b & ~left_button;
    return wait(updates_to_be_seen);
}

User::Pause User::release_right() {
    ::mouse_b = ::mouse_b & ~right_button;
    return wait(updates_to_be_seen);
}

User::Pause User::turn_wheel(int notches) {
    ::mouse_z = ::mouse_z + notches;
    return wait(updates_to_be_seen);
}

User::Pause User::hold_key(int code) {
    ::key[code] = 1;
    return wait(updates_to_be_seen);
}

User::Pause User::release_key(int code) {
    ::key[code] = 0;
    return wait(updates_to_be_seen);
}

void User::step() {
    if (++updates_waited_ > updates_to_give_up) give_up();
    const bool ready = condition_ ? condition_() : --updates_left_ <= 0;
    if (ready && script_) script_.resume();
}

void note_hand() {
    note_mouse(::mouse_x, ::mouse_y, ::mouse_b);
    for (int code = 1; code < input_keys; ++code) note_key(code, ::key[code] != 0);
}

User::Pause User::tap_left(int x, int y) {
    press_left(x, y);
    note_hand();
    return release_left();
}

User::Pause User::tap_key(int code) {
    hold_key(code);
    note_hand();
    return release_key(code);
}

void play(Script (*script)(User&)) { play_on(program_loop, script); }

void play_on(void (*loop)(), Script (*script)(User&)) {
    static User* playing;  // the hook is a plain function
    static std::coroutine_handle<> whole;
    User user;
    const Script running = script(user);
    playing = &user;
    whole = user.script_ = running.handle;
    user.updates_left_ = 1;
    set_present_hook([] {
        advance_time(update_ms);
        static int updates_after = 0;
        if (!whole.done())
            playing->step();
        else if (++updates_after > updates_to_give_up)
            give_up();  // the script has left a tool or a window open
        note_hand();
        if (whole.done()) exit_requested = 1;
    });
    exit_requested = 0;
    loop();
    set_present_hook([] { advance_time(update_ms); });
    running.handle.destroy();
}

void advance_time(int milliseconds) {
    static std::array<double, std::tuple_size_v<decltype(timer_handlers())>> due{};
    note_hand();
    const auto handlers = timer_handlers();
    for (int step = 0; step < milliseconds; ++step)  // in small steps, so that the handlers mix as on their thread
        for (std::size_t i = 0; i < handlers.size(); ++i) {
            due[i] += timer_hz / 1000.0 / handlers[i].period;
            for (; due[i] >= 1; due[i] -= 1) handlers[i].run();
        }
}

// ---- The editor ----------------------------------------------------------------------------------------------------

void make_screen() {
    set_present_hook([] { advance_time(update_ms); });
    pixel_scale = 2;
    screen_w = 2 * view_w;
    screen_h = 2 * view_h;
    if (!create_screen_bitmaps()) std::abort();
}

EditorTest::EditorTest() {
    make_screen();
    UA_initialize_variables();
    hand_over_commands();
    default_hotkeys();
    hand_over_windows();
    draw_test_tips();
    replace_bitmap(cel, make_bitmap(1, 1));
    replace_bitmap(cel_mask, make_bitmap(1, 1));
    replace_bitmap(original_frame, make_bitmap(1, 1));
    new_frame(view_w, view_h);
    handlers_locked = 0;
    gui_enabled = 1;
    editor_running = 1;
}

void EditorTest::new_frame(int width, int height, Color color) {
    if (!adopt_frame(make_bitmap(width, height, color))) std::abort();
    reset_undo_slots();
}

void clear_frame_to(Color color) {
    clear_to_color(current_frame, static_cast<int>(color));
    note_all_touched();
}

int undo_steps() { return undo_reach().done; }

void EditorTest::take_tool(BrushTool tool) { tool_slots[static_cast<std::size_t>(active_tool_slot)] = tool; }

void EditorTest::take_ink(Ink ink, int strength) {
    ink_slots[static_cast<std::size_t>(active_ink_slot)] = ink;
    ink_option(ink, OPTION_STRENGTH) = strength;
}

Color EditorTest::frame_pixel(int x, int y) { return *pixels_at(current_frame, x, y); }

int EditorTest::count_pixels(Color color) {
    const auto pixels = frame_pixels();
    return static_cast<int>(std::count(pixels.begin(), pixels.end(), color));
}

std::vector<Color> EditorTest::frame_pixels() {
    std::vector<Color> pixels;
    for (int y = 0; y < current_frame->h; ++y)
        pixels.insert(pixels.end(), pixels_at(current_frame, 0, y), pixels_at(current_frame, 0, y) + current_frame->w);
    return pixels;
}

}  // namespace nubo
