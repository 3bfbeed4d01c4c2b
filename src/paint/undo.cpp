#include "paint/undo.h"

#include "base/bitmap_memory.h"
#include "base/log.h"
#include "paint/surfaces.h"
#include "state/cel.h"
#include "state/frames.h"
#include "state/messages.h"
#include "state/options.h"
#include "state/run.h"
#include "state/status.h"
#include <algorithm>
#include <utility>

namespace nubo {
namespace {

OwnedBitmap (*copy_of)(BITMAP* source) = copy_bitmap;

/// One of the two chains: the columns of state/frames.h that belong together, and the line that tells a full pool.
struct Chain {
    std::array<BITMAP*, undo_depth_max>& slots;
    std::array<int, undo_depth_max>& age;
    int& newest;
    const char* full;
};
constexpr Chain undo_chain{undo_slots, undo_age, newest_undo,
                           "[ ERROR ] : Couldn't locate a free undo slot to save to!"};
constexpr Chain redo_chain{redo_slots, redo_age, newest_redo,
                           "[ ERROR ] : Couldn't locate a free redo slot to save to!"};

unsigned depth() { return static_cast<unsigned>(opt_undo_depth); }

/// Frees the bitmaps that a lowered depth has put out of reach.
void free_beyond_depth(const Chain& chain) {
    for (unsigned i = depth(); i < undo_depth_max; ++i) {
        replace_bitmap(chain.slots[i], nullptr);
        chain.age[i] = undo_free;
    }
}

/// The slot for the next state: the lowest that is free, or will be once all states are one older; -1 if none.
int slot_for_next(const Chain& chain) {
    for (unsigned i = 0; i < depth(); ++i)
        if (chain.age[i] == undo_free || chain.age[i] + 1 >= opt_undo_depth) return static_cast<int>(i);
    return -1;
}

bool fits_frame(const BITMAP* bitmap) {
    return bitmap != nullptr && bitmap->w == current_frame->w && bitmap->h == current_frame->h;
}

/// The place of a bitmap of either chain that holds no state any more; null if there is none.
BITMAP** find_idle() {
    for (const Chain& chain : {undo_chain, redo_chain})
        for (unsigned i = 0; i < undo_depth_max; ++i)
            if (chain.age[i] == undo_free && fits_frame(chain.slots[i])) return &chain.slots[i];
    return nullptr;
}

/// Memory for the next state, made ready by `prepare_undo_memory`; its first `spare_rows` rows have been touched.
BITMAP* spare = nullptr;
int spare_rows = 0;

/// An idle bitmap or the spare one, taken from its place; null if there is neither. So the two chains together hold as
/// many bitmaps as there are states, and not twice the depth.
OwnedBitmap take_idle() {
    if (BITMAP** const idle = find_idle()) return OwnedBitmap(std::exchange(*idle, nullptr));
    if (!fits_frame(spare)) return nullptr;
    take_rows(spare, spare_rows, spare->h - spare_rows);
    return OwnedBitmap(std::exchange(spare, nullptr));
}

/// Whether the next state of a chain will need memory that neither chain has.
bool wants_memory(const Chain& chain) {
    const int slot = slot_for_next(chain);
    return slot >= 0 && !fits_frame(chain.slots[static_cast<unsigned>(slot)]) && find_idle() == nullptr;
}

/// Copies the Frame into a slot, whose bitmap is made if there is none of the Frame's size. False if it can't be had.
bool copy_frame_to(BITMAP*& slot) {
    if (!fits_frame(slot)) replace_bitmap(slot, take_idle());
    if (slot == nullptr) {
        slot = copy_of(current_frame).release();
        return slot != nullptr;
    }
    blit(current_frame, slot, 0, 0, 0, 0, current_frame->w, current_frame->h);
    return true;
}

bool refuse_for_memory() {
    UA_log("[ ERROR ] : No memory for an undo copy of %d x %d pixels. Nothing was changed.", current_frame->w,
           current_frame->h);
    status_message = MESSAGE_UNDO_MEMORY;
    status_timer = flash_ticks;
    return false;
}

// ---- The Cel that a state brings along -----------------------------------------------------------------------------

/// It goes with one state of either chain. No more are needed: an area that was cut elsewhere lands before anything
/// else is done to the Frame, and the chains end with the visit.
struct CarriedCel {
    const Chain* chain = nullptr;
    int slot = 0;
    CelAside cel;
    bool goes_with(const Chain& its_chain, int its_slot) const { return chain == &its_chain && slot == its_slot; }
};
constinit CarriedCel carried;

void drop_carried_cel() {
    free_cel(carried.cel);
    carried = {};
}

/// The state is given back, and what was there before has become the newest of the other chain.
bool exchange_carried_cel(const Chain& from, int slot, const Chain& to) {
    if (!carried.goes_with(from, slot)) return false;
    exchange_cel(carried.cel);
    carried.chain = &to;
    carried.slot = to.newest;
    return true;
}

// ---- States --------------------------------------------------------------------------------------------------------

/// The state in `slot` is the newest now: all others are one older, and one may be too old.
void make_newest(const Chain& chain, int slot) {
    if (carried.goes_with(chain, slot)) drop_carried_cel();
    for (unsigned i = 0; i < depth(); ++i)
        if (chain.age[i] != undo_free && ++chain.age[i] >= opt_undo_depth) chain.age[i] = undo_free;
    chain.age[static_cast<unsigned>(slot)] = 0;
    chain.newest = slot;
}

bool save_state(const Chain& chain) {
    free_beyond_depth(chain);
    const int slot = slot_for_next(chain);
    if (slot < 0) {
        UA_log(chain.full);
        return false;
    }
    // The memory comes first: on refusal the ages still tell the chain as it was.
    if (!copy_frame_to(chain.slots[static_cast<unsigned>(slot)])) return refuse_for_memory();
    make_newest(chain, slot);
    return true;
}

void empty_redo() {
    redo_age.fill(undo_free);
    if (carried.chain == &redo_chain) drop_carried_cel();
}

/// The slot of the newest state, -1 in an empty chain.
int slot_of_newest(const Chain& chain) {
    for (unsigned i = 0; i < depth(); ++i)
        if (chain.age[i] == 0) return static_cast<int>(i);
    return -1;
}

/// The newest state of a chain goes, the others become the newer by one.
void age_down(std::array<int, undo_depth_max>& ages) {
    for (int& age : ages)
        if (age != undo_free) --age;  // 0 becomes free
}

/// Gives the state of a slot back to the Frame and drops it from its chain. The Frame of now is saved in the other.
bool take_state(const Chain& from, int slot, const Chain& to) {
    blit(from.slots[static_cast<unsigned>(slot)], current_frame, 0, 0, 0, 0, current_frame->w, current_frame->h);
    age_down(from.age);
    return exchange_carried_cel(from, slot, to);
}

// ---- Steps ---------------------------------------------------------------------------------------------------------

constinit UndoStep opened;
constinit std::array<UndoStep, undo_depth_max> waiting{};  // the newest first; no two of one slot

void free_step(UndoStep& step) {
    replace_bitmap(step.frame, nullptr);
    step = {};
}

/// Makes the step's picture the newest undo state.
void add_to_chain(UndoStep& step) {
    free_beyond_depth(undo_chain);
    if (const int slot = slot_for_next(undo_chain); slot >= 0) {
        replace_bitmap(undo_slots[static_cast<unsigned>(slot)], OwnedBitmap(std::exchange(step.frame, nullptr)));
        make_newest(undo_chain, slot);
        empty_redo();
    }
    free_step(step);
}

/// No more wait than the chain may hold.
void let_wait(UndoStep& step) {
    free_step(waiting.back());
    std::rotate(waiting.begin(), waiting.end() - 1, waiting.end());
    waiting.front() = std::exchange(step, {});
    for (unsigned i = depth(); i < undo_depth_max; ++i) free_step(waiting[i]);
}

}  // namespace

bool save_undo(bool keep_redo) {
    if (!save_state(undo_chain)) return false;
    if (!keep_redo) empty_redo();
    return true;
}

bool save_redo() { return save_state(redo_chain); }

bool undo_last() {
    const int slot = slot_of_newest(undo_chain);
    return slot >= 0 && save_redo() && take_state(undo_chain, slot, redo_chain);
}

bool redo_last() {
    const int slot = slot_of_newest(redo_chain);
    return slot >= 0 && save_undo(true) && take_state(redo_chain, slot, undo_chain);
}

bool take_step() {
    OwnedBitmap frame = take_idle();
    if (frame)
        blit(current_frame, frame.get(), 0, 0, 0, 0, current_frame->w, current_frame->h);
    else
        frame = copy_of(current_frame);
    if (!frame) return refuse_for_memory();
    free_step(opened);
    opened = {frame_index, frame.release()};
    return true;
}

const UndoStep& open_step() { return opened; }

bool step_is_of_frame() { return opened.slot == frame_index && fits_frame(opened.frame); }

void count_step() {
    if (step_is_of_frame())
        add_to_chain(opened);
    else if (opened.frame != nullptr)
        let_wait(opened);
}

void drop_step() { free_step(opened); }

bool take_back_step() {
    if (fits_frame(opened.frame))
        blit(opened.frame, current_frame, 0, 0, 0, 0, current_frame->w, current_frame->h);
    else if (OwnedBitmap frame = copy_of(opened.frame); !frame || !adopt_frame(std::move(frame)))
        return refuse_for_memory();
    drop_step();
    return true;
}

void give_step_cel(CelAside given) {
    drop_carried_cel();
    carried = {&undo_chain, newest_undo, given};
}

void take_up_waiting_step(int slot) {
    for (UndoStep& step : waiting)
        if (step.slot == slot && fits_frame(step.frame))
            add_to_chain(step);
        else if (step.slot == slot)
            free_step(step);
}

void renumber_waiting_steps(const std::function<int(int slot)>& slot_of) {
    for (UndoStep& step : waiting) {
        if (step.frame == nullptr) continue;
        step.slot = slot_of(step.slot);
        if (step.slot < 0) free_step(step);
    }
}

void reset_undo_slots() {
    drop_carried_cel();
    for (const Chain& chain : {undo_chain, redo_chain}) {
        for (BITMAP*& slot : chain.slots) replace_bitmap(slot, nullptr);
        chain.age.fill(undo_free);
    }
}

bool prepare_undo_memory() {
    constexpr std::size_t bytes_max = std::size_t{1} << 28;  // 8192 x 8192 pixels
    if (current_frame == nullptr || !(wants_memory(undo_chain) || wants_memory(redo_chain))) return false;
    const auto side = [](int pixels) { return static_cast<std::size_t>(pixels); };
    if (side(current_frame->w) * side(current_frame->h) * sizeof(Color) > bytes_max) return false;
    if (!fits_frame(spare)) {
        replace_bitmap(spare, make_uncleared_bitmap(current_frame->w, current_frame->h));
        spare_rows = 0;
    }
    return spare != nullptr && clear_some_rows(spare, spare_rows);
}

void set_undo_source(OwnedBitmap (*copy)(BITMAP* source)) { copy_of = copy != nullptr ? copy : copy_bitmap; }

}  // namespace nubo
