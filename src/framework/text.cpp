#include "framework/text.h"

#include "base/bitmap.h"
#include "base/log.h"
#include "base/utf8.h"
#include "codecs/blend.h"
#include "framework/effects.h"
#include "framework/glyphs.h"
#include "state/run.h"
#include <algorithm>
#include <cmath>
#include <numbers>

namespace nubo {
namespace {

constexpr int soft_shadow_first_mix = 10, soft_shadow_mix = 30;  // of SHADOW_SOFT
constexpr int mix_none = 0;                                      // paints a shape in one colour
constexpr int circle = 256;                                      // angles of the wobble are 256ths
constexpr int sine_step = 15;                                    // from one character to the next
constexpr int sine_delays = 10, sine_fixed = 9;

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// ---- Movements -----------------------------------------------------------------------------------------------------

int sine_phase() {
    const int delay = text_motion.sine_delay;
    if (delay == 0) return UA_phase_counter;
    return delay == sine_fixed ? 0 : static_cast<int>(UA_phase[static_cast<std::size_t>(delay)]);
}

/// How far the wobble moves the character at a position of its text down.
int sine_drop(std::size_t position) {
    if (!text_motion.sine_on) return 0;
    const int angle = (static_cast<int>(position) * sine_step + sine_phase()) % circle;
    const double turn = 2 * std::numbers::pi * angle / circle;
    return static_cast<int>(std::lround(text_motion.sine_amplitude * std::sin(turn)));
}

// ---- Glyphs as bitmaps: for texts with more than plain colours -----------------------------------------------------

// Both live for the run. No owner destroys them at the end: by then Allegro is gone.
BITMAP *glyph_scratch = nullptr, *shadow_scratch = nullptr;

/// A bitmap of that size that stays for the next glyph.
BITMAP* scratch_bitmap(BITMAP*& kept, int w, int h) {
    if (kept == nullptr || kept->w != w || kept->h != h) replace_bitmap(kept, make_bitmap(w, h));
    return kept;
}

/// The glyph, slanted if slants are on; null when the memory can't be had.
BITMAP* glyph_bitmap(std::span<const Color> glyph, const FontSlot& font) {
    const int width = font.cell_w + (text_motion.slant_on ? font.cell_h : 0);
    BITMAP* const bitmap = scratch_bitmap(glyph_scratch, width, font.cell_h);
    if (bitmap == nullptr) return nullptr;
    clear_to_color(bitmap, static_cast<int>(transparent_color));
    for (int y = 0; y < font.cell_h; ++y) {
        const int from_bottom = font.cell_h - 1 - y;
        const double wanted = text_motion.slant_on ? static_cast<double>(text_motion.slant) * from_bottom : 0;
        const int shift = static_cast<int>(std::clamp<double>(wanted, -width, width));
        const Color* const from = glyph.data() + y * font.cell_w;
        for (int x = std::max(0, -shift); x < font.cell_w && x + shift < width; ++x)
            *pixels_at(bitmap, x + shift, y) = from[x];
    }
    return bitmap;
}

void mix_whole_blit(BITMAP* source, BITMAP* target, int x, int y, Color color, int mix) {
    UA_mix_blit(source, target, 0, 0, x, y, source->w, source->h, color, mix);
}

void draw_shadow(BITMAP* glyph, BITMAP* target, int x, int y, int style) {
    const int value = text_attributes.shadow_value;
    if (style == SHADOW_SOLID) mix_whole_blit(glyph, target, x, y, UA_palette_color(value), mix_none);
    if (style == SHADOW_MIXED) mix_whole_blit(glyph, target, x, y, UA_palette_color(0), value);
    if (style != SHADOW_SOFT) return;
    BITMAP* const dark = scratch_bitmap(shadow_scratch, glyph->w, glyph->h);
    if (dark == nullptr) return;
    clear_to_color(dark, static_cast<int>(transparent_color));
    mix_whole_blit(glyph, dark, 0, 0, UA_palette_color(0), soft_shadow_first_mix);
    mix_whole_blit(dark, target, x, y, UA_palette_color(value), soft_shadow_mix);
}

void draw_body(BITMAP* glyph, BITMAP* target, int x, int y) {
    constexpr int near_white = 254;
    const int amount = text_attributes.blend_amount;
    if (text_attributes.blend == 0)
        draw_sprite(target, glyph, x, y);
    else if (text_attributes.blend > 0)
        trans_blit(glyph, target, x, y, amount);
    else
        mix_whole_blit(glyph, target, x, y, static_cast<Color>(makecol(near_white, near_white, near_white)), amount);
}

void draw_outline(BITMAP* glyph, BITMAP* target, int x, int y) {
    for (int gy = 0; gy < glyph->h; ++gy)
        for (int gx = 0; gx < glyph->w; ++gx)
            UA_pixel_effect(glyph, target, gx, gy, x + gx, y + gy, EFFECT_OUTLINE, text_attributes.outline, 0, 0);
}

int shadow_style(const FontSlot& font) {
    return text_attributes.shadow != SHADOW_NONE ? text_attributes.shadow : font.shadow_style;
}

void draw_decorated(std::span<const Color> pixels, const FontSlot& font, BITMAP* target, int x, int y) {
    BITMAP* const glyph = glyph_bitmap(pixels, font);
    if (glyph == nullptr) return;
    draw_shadow(glyph, target, x + font.shadow_dx, y + font.shadow_dy, shadow_style(font));
    draw_body(glyph, target, x, y);
    if (text_attributes.outline != 0) draw_outline(glyph, target, x, y);
}

// ---- Plain glyphs, nearly all that is ever drawn -------------------------------------------------------------------

bool is_plain(const FontSlot& font) {
    return shadow_style(font) == SHADOW_NONE && text_attributes.blend == 0 && text_attributes.outline == 0 &&
           !text_motion.slant_on;
}

/// The same pixels as `draw_sprite` sets, without a bitmap between.
void draw_plain(std::span<const Color> pixels, const FontSlot& font, BITMAP* target, int x, int y) {
    const DrawArea area = draw_area(target);
    const int left = std::max(area.left, x), top = std::max(area.top, y);
    const int right = std::min(area.right, x + font.cell_w), bottom = std::min(area.bottom, y + font.cell_h);
    for (int row = top; row < bottom; ++row) {
        const Color* const from = pixels.data() + (row - y) * font.cell_w - x;
        Color* const to = pixels_at(target, 0, row);
        for (int i = left; i < right; ++i)
            if (from[i] != transparent_color) to[i] = from[i];
    }
}

/// Whether a cell at (x, y) may show on the logical screen, which every target is taken for.
bool is_near_screen(const FontSlot& font, int x, int y) {
    return x <= view_w && x + font.cell_w >= 0 && y <= view_h && y + font.cell_h >= 0;
}

bool is_font_slot(int slot) { return slot >= 0 && slot < font_slot_count; }

bool has_glyph(char32_t code) {
    constexpr int undefined = 0;
    const auto& glyph_x = font_slots[static_cast<std::size_t>(text_attributes.font_slot)].glyph_x;
    return code < glyph_x.size() && glyph_x[code] != undefined;
}

/// Of the size of a capital.
void draw_empty_box(BITMAP* target, int x, int y, int cell_w) {
    constexpr int height = 5, gap = 1;
    const int color = text_colors[static_cast<std::size_t>(text_attributes.color_row)][0];
    rect(target, x, y, x + cell_w - gap - 1, y + height - 1, color);
}

void set_unless_kept(int& attribute, int value) {
    if (value != attribute_kept) attribute = value;
}

}  // namespace

bool is_text_code(std::string_view text, char kind) {
    return text.size() >= text_code_size && text[0] == '|' && text[1] == kind && is_digit(text[2]) && is_digit(text[3]);
}

int text_code_value(std::string_view text) { return (text[2] - '0') * 10 + (text[3] - '0'); }

void UA_set_font(int slot, int color_row, int shadow, int shadow_value, int, int outline, int blend, int blend_amount) {
    if (!is_font_slot(slot)) {
        UA_log("[ ERROR ] : Tried to set font attribute for invalid slot. Slot = %d", slot);
        return;
    }
    TextAttributes& text = text_attributes;
    text.font_slot = slot;
    set_unless_kept(text.color_row, color_row);
    set_unless_kept(text.shadow, shadow);
    set_unless_kept(text.shadow_value, shadow_value);
    set_unless_kept(text.outline, outline);
    set_unless_kept(text.blend, blend);
    set_unless_kept(text.blend_amount, blend_amount);
}

int UA_text(BITMAP* target, int x, int y, std::string_view text) {
    const int slot = text_attributes.font_slot;
    if (!is_font_slot(slot)) {
        UA_log("[ ERROR ] : Tried to write text using an invalid slot. Slot = %d", slot);
        return 0;
    }
    const FontSlot& font = font_slots[static_cast<std::size_t>(slot)];
    const bool is_drawing = x != text_measure_x && font.sheet != nullptr, plain = is_plain(font);
    GlyphSet* glyphs = nullptr;  // of the row in force
    int width = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (is_text_code(text.substr(at), 'c')) {
            text_attributes.color_row = text_code_value(text.substr(at));
            glyphs = nullptr;
            at += text_code_size - 1;
            continue;
        }
        const auto character = static_cast<unsigned char>(text[at]);
        const int pen_x = x + width, pen_y = y + font.glyph_dy[character];
        width += font.advance[character];
        if (!is_drawing || !is_near_screen(font, pen_x, pen_y)) continue;
        if (glyphs == nullptr) glyphs = &glyph_set(slot, text_attributes.color_row);
        const auto draw = plain ? draw_plain : draw_decorated;
        draw(glyphs->glyph(character), font, target, pen_x, pen_y + sine_drop(at));
    }
    return width;
}

void UA_text_as_is(BITMAP* target, int x, int y, std::string_view text, int cell_w) {
    for (; !text.empty(); x += cell_w) {
        const Utf8Character next = first_character(text);
        text.remove_prefix(next.size);
        const char code = has_glyph(next.code) ? static_cast<char>(next.code) : '?';
        if (has_glyph(static_cast<unsigned char>(code)))
            UA_text(target, x, y, {&code, 1});
        else
            draw_empty_box(target, x, y, cell_w);
    }
}

void UA_set_font_sine(int slot, int delay, int amplitude) {
    if (!is_font_slot(slot)) {
        UA_log("[ ERROR ] : Call to set font attributes out of range! Slot = %d", slot);
        return;
    }
    if (delay < 0 || delay >= sine_delays) {
        UA_log("[ ERROR ] : Call to set font sine delay out of range! Delay = %d", delay);
        return;
    }
    text_motion.sine_delay = delay;
    text_motion.sine_amplitude = amplitude;
    text_motion.sine_on = !text_motion.sine_on;
}

void UA_set_font_slant(int, float slant) {
    text_motion.slant = slant;
    text_motion.slant_on = !text_motion.slant_on;
}

}  // namespace nubo
