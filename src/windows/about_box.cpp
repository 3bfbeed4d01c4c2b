#include "windows/about_box.h"

#include "framework/text.h"
#include "paint/inks.h"
#include "state/run.h"
#include "windows/kit/draw_elements.h"
#include "windows/kit/run_window.h"
#include <array>

namespace nubo {
namespace {

enum AboutSlot : int { ABOUT_PANEL = slot_content, ABOUT_OKAY, ABOUT_SLOTS };

// clang-format off
constexpr std::array<ElementRow, ABOUT_SLOTS - slot_content> rows{{
    // slot       type                 x    y   w  h  label       left          right        tooltip
    {ABOUT_PANEL, ELEMENT_ABOUT,       0,   0, 39, 9, LABEL_NONE, ACTION_NONE,  ACTION_NONE, MESSAGE_DRAG_TITLE},
    {ABOUT_OKAY,  ELEMENT_BUTTON_LIT, 60, 128, 59, 9, LABEL_OKAY, ACTION_CLICK},
}};
// clang-format on
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_ABOUT,
                           .place = POS_ABOUT,
                           .x = 100,
                           .y = 50,
                           .w = 180,
                           .h = 140,
                           .child_count = ABOUT_SLOTS,
                           .title = LABEL_ABOUT_TITLE,
                           .title_w = 177,
                           .elements = rows,
                           .okay = ABOUT_OKAY,
                           .keys = KEYS_ESCAPE,
                           .gives_way = true};

struct AboutLine {
    int y;
    const char* name;
    const char* value;
};
constexpr std::array<AboutLine, 2> lines{{{57, "NUBO VERSION", "1.3"}, {67, "COMPILED", "01/26/2012"}}};

}  // namespace

/// The logo, and below it a name and a value on a plate for each line.
void draw_about(int slot) {
    constexpr int logo_w = 173, logo_h = 33, logo_x = 4, logo_y = 15;
    constexpr int name_x = 4, value_x = 93, plate_left = 90, plate_right = 176, plate_h = 7, plate_strength = 60;
    const int x = gui::x[at(slot)], y = gui::y[at(slot)];
    if (logo != nullptr) blit(logo, screen_buffer, 0, 0, x + logo_x, y + logo_y, logo_w, logo_h);
    const int plate = static_cast<int>(blend_color(ui_background, fixed_white, plate_strength));
    for (const AboutLine& line : lines) {
        rectfill(screen_buffer, x + plate_left, y + line.y, x + plate_right, y + line.y + plate_h - 1, plate);
        set_font(FONT_WIDE, TEXT_HIGHLIGHT);
        UA_text(screen_buffer, x + name_x, y + line.y + 1, line.name);
        set_font(FONT_WIDE, TEXT_SELECTED);
        UA_text(screen_buffer, x + value_x, y + line.y + 1, line.value);
    }
}

void about_box() { run_window(window); }

}  // namespace nubo
