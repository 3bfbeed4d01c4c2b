// The colour rows of text at the start.
#include "base/color.h"
#include "framework/text.h"

namespace nubo {
namespace {

using Tones = std::array<int, text_tones>;

/// The given tones, brightest first; the rest keep the sheet's colours.
constexpr Tones tones(auto... colors) {
    static_assert(sizeof...(colors) <= text_tones);
    Tones row = filled<int, text_tones>(tone_kept);
    std::size_t at = 0;
    ((row[at++] = colors), ...);
    return row;
}

struct ColorRow {
    int row;
    Tones tones;
};
constexpr ColorRow start_rows[] = {
    {1, tones(0xdadada, 0xbebeba, 0x9da19d, 0x818581, 0x656565, 0x484844)},
    {2, tones(0xc2faff, 0x85faff, 0x48fafa, 0x0cfafa, 0x00cece, 0x009195, 0x005559, 0x001c1c)},
    {3, tones(0xfa8d48, 0xfa690c, 0xce4c00, 0x953400, 0x592000)},
    {4, tones(0x000081, 0x000082, 0x000083, 0x000084, 0x000085, 0x000086)},
    {5, tones(0x000000, 0x000000, 0x000000, 0x000000, 0x000000, 0x000000)},
    {6, tones(0x957959, 0x81694c, 0x6d5940, 0x5d4c34, 0x483c2c, 0x342c20, 0x241c14, 0x100c08)},
    {7, tones(0x597195, 0x4c6181, 0x40556d, 0x34445d, 0x2c3848, 0x202834, 0x141c24, 0x080c10)},
    {8, tones(0x7d7d95, 0x696d85, 0x595d71, 0x4c4c5d, 0x3c3c48, 0x2c2c34, 0x1c1c24, 0x0c0c10)},
    {9, tones(0x959159, 0x817d4c, 0x6d6d40, 0x5d5934, 0x48482c, 0x343420, 0x242414, 0x101008)},
    {10, tones(0x89a159, 0x798d4c, 0x697940, 0x556538, 0x44502c, 0x303820, 0x202414, 0x101008)},
    {11, tones(0xc285ff, 0xa548fa, 0x890cfa, 0x6900ce, 0x4c0095, 0x2c0059, 0x0c001c, 0xdadada)},
    {12, tones(0xdeffc2, 0xc2ff85, 0xa1fa48, 0x85fa0c, 0x65ce00, 0x489500, 0x285900, 0x0c1c00)},
    {14, tones(0xffc2c2, 0xff8585, 0xfa4848, 0xfa0c0c, 0xce0000, 0x950000, 0x590000, 0x1c0000)},
    {15, tones(0x5d919d, 0x507d89, 0x446d75, 0x385961, 0x2c484c, 0x203438, 0x203438, 0x142024)},
    {16, tones(0xffeec2, 0xffde85, 0xfad248, 0xfac20c, 0xce9d00, 0x956d00, 0x594000, 0x1c1400)},
    {TEXT_GRAY, tones(0xbebeba, 0x9da19d)},
    {23, tones(0xfa690c, 0xce4c00)},
    {TEXT_YELLOW, tones(0xfac20c, 0xce9d00)},
    {28, tones(0x7d7d95, 0x696d85)},
    {TEXT_GREEN, tones(0xa1fa48, 0x65ce00)},
    {33, tones(0xfa8d48, 0xfa690c)},
    {TEXT_RED, tones(0xfa0c0c, 0xce0000)},
    {35, tones(0x385961, 0x2c484c)},
    {TEXT_RED_BUTTON, tones(0xfac20c, 0xce9d00)},
    {TEXT_BUTTON, tones(0x000000, 0x000000)},
    {TEXT_LIGHT_ALT, tones(0xfa0c0c, 0xfa0c0c)},
    {TEXT_SELECTED, tones(0x005cbc, 0x005cbc)},
    {TEXT_HIGHLIGHT, tones(0x404040, 0x404040)},
    {TEXT_LIGHT, tones(0xdadada, 0xdadada)},
    {TEXT_ORANGE, tones(0xf58f2a, 0xf58f2a)},
};

}  // namespace

void UA_init_text_colors() {
    for (Tones& row : text_colors) row.fill(tone_kept);
    for (const ColorRow& start : start_rows) text_colors[static_cast<std::size_t>(start.row)] = start.tones;
    const auto alert = static_cast<Color>(text_colors[TEXT_LIGHT_ALT][0]);
    set_text_color(TEXT_LIGHT_ALT_DARK, dark_text_color(alert));
}

void set_text_color(TextColor row, Color first, Color second) {
    text_colors[row][0] = static_cast<int>(first);
    text_colors[row][1] = static_cast<int>(second);
}

Color dark_text_color(Color color) { return pack_color(red_of(color) / 2, green_of(color) / 4, blue_of(color) / 4); }

}  // namespace nubo
