#include "windows/kit/quick_pan.h"

#include "base/bitmap.h"
#include "base/keys.h"
#include "base/log.h"
#include "codecs/blend.h"
#include "gui/prompt.h"
#include "gui/shapes.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/mouse.h"
#include "state/options.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/view.h"
#include "view/view.h"
#include "windows/kit/draw_elements.h"
#include "workspace/nail.h"
#include <algorithm>

namespace nubo {
namespace {

constexpr int map_x = 10, map_y = 10, map_w = 300, map_h = 218;  // the picture; its element is two pixels higher
BITMAP* minimap = nullptr;                                       // while it is shown; `quick_pan` owns it

bool is_held() { return mouse_middle != 0 || hotkey_held(HOTKEY_QUICK_PAN); }

void update_while_held(const Prompt& prompt, int message) {
    while (is_held() && exit_requested == 0) {
        prompt.keep(message);
        update_screen(UPDATE_NORMAL);
    }
}

/// The Frame at the map's size: by the mean of its pixels, or enlarged where it is smaller than the map.
OwnedBitmap draw_map() {
    OwnedBitmap map = make_bitmap(map_w, map_h);
    if (!map) return map;
    if (current_frame->w < map_w || current_frame->h < map_h)
        stretch_blit(current_frame, map.get(), 0, 0, current_frame->w, current_frame->h, 0, 0, map_w, map_h);
    else
        reduce_bitmap(current_frame, map.get(), 0, 0, map_w, map_h);
    return map;
}

/// The pan that puts the Frame's pixel under the mouse into the middle of the view.
int pan_of_map(int frame_size, int map_size, int mouse_in_map, float view_size) {
    const float pixels = static_cast<float>(frame_size) / static_cast<float>(map_size);
    return static_cast<int>(pixels * static_cast<float>(mouse_in_map) - view_size * 0.5F);
}

void go_to_mouse() {
    const int x = mouse_x - map_x, y = mouse_y - map_y;
    if (x < 0 || y < 0 || x >= map_w || y >= map_h + 2) return;
    const auto level = static_cast<std::size_t>(static_cast<int>(zoom));
    pan_x = pan_of_map(current_frame->w, map_w, x, zoom_view_w[level]);
    pan_y = pan_of_map(current_frame->h, map_h, y, zoom_view_h[level]);
    view_clamp();
}

}  // namespace

void draw_minimap(int slot) {
    const int x = gui::x[at(slot)], y = gui::y[at(slot)], w = gui::w[at(slot)], h = gui::h[at(slot)];
    const int border = static_cast<int>(ui_border);
    hline(screen_buffer, x, y, x + w - 1, border);
    vline(screen_buffer, x, y, y + h - 1, border);
    hline(screen_buffer, x, y + h - 1, x + w - 1, border);
    if (minimap == nullptr) return;
    trans_blit(minimap, screen_buffer, x, y + 1, std::clamp<int>(opt_quick_pan_strength, 1, 254));
    const auto level = static_cast<std::size_t>(shown.zoom);
    const int half_w = static_cast<int>(zoom_view_w[level] * map_w / static_cast<float>(current_frame->w)) / 2;
    const int half_h = static_cast<int>(zoom_view_h[level] * map_h / static_cast<float>(current_frame->h)) / 2;
    GUI_ants(shown.mouse_x - half_w, shown.mouse_y - half_h, shown.mouse_x + half_w, shown.mouse_y + half_h);
}

void quick_pan() {
    const Prompt prompt;
    if (current_frame->w <= view_w && current_frame->h <= view_h) {
        update_while_held(prompt, MESSAGE_QUICK_PAN_TOO_SMALL);
        return;
    }
    const int slot = GUI_find_free(true);
    if (slot < 0) {
        UA_log("[ ERROR ] : Cannot create help system hidden GUI object!");
        return;
    }
    const OwnedBitmap map = draw_map();
    minimap = map.get();
    GUI_clear_element(slot);
    gui::type[at(slot)] = ELEMENT_MINIMAP;
    gui::x[at(slot)] = map_x;
    gui::y[at(slot)] = map_y;
    gui::w[at(slot)] = map_w;
    gui::h[at(slot)] = map_h + 2;
    gui::hot[at(slot)] = 0;
    gui::active[at(slot)] = 1;
    update_while_held(prompt, MESSAGE_NONE);
    go_to_mouse();
    GUI_clear_element(slot);
    minimap = nullptr;
}

}  // namespace nubo
