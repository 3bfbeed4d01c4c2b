#include "windows/colors/free_color.h"

#include "base/bitmap.h"
#include "windows/kit/all_frames.h"
#include "windows/kit/confirm_box.h"
#include "workspace/notices.h"
#include <algorithm>
#include <span>
#include <string>
#include <vector>

namespace nubo {
namespace {

constexpr Color all_colors = 1 << 24;

std::span<Color> row_of(BITMAP* picture, int y) {
    return {pixels_at(picture, 0, y), static_cast<std::size_t>(picture->w)};
}

bool holds(BITMAP* picture, Color color) {
    for (int y = 0; y < picture->h; ++y)
        if (std::ranges::find(row_of(picture, y), color) != row_of(picture, y).end()) return true;
    return false;
}

void replace(BITMAP* picture, Color from, Color to) {
    for (int y = 0; y < picture->h; ++y) std::ranges::replace(row_of(picture, y), from, to);
}

/// Those of few levels a channel first, which are far from each other.
std::optional<Color> most_vivid_free(const std::vector<bool>& is_held) {
    constexpr unsigned top = 255;
    for (const unsigned step : {255U, 85U, 51U, 17U, 5U, 1U})
        for (unsigned green = 0; green <= top; green += step)
            for (unsigned red = 0; red <= top; red += step)
                for (unsigned blue = 0; blue <= top; blue += step)
                    if (const Color color = red << 16 | (top - green) << 8 | blue; !is_held[color]) return color;
    return std::nullopt;
}

}  // namespace

std::optional<Color> free_color() {
    std::vector<bool> is_held(all_colors);
    is_held[transparent_color] = true;  // means nothing in a Cel
    const bool is_whole = look_at_all_frames(LABEL_LOOKING_AT_FRAMES, [&](BITMAP* picture) {
        for (int y = 0; y < picture->h; ++y)
            for (const Color color : row_of(picture, y)) is_held[color % all_colors] = true;
    });
    return is_whole ? most_vivid_free(is_held) : std::nullopt;
}

void ask_to_carry_mask(Color old_mask, Color new_mask) {
    bool is_held = false;
    const bool is_whole = look_at_all_frames(LABEL_LOOKING_AT_FRAMES,
                                             [&](BITMAP* picture) { is_held = is_held || holds(picture, old_mask); });
    if (!is_whole || !is_held || !confirm(LABEL_CARRY_MASK, LABEL_CARRY_MASK_HOW)) return;
    const FramesChanged changed = change_all_frames(
        LABEL_CHANGING_FRAMES, {.is_needed = [=](BITMAP* picture) { return holds(picture, old_mask); },
                                .make = [=](BITMAP* frame) { replace(frame, old_mask, new_mask); }});
    flash_text(std::to_string(changed.count) + (changed.count == 1 ? " FRAME CHANGED" : " FRAMES CHANGED") +
               (changed.is_whole ? "" : ", NOT ALL"));
}

}  // namespace nubo
