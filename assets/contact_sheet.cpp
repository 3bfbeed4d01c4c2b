#include "contact_sheet.h"

#include "base/color.h"
#include <algorithm>

namespace nubo {

namespace {

constexpr int scale = 4, gap = 8;
constexpr Color desk_color = pack_color(48, 52, 60), clear_color = pack_color(88, 92, 104);

/// Half way to the opposite brightness, so that a grid line shows on any ground.
Color grid_color(Color under) {
    const int light = red_of(under) + green_of(under) + blue_of(under);
    const int toward = light > 3 * 128 ? 0 : 255;
    return pack_color((3 * red_of(under) + toward) / 4, (3 * green_of(under) + toward) / 4,
                      (3 * blue_of(under) + toward) / 4);
}

bool is_grid_line(int at, int cell) { return cell > 0 && at % (cell * scale) == 0; }

void draw_panel(BITMAP* sheet, const ContactPanel& panel, int top) {
    for (int y = 0; y < panel.picture->h * scale; ++y) {
        Color* const to = pixels_at(sheet, gap, top + y);
        const Color* const from = pixels_at(panel.picture.get(), 0, y / scale);
        for (int x = 0; x < panel.picture->w * scale; ++x) {
            const Color color = from[x / scale] == transparent_color ? clear_color : from[x / scale];
            const bool on_grid = is_grid_line(x, panel.cell_width) || is_grid_line(y, panel.cell_height);
            to[x] = on_grid ? grid_color(color) : color;
        }
    }
}

bool is_clear_row(BITMAP* picture, int y) {
    const Color* const row = pixels_at(picture, 0, y);
    return std::all_of(row, row + picture->w, [](Color pixel) { return pixel == transparent_color; });
}

/// The panel without the rows of cells above and below that hold nothing.
ContactPanel trimmed(const ContactPanel& panel) {
    const int step = std::max(panel.cell_height, 1);
    int top = 0, bottom = panel.picture->h;
    while (bottom > 1 && is_clear_row(panel.picture.get(), bottom - 1)) --bottom;
    while (top < bottom - 1 && is_clear_row(panel.picture.get(), top)) ++top;
    top -= top % step;
    ContactPanel part{make_bitmap(panel.picture->w, bottom - top), panel.cell_width, panel.cell_height};
    if (part.picture) blit(panel.picture.get(), part.picture.get(), 0, top, 0, 0, panel.picture->w, bottom - top);
    return part;
}

}  // namespace

OwnedBitmap draw_contact_sheet(const std::vector<ContactPanel>& panels) {
    int width = 0, height = gap;
    std::vector<ContactPanel> parts;
    for (const ContactPanel& panel : panels) {
        if (panel.picture) parts.push_back(trimmed(panel));
        if (!panel.picture || !parts.back().picture) return nullptr;
    }
    for (const ContactPanel& panel : parts) {
        width = std::max(width, panel.picture->w * scale + 2 * gap);
        height += panel.picture->h * scale + gap;
    }
    OwnedBitmap sheet = make_bitmap(width, height, desk_color);
    if (!sheet) return nullptr;
    int top = gap;
    for (const ContactPanel& panel : parts) {
        draw_panel(sheet.get(), panel, top);
        top += panel.picture->h * scale + gap;
    }
    return sheet;
}

}  // namespace nubo
