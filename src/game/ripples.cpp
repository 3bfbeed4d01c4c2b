#include "game/ripples.h"

#include "base/bitmap.h"
#include "base/log.h"
#include <algorithm>
#include <allegro.h>

namespace nubo {
namespace {

constexpr int first_height = 10000, first_damping = 6;
constexpr int slope = 32;  // of heights that moves the picture by a pixel
constexpr int center_x = view_w / 2, center_y = view_h / 2;

/// The lines of a field that have neighbours on both sides.
constexpr int inner_first = 1, inner_w = view_w - 1, inner_h = view_h - 1;

struct Corner {
    int x, y;
};

/// The pixel of the picture that lies under a cell of the field, or the nearest that there is.
Color picture_at(BITMAP* picture, Corner corner, int x, int y) {
    const int field_x = std::clamp(x, 0, view_w - 1), field_y = std::clamp(y, 0, view_h - 1);
    return *pixels_at(picture, std::clamp(corner.x + field_x, 0, view_w - 1),
                      std::clamp(corner.y + field_y, 0, view_h - 1));
}

/// Each pixel comes from where the slope of the water points to.
void displace(BITMAP* picture, const RippleField& back, Corner corner) {
    const int left = std::max(inner_first, -corner.x), right = std::min(inner_w, view_w - corner.x);
    const int top = std::max(inner_first, -corner.y), bottom = std::min(inner_h, view_h - corner.y);
    for (int y = top; y < bottom; ++y) {
        const auto &row = back[at(y)], &below = back[at(y + 1)];
        for (int x = left; x < right; ++x) {
            const int height = row[at(x)];
            const int across = (height - below[at(x)]) / slope, down = (height - row[at(x + 1)]) / slope;
            if (across == 0 && down == 0) continue;
            *pixels_at(screen_buffer, corner.x + x, corner.y + y) = picture_at(picture, corner, x + across, y + down);
        }
    }
}

/// One step of the waves; the sum of the new heights.
std::int64_t propagate(const RippleField& front, RippleField& back, int damping) {
    std::int64_t sum = 0;
    for (std::size_t y = inner_first; y < inner_h; ++y)
        for (std::size_t x = inner_first; x < inner_w; ++x) {
            const int around = front[y - 1][x] + front[y + 1][x] + front[y][x - 1] + front[y][x + 1];
            const int height = around / 2 - back[y][x];
            back[y][x] = height - (height >> damping);
            sum += back[y][x];
        }
    return sum;
}

/// The highest one at rest.
int free_ripple() {
    int slot = ripple_count - 1;
    while (slot >= 0 && ripple::active[at(slot)].acquire() != 0) --slot;
    return slot;
}

bool keep_screen() {
    if (ripple_scratch == nullptr || ripple_scratch->w != view_w)
        replace_bitmap(ripple_scratch, make_uncleared_bitmap(view_w, view_h));
    if (ripple_scratch != nullptr) blit(screen_buffer, ripple_scratch, 0, 0, 0, 0, view_w, view_h);
    return ripple_scratch != nullptr;
}

}  // namespace

int UA_add_ripple(int x, int y) {
    const int slot = free_ripple();
    if (slot == ripple_none) {
        UA_log("[ WARNING ] : No slot to assign wave displacer!");
        return ripple_none;
    }
    const std::size_t s = at(slot);
    ripple::ready[s] = ripple::limit[s] = ripple::counter[s] = 0;
    ripple::origin_x[s] = x - center_x;
    ripple::origin_y[s] = y - center_y;
    ripple::front[s] = 0;
    ripple::back[s] = 1;
    ripple::damping[s] = first_damping;
    for (RippleField& field : ripple::height[s])
        for (auto& row : field) row.fill(0);
    ripple::height[s][0][center_y][center_x] = first_height;
    ripple::active[s].publish(1);
    return slot;
}

void UA_step_ripple(int slot) {
    if (slot < 0 || slot >= ripple_count) return;
    const std::size_t s = at(slot);
    if (ripple::active[s].acquire() == 0 || !keep_screen()) return;
    ripple::ready[s] = ripple::counter[s] = 0;
    const RippleField& front = ripple::height[s][at(ripple::front[s])];
    RippleField& back = ripple::height[s][at(ripple::back[s])];
    displace(ripple_scratch, back, {ripple::origin_x[s], ripple::origin_y[s]});
    if (propagate(front, back, ripple::damping[s]) == 0) ripple::active[s].publish(0);
    std::swap(ripple::front[s], ripple::back[s]);
}

void UA_step_ready_ripples() {
    for (int slot = 0; slot < ripple_count; ++slot)
        if (ripple::ready[at(slot)] != 0) UA_step_ripple(slot);
}

}  // namespace nubo
