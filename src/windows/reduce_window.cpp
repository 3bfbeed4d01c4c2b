#include "windows/reduce_window.h"

#include "base/memory.h"
#include "codecs/color_use.h"
#include "codecs/remap.h"
#include "paint/area.h"
#include "paint/palette.h"
#include "paint/surfaces.h"
#include "paint/undo.h"
#include "state/run.h"
#include "state/view.h"
#include "view/frame_tiles.h"
#include "windows/kit/run_window.h"
#include "windows/kit/window_rows.h"
#include "workspace/frame_memory.h"
#include "workspace/notices.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>

namespace nubo {
namespace {

// ---- The window as rows ---------------------------------------------------------------------------------------------

enum ReduceSlot : int {
    REDUCE_COUNT = slot_content,
    REDUCE_NUMBER,
    REDUCE_TO_BEST,
    REDUCE_TO_FAVORITES,
    REDUCE_DITHERING_FIRST,  // one for each Dithering
    REDUCE_OKAY = REDUCE_DITHERING_FIRST + int{DITHERING_COUNT},
    REDUCE_CANCEL,
    REDUCE_SLOTS
};

constexpr int window_w = 319, window_h = 32, colors_min = 2, colors_max = 256;

constexpr ElementRow dithering_row(Dithering dithering, int x, Message tooltip, const char* text) {
    return push_row(REDUCE_DITHERING_FIRST + int{dithering}, x, 22, 62, tooltip, text);
}
constexpr ElementRow end_row(int slot, int x, int w, Label label) {
    return {.slot = slot, .type = ELEMENT_BUTTON_LIT, .x = x, .y = 22, .w = w, .label = label, .left = ACTION_CLICK};
}
constinit std::array<char, 32> count_text{};

constexpr std::array<ElementRow, REDUCE_SLOTS - slot_content> rows{{
    {.slot = REDUCE_COUNT, .x = 191, .y = 2, .w = 126, .fill = &ui_border, .text = count_text.data()},
    slider_row(REDUCE_NUMBER, 2, 12, 188, MESSAGE_REDUCE_NUMBER, {colors_min, colors_max, 1}),
    push_row(REDUCE_TO_BEST, 191, 12, 63, MESSAGE_REDUCE_TO_BEST, "BEST"),
    push_row(REDUCE_TO_FAVORITES, 255, 12, 62, MESSAGE_REDUCE_TO_FAVORITES, "FAVORITES"),
    dithering_row(DITHERING_OFF, 2, MESSAGE_REDUCE_OFF, "OFF"),
    dithering_row(DITHERING_BAYER, 65, MESSAGE_REDUCE_BAYER, "BAYER"),
    dithering_row(DITHERING_DIFFUSE, 128, MESSAGE_REDUCE_DIFFUSE, "DIFFUSE"),
    end_row(REDUCE_OKAY, 191, 63, LABEL_OKAY),
    end_row(REDUCE_CANCEL, 255, 62, LABEL_CANCEL),
}};

constexpr WindowRow window{.y = 207,
                           .w = window_w,
                           .h = window_h,
                           .child_count = REDUCE_SLOTS,
                           .title_text = "REDUCE",
                           .title_w = 188,
                           .elements = rows,
                           .okay = REDUCE_OKAY,
                           .cancel = REDUCE_CANCEL,
                           .outside = OUTSIDE_HIDES,
                           .pans = true};

// ---- What it makes of the Frame -------------------------------------------------------------------------------------

/// What the user has chosen, till the program ends.
struct ReduceChoice {
    int number = 16;
    bool to_favorites = false;
    int dithering = DITHERING_OFF;
    bool operator==(const ReduceChoice&) const = default;
};
constinit ReduceChoice choice;
constinit Word number_slid = 0;

/// The first and the last pixel of the Frame that are seen along one axis: all where the view goes over a seam.
struct Seen {
    int first, last;
};
Seen seen_along(int pan, float view_size, int extent, bool is_tiled) {
    const int end = pan + static_cast<int>(std::ceil(view_size));
    if (is_tiled && (pan < 0 || end > extent)) return {0, extent - 1};
    return {std::max(pan, 0), std::min(end, extent) - 1};
}

Area area_in_view() {
    const auto level = at(zoom);
    const Seen across = seen_along(pan_x, zoom_view_w[level], current_frame->w, tiles_across());
    const Seen down = seen_along(pan_y, zoom_view_h[level], current_frame->h, tiles_down());
    return {across.first, down.first, across.last, down.last};
}

/// The Frame in fewer colours, while its own picture waits behind.
class Reducing {
public:
    /// False without memory for it.
    bool begin() {
        OwnedBitmap kept = copy_bitmap(current_frame);
        const auto look = [&] { return use_.emplace(mask_color).add(kept.get()), true; };
        if (!kept || !unless_memory_ends(look, false)) return false;
        frame_behind_preview = kept.release();
        return true;
    }

    /// Shows what comes of a choice, if it isn't shown already. In one that is larger than the screen only what is seen
    /// is worked out.
    void show(const ReduceChoice& wanted) {
        const bool is_small = current_frame->w <= view_w && current_frame->h <= view_h;
        const Area area = is_small ? Area{0, 0, current_frame->w - 1, current_frame->h - 1} : area_in_view();
        const bool is_shown = shown_ == wanted && seen_.left == area.left && seen_.top == area.top &&
                              seen_.right == area.right && seen_.bottom == area.bottom;
        if (is_shown || area.width() < 1 || area.height() < 1) return;
        if (!unless_memory_ends([&] { return remap(wanted, area), true; }, false))
            return flash_message(MESSAGE_NO_MEMORY);
        shown_ = wanted;
        seen_ = area;
        tell_count();
    }

    /// The Frame itself comes back, and becomes what was shown as a whole.
    void carry_out() {
        end_frame_preview();
        if (!shown_ || !nearest_) return flash_message(MESSAGE_NO_MEMORY);
        if (!save_undo(false)) return;
        const auto dithering = static_cast<Dithering>(shown_->dithering);
        if (!unless_memory_ends([&] { return remap_pixels(current_frame, *nearest_, dithering), true; }, false))
            flash_message(MESSAGE_NO_MEMORY);
        note_all_touched();
    }

private:
    /// The mask colour is one of the number, where the Frame has it.
    void choose_colors(const ReduceChoice& wanted) {
        if (shown_ && shown_->number == wanted.number && shown_->to_favorites == wanted.to_favorites) return;
        const auto others = static_cast<std::size_t>(wanted.number - (use_->has_kept() ? 1 : 0));
        if (wanted.to_favorites)
            nearest_.emplace(palette(), mask_color);
        else
            nearest_.emplace(use_->best_colors(others), mask_color);
    }

    void remap(const ReduceChoice& wanted, const Area& area) {
        choose_colors(wanted);
        blit(frame_behind_preview, current_frame, seen_.left, seen_.top, seen_.left, seen_.top, seen_.width(),
             seen_.height());
        remap_pixels(current_frame, area.left, area.top, area.width(), area.height(), *nearest_,
                     static_cast<Dithering>(wanted.dithering));
        note_all_touched();
    }

    void tell_count() const {
        const std::size_t after = nearest_->colors().size() + (use_->has_kept() ? 1 : 0);
        std::snprintf(count_text.data(), count_text.size(), "%zu > %zu", use_->count(), std::min(after, use_->count()));
    }

    std::optional<ColorUse> use_;
    std::optional<NearestColor> nearest_;
    std::optional<ReduceChoice> shown_;
    Area seen_{0, 0, -1, -1};
};

// ---- The window -----------------------------------------------------------------------------------------------------

void light_choice() {
    GUI_light_button(REDUCE_TO_BEST, !choice.to_favorites);
    GUI_light_button(REDUCE_TO_FAVORITES, choice.to_favorites);
    for (int i = 0; i < DITHERING_COUNT; ++i) GUI_light_button(REDUCE_DITHERING_FIRST + i, choice.dithering == i);
}

WindowPass serve() {
    if (take_click(REDUCE_TO_BEST) > 0) choice.to_favorites = false;
    if (take_click(REDUCE_TO_FAVORITES) > 0) choice.to_favorites = true;
    for (int i = 0; i < DITHERING_COUNT; ++i)
        if (take_click(REDUCE_DITHERING_FIRST + i) > 0) choice.dithering = i;
    return WINDOW_STAYS;
}

}  // namespace

void reduce_window() {
    Reducing reducing;
    if (!reducing.begin()) return flash_message(MESSAGE_NO_MEMORY);
    const auto built = [] {
        number_slid = choice.number;
        GUI_link_slider(REDUCE_NUMBER, &number_slid);
    };
    const auto show = [&] {
        choice.number = std::clamp<int>(number_slid, colors_min, colors_max);
        light_choice();
        reducing.show(choice);
    };
    if (run_window(window, {.built = built, .show = show, .serve = serve}) == WINDOW_DONE)
        reducing.carry_out();
    else
        end_frame_preview();
}

}  // namespace nubo
