#include "workspace/ghosts.h"

#include "codecs/bmp_header.h"
#include "state/frames.h"
#include "state/guides.h"
#include "workspace/bmp_files.h"
#include "workspace/folders.h"
#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace nubo {
namespace {

constexpr std::size_t ghosts_max = std::size_t{2} * ghost_frames_max, memory_max = std::size_t{64} << 20;
constexpr int no_slot = -1;

// A handle that lives to the end. Of a slot without a picture there is none to be had.
struct Kept {
    int slot = no_slot;
    BITMAP* picture = nullptr;
};
std::array<Kept, ghosts_max> kept{};

void let_go(Kept& one) {
    replace_bitmap(one.picture, nullptr);
    one.slot = no_slot;
}

std::size_t bytes_of(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * sizeof(Color);
}

/// The slots to be seen, the nearest first.
std::vector<int> wanted_slots() {
    std::vector<int> slots;
    const auto add = [&slots](int slot) {
        if (slot >= 0 && slot < frame_count && slot != frame_index) slots.push_back(slot);
    };
    if (guides.ghost == GHOST_OFF) return slots;
    if (guides.pinned_frame != 0) {
        add(guides.pinned_frame - 1);
        return slots;
    }
    for (int distance = 1; distance <= ghost_frames_max; ++distance) {
        if (distance <= guides.ghosts_before) add(frame_index - distance);
        if (distance <= guides.ghosts_after) add(frame_index + distance);
    }
    return slots;
}

Kept* kept_of(int slot) {
    const auto found = std::ranges::find(kept, slot, &Kept::slot);
    return found == kept.end() ? nullptr : &*found;
}

/// What the picture of a file would take; 0 where that can't be told.
std::size_t memory_for(const FrameSlot& slot) {
    std::vector<std::uint8_t> head;
    BmpHeader header;
    const InputFile file(slot.frame());
    const bool is_known = file.is_open() && read_file(slot.frame(), bmp_head_limit, head) &&
                          read_bmp_header(head, file.size(), header) == nullptr;
    return is_known ? bytes_of(header.width, header.height) : 0;
}

/// A slot whose picture can't be had, or is too large beside the nearer ones, is kept without one: it isn't asked for
/// again and again.
void read_ghost(Kept& place, int slot) {
    std::size_t used = 0;
    for (const Kept& one : kept) used += one.picture == nullptr ? 0 : bytes_of(one.picture->w, one.picture->h);
    const FrameSlot file = slot_of_row(slot);
    const std::size_t needed = memory_for(file);
    place.slot = slot;
    if (needed == 0 || used + needed > memory_max) return;
    replace_bitmap(place.picture, load_bmp_file(file.frame()));
}

}  // namespace

std::vector<GhostPicture> shown_ghosts() {
    std::vector<GhostPicture> ghosts;
    for (const int slot : wanted_slots()) {
        const Kept* const one = kept_of(slot);
        if (one == nullptr || one->picture == nullptr) continue;
        const int distance = guides.pinned_frame != 0 ? 1 : std::abs(slot - frame_index);
        ghosts.push_back({one->picture, slot < frame_index, distance});
    }
    std::ranges::reverse(ghosts);
    return ghosts;
}

void keep_ghosts() {
    const std::vector<int> wanted = wanted_slots();
    const auto is_wanted = [&wanted](const Kept& one) {
        return one.slot == no_slot || std::ranges::find(wanted, one.slot) != wanted.end();
    };
    if (!std::ranges::all_of(kept, is_wanted))
        for (Kept& one : kept)
            if (!is_wanted(one) || one.picture == nullptr) let_go(one);  // there may be room for it now
    const auto missing = std::ranges::find_if(wanted, [](int slot) { return kept_of(slot) == nullptr; });
    if (missing != wanted.end()) read_ghost(*kept_of(no_slot), *missing);
}

void forget_ghost(int slot) {
    if (Kept* const one = kept_of(slot); slot != no_slot && one != nullptr) let_go(*one);
}

void forget_ghosts() {
    for (Kept& one : kept) let_go(one);
}

void renumber_pinned_frame(const std::function<int(int slot)>& slot_of) {
    if (guides.pinned_frame != 0) guides.pinned_frame = slot_of(guides.pinned_frame - 1) + 1;
}

}  // namespace nubo
