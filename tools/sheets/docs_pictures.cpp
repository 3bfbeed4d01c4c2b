// Makes the pictures of the README and of docs/sprite-to-sheet.md: a scripted user works with the program as it is
// delivered, so that they show what it does. Usage: nubo_pictures FOLDER
#include "codecs/png.h"
#include "framework/outline_font.h"
#include "framework/resources.h"
#include "harness/harness.h"
#include "harness/user.h"
#include "paint/cel_paste.h"
#include "paint/cel_pixels.h"
#include "paint/surfaces.h"
#include "painter.h"
#include "state/cel.h"
#include "state/guides.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "windows/colors/scheme.h"
#include "windows/kit/drawing_menu.h"
#include "windows/menus_kit.h"
#include "windows/resize_window.h"
#include "workspace/folders.h"
#include "workspace/nail.h"
#include "workspace/user_settings.h"
#include "workspace/workspace.h"
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

namespace nubo {
namespace {

namespace fs = std::filesystem;

std::string target;              // where the pictures go
const Stamps* stamps = nullptr;  // the artwork's sprites, which the user draws again; main owns them

// ---- The program as delivered ---------------------------------------------------------------------------------------

void copy_program_folder() {
    for (const char* part : {"resource", "WORKSPACE", "fonts"})
        fs::copy(fs::path(NUBO_FOLDER) / part, part, fs::copy_options::recursive);
    for (const auto& entry : fs::directory_iterator("WORKSPACE"))  // of a developer's own runs
        if (entry.path().filename().string().starts_with("current.")) fs::remove(entry.path());
}

bool load_pictures() {
    UA_load_framework_video(resource_folder());
    const OwnedBitmap tips(load_png("resource/brushie.PNG", nullptr));
    if (!tips) return false;
    blit(tips.get(), tip_sheet, 0, 0, 0, 0, tip_sheet_w, tip_image_h);
    replace_bitmap(logo, OwnedBitmap(load_png("resource/N_HD_1X.RES", nullptr)));
    replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h));
    replace_bitmap(nail_sheet, make_bitmap(nail_side, nail_side));
    return logo != nullptr;
}

class DeliveredEditor : public EditorTest {
public:
    DeliveredEditor() {
        copy_program_folder();
        std::strncpy(program_dir.data(), folder_.path().c_str(), path_size - 1);
        load_user_settings();
        if (!load_pictures() || font_system_init() != 0 || !open_workspace()) std::abort();
        wear_scheme();
        handlers_locked = 0;
    }
    ~DeliveredEditor() override { font_system_exit(); }
    void TestBody() override {}

private:
    ScratchFolder folder_;
};

// ---- What the scripts share -----------------------------------------------------------------------------------------

/// Writes what the screen shows, three times as large, as the window is at a first start.
void take_picture(const char* name) {
    constexpr int scale = 3;
    const OwnedBitmap picture = make_bitmap(view_w * scale, view_h * scale);
    stretch_blit(screen_buffer, picture.get(), 0, 0, view_w, view_h, 0, 0, view_w * scale, view_h * scale);
    if (save_png((target + "/" + name + ".png").c_str(), picture.get(), nullptr) != 0) std::abort();
}

/// The middle of a Frame pixel on the screen.
Point on_screen(int x, int y) {
    const int scale = zoom_scale[at(zoom)];
    return {(x - pan_x) * scale + scale / 2, (y - pan_y) * scale + scale / 2};
}

constexpr int rest = 60;  // updates till a message or a tooltip has come

// ---- The README: a scribble, an ink, a colour -----------------------------------------------------------------------

constexpr std::array<Point, 9> wave{
    {{80, 110}, {96, 92}, {116, 96}, {128, 118}, {146, 132}, {166, 118}, {178, 96}, {200, 92}, {224, 112}}};

Script scribble(User& user) {
    co_await user.wait(rest);
    const std::array<Color, 3> chalks{0xffffff, 0xf87890, 0x60c0f8};
    for (int line = 0; line < static_cast<int>(chalks.size()); ++line) {
        const int down = 14 * line;
        brush_color = chalks[at(line)];
        co_await user.press_left(wave[0].x, wave[0].y + down);
        for (const Point& point : wave) co_await user.drag_to(point.x, point.y + down);
        co_await user.release_left();
    }
    co_await user.wait(rest);
    take_picture("nubo");
}

Script choose_ink(User& user) {
    co_await user.tap_key(KEY_END);  // the landscape
    pan_x = 60;                      // to the house in it
    pan_y = 290;
    co_await user.wait(rest);
    co_await click(user, DRAWING_INK_FIRST + 5, right_button);
    co_await user.move_to(150, 60);
    co_await user.wait(rest);
    take_picture("inks");
    co_await right_click_outside(user);
}

Script choose_color(User& user) {
    co_await user.tap_key(KEY_HOME);
    co_await user.tap_key(KEY_PGDN);  // the sprites
    co_await user.wait(rest);
    brush_color = 0x40a0f8;
    co_await user.tap_key(KEY_C);
    co_await user.move_to(255, 205);
    co_await user.wait(4);
    take_picture("colors");
    co_await right_click_outside(user);
    co_await user.wait(rest);
}

// ---- From sprite to sheet -------------------------------------------------------------------------------------------

constexpr int side = 16, near_zoom = 4;
constexpr std::array<const char*, 3> poses{"hero-1", "hero-2", "hero-3"};
std::array<int, poses.size()> frame_of_pose{};
int sheet_frame = 0;

/// Another number in the text field that has the keyboard.
constexpr std::array<int, 4> clear_field{KEY_END, KEY_BACKSPACE, KEY_BACKSPACE, KEY_BACKSPACE};

Script make_small_frame(User& user) {
    co_await click(user, DRAWING_INK_FIRST);  // OPAQUE again
    co_await click(user, DRAWING_FRAME);
    co_await click(user, slot_of(LABEL_INSERT));
    co_await user.tap_key(KEY_PGDN);
    co_await click(user, DRAWING_FRAME);
    co_await click(user, slot_of(LABEL_RESIZE));
    for (const int field : {slot_of(LABEL_WIDTH) + 2, slot_of(LABEL_HEIGHT) + 2}) {
        co_await click(user, field);
        for (const int code : clear_field) co_await user.tap_key(code);
        for (const int code : {KEY_1, KEY_6}) co_await user.tap_key(code);
    }
    co_await user.wait(rest);
    take_picture("sheet-1");
    co_await click(user, slot_of(LABEL_OKAY));
    co_await user.tap_key(KEY_5_PAD);
    while (zoom < near_zoom) {
        co_await user.move_to(view_w / 2, view_h / 2);
        co_await user.turn_wheel(1);
    }
}

/// Paints what the Frame hasn't got yet of a pose, pixel by pixel, with the colours as if they had been picked.
Script paint_pose(User& user) {
    static int pose = 0;
    brush_tip = 0;  // one pixel
    const int halfway = pose == 0 ? side * 2 / 3 : -1;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const Color wanted = *pixels_at(stamps->at(poses[at(pose)]).get(), x, y);
            const Color color = wanted == transparent_color ? mask_color : wanted;
            if (*pixels_at(current_frame, x, y) == color) continue;
            brush_color = color;
            const Point place = on_screen(x, y);
            co_await user.press_left(place.x, place.y);
            co_await user.release_left();
        }
        if (y == halfway) take_picture("sheet-2");
    }
    frame_of_pose[at(pose++)] = frame_index;
    if (pose == static_cast<int>(poses.size())) co_return;
    co_await click(user, DRAWING_FRAME);
    co_await click(user, slot_of(LABEL_CLONE));
    co_await user.tap_key(KEY_PGDN);
}

Script look_at_the_board(User& user) {
    co_await user.move_to(view_w / 2, view_h / 2);
    co_await user.hold_key(KEY_BACKSLASH);
    co_await user.wait(rest);
    take_picture("sheet-3");
    co_await user.release_key(KEY_BACKSLASH);
}

Script lay_out_sheet(User& user) {
    co_await click(user, DRAWING_FRAME);
    co_await click(user, slot_of(LABEL_INSERT));
    co_await user.tap_key(KEY_PGDN);
    sheet_frame = frame_index;
    co_await click(user, DRAWING_PIC);
    co_await click(user, slot_of(LABEL_PIC_SHEET));
    const int first_field = slot_of(LABEL_SPRITE_W) + 9;
    for (const auto& [row, code] : {std::pair{4, KEY_1}, std::pair{5, KEY_3}}) {
        co_await click(user, first_field + row);
        for (const int clear : clear_field) co_await user.tap_key(clear);
        co_await user.tap_key(code);
    }
    co_await user.wait(rest);
    take_picture("sheet-4");
    co_await click(user, slot_of(LABEL_OKAY));
    co_await user.tap_key(KEY_5_PAD);
    while (zoom < near_zoom - 1) {
        co_await user.move_to(view_w / 2, view_h / 2);
        co_await user.turn_wheel(1);
    }
}

/// GET in the Frame of the pose, PASTE in the sheet; the arrow keys carry it into its field.
Script fill_sheet(User& user) {
    for (int pose = 0; pose < static_cast<int>(poses.size()); ++pose) {
        while (frame_index != frame_of_pose[at(pose)]) co_await user.tap_key(KEY_PGDN);
        co_await user.tap_key(KEY_ESC);
        for (const int corner : {0, side - 1}) {
            const Point place = on_screen(corner, corner);
            co_await click_place(user, place.x, place.y);
        }
        while (frame_index != sheet_frame) co_await user.tap_key(KEY_PGDN);
        co_await user.tap_key(KEY_TILDE);
        for (int step = 0; step < 1 + pose * (side + 1); ++step) co_await user.tap_key(KEY_RIGHT);
        co_await user.tap_key(KEY_DOWN);
        co_await user.move_to(view_w - 20, view_h / 2);  // the preview makes way for it
        co_await user.wait(rest);
        if (pose + 1 == static_cast<int>(poses.size())) take_picture("sheet-5");
        co_await click_place(user, view_w / 2, view_h / 2, right_button);
    }
}

// ---- TURN in its two qualities -------------------------------------------------------------------------------------

constexpr int turned_field = 24;  // holds the sprite at any angle

/// Turns the first pose by 30 degrees and anchors it in the middle of a field of the Frame.
void turn_into_field(int field, int is_clean) {
    constexpr int degrees = 30;
    guides.clean_cel = is_clean;
    cel_place = {.x = turned_field * field + turned_field / 2,
                 .y = turned_field / 2,
                 .x2 = degrees * 256 / 360,
                 .mode = CEL_TURN,
                 .degrees = degrees};
    prepare_cel();
    if (!commit_cel(CEL_TURN, UNDO_TO_SAVE)) std::abort();
    cel_place = {};
}

/// FAST and CLEAN side by side, eight times as large.
Script turn_sprite(User& user) {
    constexpr int scale = 8, fields = 2;
    constexpr Color ground = 0x9098a0;  // the sprite's outline is dark
    co_await click(user, DRAWING_FRAME);
    co_await click(user, slot_of(LABEL_INSERT));
    co_await user.tap_key(KEY_PGDN);
    opt_cel_masking = 0;  // the sprite's own clear pixels
    rectfill(current_frame, 0, 0, turned_field * fields - 1, turned_field - 1, static_cast<int>(ground));
    note_touched({0, 0, turned_field * fields - 1, turned_field - 1});
    if (!take_cel(copy_bitmap(stamps->at(poses[0]).get()))) std::abort();
    for (int field = 0; field < fields; ++field) turn_into_field(field, field);
    const OwnedBitmap picture = make_bitmap(turned_field * fields * scale, turned_field * scale);
    stretch_blit(current_frame, picture.get(), 0, 0, turned_field * fields, turned_field, 0, 0, picture->w, picture->h);
    if (save_png((target + "/turned.png").c_str(), picture.get(), nullptr) != 0) std::abort();
}

}  // namespace
}  // namespace nubo

int main(int argc, char** argv) {
    using namespace nubo;
    if (argc != 2) {
        std::fprintf(stderr, "usage: nubo_pictures FOLDER\n");
        return 2;
    }
    start_without_display();
    fs::create_directories(argv[1]);
    target = fs::absolute(argv[1]);
    const auto source = read_art(NUBO_ART "/stamps.txt");
    const auto read = source ? read_stamps(*source) : std::nullopt;
    if (!read) return 1;
    stamps = &*read;
    const DeliveredEditor editor;
    for (const auto script : {scribble, choose_ink, choose_color, make_small_frame, paint_pose, paint_pose, paint_pose,
                              look_at_the_board, lay_out_sheet, fill_sheet, turn_sprite})
        play(script);
    return 0;
}
