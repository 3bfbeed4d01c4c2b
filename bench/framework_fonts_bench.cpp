// Outline fonts and TEXT: a line beside FreeType alone, and what the hand waits for beside its time: a key below 1 ms,
// the largest line below 30, a picture below 0.3, a size below 0.1; a commit beside a quarter of its ink's rate.
#include "base/bitmap.h"
#include "framework/outline_font.h"
#include "paint/inks.h"
#include "paint/surfaces.h"
#include "paint/tool_text.h"
#include "paint/undo.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/stroke.h"
#include "state/tools.h"

#include <benchmark/benchmark.h>
#include <ft2build.h>
#include <string>
#include FT_FREETYPE_H

namespace nubo {
namespace {

constexpr const char* font_file = NUBO_FOLDER "/fonts/system.ttf";
constexpr int side = 2048, few_characters = 40, most_characters = 120;
const std::string sentence = "Typed by a hand that is in a hurry, but not blindly.";

/// A Frame, and the program's font in the hands of TEXT.
void begin() {
    if (preferred_font == nullptr) {
        font_system_init();
        preferred_font = font_load(font_file);
    }
    active_tool_slot = active_ink_slot = 0;
    tool_slots[0] = TOOL_TEXT;
    ink_slots[0] = INK_OPAQUE;
    brush_color = 0x3060c0;
    mask_color = 0;
    adopt_frame(make_bitmap(side, side, 0x202020));
    reset_undo_slots();
    for (int i = 0; i < undo_depth_max; ++i) save_undo(false);
    replace_bitmap(overlay, make_bitmap(view_w, view_h, transparent_color));
    replace_bitmap(stripe_pattern, make_bitmap(64, 64));
    refresh_ticks = 0;
    click_points[0] = {0, 0};
    shown = {};
}

// ---- The font ------------------------------------------------------------------------------------------------------

void font_size_350(benchmark::State& state) {
    begin();
    for (auto _ : state) font_set_height(preferred_font, font_text_height(preferred_font) == 350 ? 349 : 350);
}
BENCHMARK(font_size_350)->Unit(benchmark::kMicrosecond);

void font_load_and_destroy(benchmark::State& state) {
    begin();
    for (auto _ : state) font_destroy(font_load(font_file));
}
BENCHMARK(font_load_and_destroy)->Unit(benchmark::kMicrosecond);

/// Each glyph once, at a size that nobody has used.
void font_line(benchmark::State& state) {
    begin();
    const OwnedBitmap coverage(create_bitmap_ex(8, side, 64));
    clear_bitmap(coverage.get());
    int height = 28;
    for (auto _ : state) {
        font_set_height(preferred_font, height = height == 28 ? 29 : 28);
        font_cover(coverage.get(), preferred_font, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLM", 0, 0, EDGES_SMOOTH);
    }
}
BENCHMARK(font_line)->Unit(benchmark::kMicrosecond);

void font_line_freetype(benchmark::State& state) {
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    FT_Init_FreeType(&library);
    FT_New_Face(library, font_file, 0, &face);
    unsigned size = 24;
    for (auto _ : state) {
        FT_Set_Pixel_Sizes(face, 0, size = size == 24 ? 25 : 24);
        for (const char letter : std::string("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLM")) {
            FT_Load_Char(face, static_cast<FT_ULong>(letter), FT_LOAD_DEFAULT);
            FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL);
        }
    }
    FT_Done_Face(face);
    FT_Done_FreeType(library);
}
BENCHMARK(font_line_freetype)->Unit(benchmark::kMicrosecond);

// ---- The hand ------------------------------------------------------------------------------------------------------

void text_key_28(benchmark::State& state) {
    begin();
    TextInHand line;
    std::string text = sentence;
    for (auto _ : state) {
        text.back() = text.back() == '.' ? '!' : '.';
        line.follow({text, 28, 0, 1});
    }
}
BENCHMARK(text_key_28)->Unit(benchmark::kMicrosecond);

void text_key_350(benchmark::State& state) {
    begin();
    TextInHand line;
    std::string text(most_characters, 'W');
    for (auto _ : state) {
        text.back() = text.back() == 'W' ? 'M' : 'W';
        line.follow({text, 350, 0, 1});
    }
}
BENCHMARK(text_key_350)->Unit(benchmark::kMillisecond);

/// The whole screen in letters.
void text_preview(benchmark::State& state) {
    begin();
    TextInHand line;
    line.follow({std::string(few_characters, 'W'), 350, 0, static_cast<int>(state.range(0))});
    click_points[0] = {-200, -50};
    for (auto _ : state) line.draw_preview();
}
BENCHMARK(text_preview)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// As many lines of letters as cover the Frame, each beside what its ink takes for as many pixels.
void text_commit(benchmark::State& state) {
    begin();
    TextInHand line;
    line.follow({std::string(few_characters, 'W'), 350, 0, 1});
    for (auto _ : state) line.commit();
    state.SetItemsProcessed(state.iterations() * side * 350);
}
BENCHMARK(text_commit)->Unit(benchmark::kMillisecond);

void text_commit_ink_rows(benchmark::State& state) {
    begin();
    static constexpr std::uint8_t full_strength = 0;
    for (auto _ : state) {
        save_undo(false);
        clear_stroke_mask();
        for (int y = 0; y < 350; ++y)
            apply_ink_row({.x = 0, .y = y, .length = side, .tip = &full_strength, .tip_step = 0}, INK_OPAQUE,
                          brush_color);
    }
    state.SetItemsProcessed(state.iterations() * side * 350);
}
BENCHMARK(text_commit_ink_rows)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace nubo
