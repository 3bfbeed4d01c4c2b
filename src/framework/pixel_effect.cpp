// Effects that a sprite or a letter is decorated with, pixel by pixel.
#include "base/bitmap.h"
#include "base/random.h"
#include "codecs/blend.h"
#include "framework/effects.h"
#include <array>

namespace nubo {
namespace {

constexpr Color black = 0x000000, white = 0xffffff, yellow = 0xffff00;
constexpr int full = 255;             // strength that replaces
constexpr int speckle_strength = 25;  // a speckle stays below

struct Neighbour {
    int dx, dy;
};
constexpr std::array<Neighbour, 4> neighbours{{{0, -1}, {0, 1}, {-1, 0}, {1, 0}}};

/// A pixel of the source, what counts as nothing there, and where it goes.
struct EffectPixel {
    BITMAP *source, *target;
    int sx, sy, tx, ty;
    Color nothing;
};

bool is_nothing(const EffectPixel& pixel, int dx, int dy) {
    const int x = pixel.sx + dx, y = pixel.sy + dy;
    return !frame_contains(pixel.source, x, y) || *pixels_at(pixel.source, x, y) == pixel.nothing;
}

void blend(const EffectPixel& pixel, int dx, int dy, Color color, int strength) {
    const int x = pixel.tx + dx, y = pixel.ty + dy;
    if (frame_contains(pixel.target, x, y)) blend_fill_row(pixels_at(pixel.target, x, y), 1, color, strength);
}

void outline(const EffectPixel& pixel, Color color) {
    for (const auto& [dx, dy] : neighbours)
        if (is_nothing(pixel, dx, dy)) blend(pixel, dx, dy, color, full);
}

void flickering_outline(const EffectPixel& pixel, Color color) {
    for (const auto& [dx, dy] : neighbours)
        if (is_nothing(pixel, dx, dy)) blend(pixel, dx, dy, color, UA_random(full + 1));
}

bool takes_mask(PixelEffect mode) {
    return mode == EFFECT_OUTLINE_MASKED || mode == EFFECT_OUTLINE_BLACK_MASKED ||
           mode == EFFECT_OUTLINE_WHITE_MASKED || mode == EFFECT_OUTLINE_YELLOW_MASKED;
}

}  // namespace

void UA_pixel_effect(BITMAP* source, BITMAP* target, int sx, int sy, int tx, int ty, int mode, int a, int b, int mask) {
    const auto effect = static_cast<PixelEffect>(mode);
    const EffectPixel pixel{
        source, target, sx, sy, tx, ty, takes_mask(effect) ? static_cast<Color>(mask) : transparent_color};
    if (is_nothing(pixel, 0, 0)) return;
    const auto toward = [&](Color color, int strength) { blend(pixel, 0, 0, color, strength); };
    switch (effect) {
    case EFFECT_NONE: return;
    case EFFECT_SPECKLE_WHITE: return toward(white, UA_random(speckle_strength));
    case EFFECT_SPECKLE_BLACK: return toward(black, UA_random(speckle_strength));
    case EFFECT_SPECKLE_STRONG: return toward(white, a / 2 + UA_random(a - a / 2 + 1));
    case EFFECT_YELLOW: return toward(yellow, full);
    case EFFECT_FADED:
    case EFFECT_FADED_ALONE: return toward(*pixels_at(source, sx, sy), b);
    case EFFECT_OUTLINE:
    case EFFECT_OUTLINE_MASKED: return outline(pixel, UA_palette_color(a));
    case EFFECT_OUTLINE_BLACK:
    case EFFECT_OUTLINE_BLACK_MASKED: return outline(pixel, black);
    case EFFECT_OUTLINE_WHITE:
    case EFFECT_OUTLINE_WHITE_MASKED: return outline(pixel, white);
    case EFFECT_OUTLINE_YELLOW:
    case EFFECT_OUTLINE_YELLOW_MASKED: return outline(pixel, yellow);
    case EFFECT_OUTLINE_FLICKERS: return flickering_outline(pixel, UA_palette_color(a));
    case EFFECT_OUTLINE_WHITE_FLICKERS: return flickering_outline(pixel, white);
    }
}

}  // namespace nubo
