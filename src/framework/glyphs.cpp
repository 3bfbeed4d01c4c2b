#include "framework/glyphs.h"

#include "base/bitmap.h"
#include "framework/effects.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr std::size_t kept_sets = 32;  // more than the rows and fonts that one screen shows
std::array<GlyphSet, kept_sets> sets;
std::size_t next_replaced = 0;

Color recolored(Color pixel, const std::array<int, text_tones>& from, const std::array<int, text_tones>& to) {
    for (std::size_t tone = 0; tone < from.size(); ++tone)
        if (pixel == static_cast<Color>(from[tone]))
            return to[tone] == tone_kept ? pixel : static_cast<Color>(to[tone]);
    return pixel;
}

}  // namespace

std::span<const Color> GlyphSet::glyph(unsigned char character) {
    Color* const place = pixels_.data() + character * glyph_size_;
    if (!is_ready_[character]) {
        const FontSlot& font = font_slots[static_cast<std::size_t>(slot_)];
        Color* to = place;
        for (int y = 0; y < font.cell_h; ++y) {
            const Color* const from = pixels_at(font.sheet, font.glyph_x[character], y);
            to = std::transform(from, from + font.cell_w, to, [this](Color c) { return recolored(c, from_, to_); });
        }
        is_ready_[character] = true;
    }
    return {place, glyph_size_};
}

void GlyphSet::refresh(int slot, int row) {
    const FontSlot& font = font_slots[static_cast<std::size_t>(slot)];
    Tones from{}, to = filled<int, text_tones>(tone_kept);
    for (int tone = 0; tone < text_tones; ++tone)
        from[static_cast<std::size_t>(tone)] = static_cast<int>(UA_palette_color(first_tone + tone));
    if (row > TEXT_OWN_COLORS && row < TEXT_COLOR_ROWS) to = text_colors[static_cast<std::size_t>(row)];
    if (is_of(slot, row) && generation_ == font.generation && from == from_ && to == to_) return;
    slot_ = slot;
    row_ = row;
    generation_ = font.generation;
    from_ = from;
    to_ = to;
    glyph_size_ = static_cast<std::size_t>(font.cell_w) * static_cast<std::size_t>(font.cell_h);
    pixels_.resize(character_count * glyph_size_);
    is_ready_.fill(false);
}

GlyphSet& glyph_set(int slot, int row) {
    auto found = std::find_if(sets.begin(), sets.end(), [&](const GlyphSet& set) { return set.is_of(slot, row); });
    if (found == sets.end()) found = sets.begin() + static_cast<std::ptrdiff_t>(next_replaced++ % kept_sets);
    found->refresh(slot, row);
    return *found;
}

}  // namespace nubo
