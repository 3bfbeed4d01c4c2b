#include "icons.h"

#include "program_files.h"
#include "windows/emblem.h"
#include <cstdio>
#include <string>

namespace nubo {

namespace {

constexpr int sides[] = {16, 24, 32, 48, 64, 128, 256};
constexpr int alpha_shift = 24;

// ---- A Workspace: three Frames on a pile, the first with a picture --------------------------------------------------

constexpr Color outline = 0xff180c24, paper = 0xfffff8ec;
constexpr int picture_side = icon_side / 2, card_side = picture_side + 4, card_step = 5, cards = 3;

void draw_card(BITMAP* icon, int x, int y) {
    rectfill(icon, x, y, x + card_side - 1, y + card_side - 1, static_cast<int>(outline));
    rectfill(icon, x + 1, y + 1, x + card_side - 2, y + card_side - 2, static_cast<int>(paper));
}

OwnedBitmap draw_workspace_icon(BITMAP* program_icon) {
    OwnedBitmap icon = make_bitmap(icon_side, icon_side), picture = scaled_icon(program_icon, picture_side);
    if (!icon || !picture) return nullptr;
    for (int card = cards - 1; card >= 0; --card)
        draw_card(icon.get(), 1 + card * card_step, 1 + (cards - 1 - card) * card_step);
    constexpr int left = 1 + 2, top = 1 + (cards - 1) * card_step + 2;
    for (int y = 0; y < picture_side; ++y)
        for (int x = 0; x < picture_side; ++x) {
            const Color color = *pixels_at(picture.get(), x, y);
            if (color >> alpha_shift > 127) *pixels_at(icon.get(), left + x, top + y) = color;
        }
    return icon;
}

// ---- Files ----------------------------------------------------------------------------------------------------------

/// A square for each run of one colour in a row, so that it stays sharp at any size.
std::string svg_of(BITMAP* icon) {
    const std::string side = std::to_string(icon_side);
    std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + side + " " + side +
                       "\" shape-rendering=\"crispEdges\">\n";
    for (int y = 0; y < icon_side; ++y)
        for (int x = 0, end = 0; x < icon_side; x = end) {
            const Color color = *pixels_at(icon, x, y);
            while (end < icon_side && *pixels_at(icon, end, y) == color) ++end;
            char square[96];
            std::snprintf(square, sizeof square, "<path fill=\"#%06x\" d=\"M%d %dh%dv1h-%dz\"/>\n", color & 0xffffff, x,
                          y, end - x, end - x);
            if (color >> alpha_shift != 0) text += square;
        }
    return text + "</svg>\n";
}

bool write_icon(BITMAP* icon, const std::filesystem::path& folder, const std::string& name) {
    for (const int side : sides) {
        const OwnedBitmap scaled = scaled_icon(icon, side);
        if (!scaled || !write_png(folder / (name + "-" + std::to_string(side) + ".png"), scaled.get())) return false;
    }
    return write_bytes(folder / (name + ".svg"), svg_of(icon));
}

}  // namespace

bool make_icons(BITMAP* logo, const std::filesystem::path& folder) {
    const OwnedBitmap icon = draw_icon(logo);
    const OwnedBitmap workspace = icon ? draw_workspace_icon(icon.get()) : nullptr;
    if (!workspace) return std::fprintf(stderr, "The icons can't be drawn.\n"), false;
    return write_icon(icon.get(), folder, "nubo") && write_icon(workspace.get(), folder, "workspace");
}

}  // namespace nubo
