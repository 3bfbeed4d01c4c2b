// Elements that show something of the editor in words.
#include "framework/text.h"
#include "gui/columns.h"
#include "gui/shapes.h"
#include "gui/shown_names.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/tools.h"
#include "windows/key_names.h"
#include "windows/kit/draw_elements.h"
#include <array>
#include <cstdio>
#include <string>
#include <string_view>

namespace nubo {

void draw_frame_count(int slot) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d / %d", static_cast<int>(frame_count), frame_slots);
    set_font(FONT_WIDE, TEXT_SELECTED);
    constexpr int left = 3, top = 2;
    UA_text(screen_buffer, gui::x[at(slot)] + left, gui::y[at(slot)] + top, text.data());
}

/// The key combination; red where another action has the same one.
void draw_hotkey(int slot) {
    const bool lit = is_lit(slot), doubled = color_of(slot) == ui_red;
    GUI_box(slot, lit ? ui_highlight_back : color_of(slot), ui_border);
    GUI_center_text(slot, key_name(key_value_of(slot)), lit ? TEXT_LIGHT_ALT : doubled ? TEXT_RED_BUTTON : TEXT_BUTTON);
}

void draw_file_name(int slot) {
    constexpr std::size_t length_shown = 21;
    constexpr int cell_w = 6, top = 2;
    std::string name = shown_file_name(font_name.data());
    if (name.size() > length_shown) name = name.substr(0, length_shown) + "...";
    const bool lit = is_lit(slot);
    GUI_box(slot, lit ? ui_highlight_back : color_of(slot), ui_border);
    set_font(FONT_WIDE, lit ? TEXT_RED : TEXT_BUTTON);
    const int x = gui::x[at(slot)] + 1 + (gui::w[at(slot)] - cell_w * static_cast<int>(name.size())) / 2;
    UA_text_as_is(screen_buffer, x, gui::y[at(slot)] + top, name, cell_w);
}

/// The lines of a tool or an ink.
void draw_description(int slot) {
    GUI_box(slot, color_of(slot), ui_border);
    const Description* const description = find_description(description_of(slot));
    if (description == nullptr) return;
    // The most lines fill the element: of those only one whose commas hang down keeps the next one away.
    constexpr int left = 2, top = 12, line_h = 6;
    const bool is_full = !description->back().empty();
    set_font(FONT_WIDE, TEXT_HIGHLIGHT);
    int y = gui::y[at(slot)] + top;
    for (const std::string_view line : *description) {
        UA_text(screen_buffer, gui::x[at(slot)] + left, y, line);
        y += line_h + (!is_full || line.find_first_of(",;") != line.npos ? 1 : 0);
    }
}

void draw_preview(int slot) {
    GUI_box(slot, color_of(slot), ui_border);
    if (preview_bitmap != nullptr)
        blit(preview_bitmap, screen_buffer, 0, 0, gui::x[at(slot)] + 1, gui::y[at(slot)] + 1, preview_w, preview_h);
    GUI_corner_dots(slot, ui_border);
}

}  // namespace nubo
