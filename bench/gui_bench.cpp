// The interface: drawing the elements and ticking them, beside the clearing of a screen of that size.
#include "base/bitmap.h"
#include "gui/draw.h"
#include "gui/mouse.h"
#include "gui/tick.h"
#include "gui/window.h"
#include "state/resources.h"
#include "state/run.h"
#include <allegro.h>
#include <benchmark/benchmark.h>

namespace nubo {
namespace {

/// A font and a sheet of noise in place of the program's own: each letter a full cell, which costs the most.
void load_sheets() {
    if (gui_sheet != nullptr) return;
    replace_bitmap(screen_buffer, make_bitmap(view_w, view_h));
    replace_bitmap(gui_sheet, make_bitmap(view_w, 200, 0x808080));
    for (const Font slot : {FONT_NARROW, FONT_WIDE}) {
        FontSlot& font = font_slots[at(slot)];
        font.cell_w = slot == FONT_WIDE ? 6 : 5;
        font.cell_h = 7;
        font.advance.fill(font.cell_w);
        font.sheet = make_bitmap(font.cell_w * character_count, font.cell_h, 0x202020).release();
        for (int code = 0; code < character_count; ++code) font.glyph_x[at(code)] = code * font.cell_w;
        ++font.generation;
    }
}

/// `count` buttons with a label, in rows of eight.
void build_buttons(int count) {
    for (int i = 0; i < gui_slots; ++i) GUI_clear_element(i);
    GUI_add_window(0, 0, 319, 239, count + slot_content);
    for (int i = 0; i < count; ++i) {
        const int slot = slot_content + i;
        GUI_add_button(slot, i % 8 * 40, i / 8 * 14, ui_background, LABEL_ONE_COLOR);
        gui::left_action[at(slot)] = ACTION_CLICK;
    }
}

void draw_buttons(benchmark::State& state) {
    load_sheets();
    build_buttons(static_cast<int>(state.range(0)));
    for (auto _ : state) GUI_draw_all();
}
BENCHMARK(draw_buttons)->Arg(31)->Arg(101)->Unit(benchmark::kMicrosecond);

void draw_sliders(benchmark::State& state) {
    load_sheets();
    build_buttons(0);
    for (int i = 0; i < 20; ++i) GUI_add_slider(slot_content + i, 100, i * 11, 139, 256);
    for (auto _ : state) GUI_draw_all();
}
BENCHMARK(draw_sliders)->Unit(benchmark::kMicrosecond);

/// The plain limit: what filling the whole screen costs.
void fill_screen(benchmark::State& state) {
    load_sheets();
    for (auto _ : state) clear_to_color(screen_buffer, static_cast<int>(ui_background));
}
BENCHMARK(fill_screen)->Unit(benchmark::kMicrosecond);

void tick_elements(benchmark::State& state) {
    load_sheets();
    build_buttons(gui_slots - slot_content);
    frame_pacing = 0;
    editor_running = 0;  // the view's own tick isn't measured here
    for (auto _ : state) {
        renew_input();
        GUI_tick();
    }
}
BENCHMARK(tick_elements)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace nubo
