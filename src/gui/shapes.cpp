#include "gui/shapes.h"

#include "base/color.h"
#include "base/random.h"
#include "framework/text.h"
#include "gui/stripes.h"
#include "state/commands.h"
#include "state/resources.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/texts_labels.h"

namespace nubo {
namespace {

constexpr int text_cell_w = 6, text_top = 2;  // of the wide font; where a line stands in its element
constexpr int color_code_length = 4;          // "|c21"

Color border_color(Color border) {
    if (border != border_waiting) return border;
    constexpr int darkest = 32, brightest = 223;
    const int gray = darkest + UA_random(brightest - darkest);
    return pack_color(gray, gray, gray);
}

}  // namespace

// ---- Boxes ---------------------------------------------------------------------------------------------------------

void GUI_ants(int x1, int y1, int x2, int y2) {
    const StripesMode stripes;
    rect(screen_buffer, x1, y1, x2, y2, 0);
}

void GUI_corner_dots(int slot, Color color) {
    const int left = gui::x[at(slot)], top = gui::y[at(slot)];
    const int right = left + gui::w[at(slot)] - 1, bottom = top + gui::h[at(slot)] - 1;
    const int dot = static_cast<int>(color);
    putpixel(screen_buffer, left + 1, top + 1, dot);
    putpixel(screen_buffer, right - 1, top + 1, dot);
    putpixel(screen_buffer, left + 1, bottom - 1, dot);
    putpixel(screen_buffer, right - 1, bottom - 1, dot);
}

void GUI_box(int slot, Color fill, Color border) {
    const int left = gui::x[at(slot)], top = gui::y[at(slot)];
    const int right = left + gui::w[at(slot)] - 1, bottom = top + gui::h[at(slot)] - 1;
    rectfill(screen_buffer, left + 1, top + 1, right - 1, bottom - 1, static_cast<int>(fill));
    if (gui::border_style[at(slot)] == border_ants) {
        GUI_ants(left, top, right, bottom);
        return;
    }
    const Color edge = border_color(border);
    const int line_color = static_cast<int>(edge);
    vline(screen_buffer, left, top + 2, bottom - 2, line_color);
    vline(screen_buffer, right, top + 2, bottom - 2, line_color);
    hline(screen_buffer, left + 2, top, right - 2, line_color);
    hline(screen_buffer, left + 2, bottom, right - 2, line_color);
    GUI_corner_dots(slot, edge);
}

void GUI_square_box(int slot, Color fill, Color border) {
    const int left = gui::x[at(slot)], top = gui::y[at(slot)];
    const int right = left + gui::w[at(slot)], bottom = top + gui::h[at(slot)];
    rectfill(screen_buffer, left + 1, top, right - 1, bottom, static_cast<int>(fill));
    rect(screen_buffer, left, top, right, bottom, static_cast<int>(border));
}

// ---- Text ----------------------------------------------------------------------------------------------------------

int shown_length(std::string_view text) {
    int length = 0;
    for (std::size_t i = 0; i < text.size();) {
        const bool is_code = text.substr(i, 2) == "|c";
        i += is_code ? color_code_length : 1;
        length += is_code ? 0 : 1;
    }
    return length;
}

void GUI_center_text(int slot, std::string_view text, TextColor color) {
    set_font(FONT_WIDE, color);
    const int x = gui::x[at(slot)] + 1 + gui::w[at(slot)] / 2 - text_cell_w / 2 * shown_length(text);
    UA_text(screen_buffer, x, gui::y[at(slot)] + text_top, text);
}

std::string_view text_of_label(int label) {
    const std::size_t command = static_cast<std::size_t>(label) - LABEL_HOTKEY_FIRST;
    if (command < commands.size()) return commands[command].name;
    return label > LABEL_NONE && label < LABEL_SLOTS ? label_text[at(label)] : std::string_view{};
}

std::string_view text_of(int slot) {
    const char* const own = gui::value_text[at(slot)];
    return own != nullptr ? own : text_of_label(gui::label[at(slot)]);
}

void GUI_center_text_of(int slot, TextColor color) {
    const std::string_view text = text_of(slot);
    if (!text.empty()) GUI_center_text(slot, text, color);
}

// ---- Sprites and state ---------------------------------------------------------------------------------------------

void GUI_sprite(int source_x, int source_y, int w, int h, int x, int y) {
    if (gui_sheet != nullptr) masked_blit(gui_sheet, screen_buffer, source_x, source_y, x, y, w, h);
}

bool is_lit(int slot) {
    const std::size_t s = at(slot);
    if (gui::hot[s] != 0) return shown.hover == slot;
    // Of an element over a list the list is `hover`.
    const int dx = shown.mouse_x - gui::x[s], dy = shown.mouse_y - gui::y[s];
    return dx >= 0 && dx <= gui::w[s] - 2 && dy >= 0 && dy <= gui::h[s] - 2;
}

}  // namespace nubo
