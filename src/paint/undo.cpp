#include "paint/undo.h"

#include "base/bitmap_memory.h"
#include "base/log.h"
#include "base/memory.h"
#include "paint/surfaces.h"
#include "state/cel.h"
#include "state/frames.h"
#include "state/messages.h"
#include "state/options.h"
#include "state/run.h"
#include "state/status.h"
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace nubo {
namespace {

History history;

/// What the Frame may differ from the snapshot by.
enum Pending : int {
    PENDING_NONE,  // by steps of the history
    PENDING_STEP,  // by a step that counts
    PENDING_OPEN   // by the step that is open
};
Pending pending = PENDING_NONE;

/// The step that is open. While it is PENDING_OPEN its picture is the snapshot; else its Frame was left, and it is the
/// step's own.
constinit UndoStep opened;

int changed_last = -1;
int steps_begun = 0;
bool is_refused = false;  // for tests

bool reaches_all() { return opt_undo_depth == undo_depth_all; }

bool refuse_for_memory() {
    UA_log("[ ERROR ] : No memory for an undo copy of %d x %d pixels. Nothing was changed.", current_frame->w,
           current_frame->h);
    status_message = MESSAGE_UNDO_MEMORY;
    status_timer = flash_ticks;
    return false;
}

template <typename Work> bool with_memory(Work work) {
    const auto done = [&] { return work(), true; };
    return !is_refused && unless_memory_ends(done, false);
}

// ---- The Cel that a step brings along ------------------------------------------------------------------------------

/// It goes with one step. No more are needed: an area that was cut elsewhere lands before anything else is done to the
/// Frame, and it isn't kept beyond the visit.
struct CarriedCel {
    int step = -1;  // its number
    CelAside cel;
};
constinit CarriedCel carried;

void drop_carried_cel() {
    free_cel(carried.cel);
    carried = {};
}

bool exchange_carried_cel(int step) {
    if (carried.step != step) return false;
    exchange_cel(carried.cel);
    return true;
}

// ---- The snapshot --------------------------------------------------------------------------------------------------

bool fits_frame(const BITMAP* bitmap) {
    return bitmap != nullptr && bitmap->w == current_frame->w && bitmap->h == current_frame->h;
}

void copy_tile(BITMAP* from, BITMAP* to, int tile) {
    const Area area = touched_tiles.grid().area_of(tile);
    blit(from, to, area.left, area.top, area.left, area.top, area.width(), area.height());
}

#ifdef __SANITIZE_ADDRESS__
/// A write that `note_touched` doesn't know of would be lost to undo.
void check_snapshot() {
    const auto bytes = static_cast<std::size_t>(current_frame->w) * sizeof(Color);
    for (int y = 0; y < current_frame->h; ++y)
        if (std::memcmp(current_frame->line[y], undo_snapshot->line[y], bytes) != 0) {
            std::fprintf(stderr, "Row %d of the Frame was written to, and nobody has said so\n", y);
            std::abort();
        }
}
#else
void check_snapshot() {}
#endif

bool make_snapshot() {
    if (fits_frame(undo_snapshot)) return true;
    OwnedBitmap made = is_refused ? nullptr : make_uncleared_bitmap(current_frame->w, current_frame->h);
    if (!made) return false;
    replace_bitmap(undo_snapshot, std::move(made));
    take_rows(undo_snapshot, 0, undo_snapshot->h);
    note_all_touched();
    return true;
}

void equal_snapshot() {
    if (static_cast<int>(touched_tiles.tiles().size()) == touched_tiles.grid().count())
        blit(current_frame, undo_snapshot, 0, 0, 0, 0, current_frame->w, current_frame->h);
    else
        for (const int tile : touched_tiles.tiles()) copy_tile(current_frame, undo_snapshot, tile);
    touched_tiles.clear();
    renew_notes();
    check_snapshot();
}

// ---- Steps ---------------------------------------------------------------------------------------------------------

void keep_to_depth() {
    if (!reaches_all()) history.floor = std::max(history.floor, history.position - opt_undo_depth);
}

void add_step(Step step) {
    history.add(std::move(step));
    keep_to_depth();
}

Step pending_step() { return step_between(undo_snapshot, current_frame, touched_tiles.tiles()); }

/// All that was done is in the history, and the snapshot is the Frame. An open step counts, for want of a better end.
bool settle() {
    if (pending != PENDING_NONE && !with_memory([] { add_step(pending_step()); })) return false;
    if (pending == PENDING_OPEN) opened = {};
    pending = PENDING_NONE;
    if (!make_snapshot()) return false;
    equal_snapshot();
    return true;
}

void cut_redo() {
    history.cut_redo();
    if (carried.step >= history.position) drop_carried_cel();
}

void note_change(int slot) { changed_last = slot; }

/// Undoes or redoes a step.
bool carry_out(const Step& step, bool back) {
    if (step.before_w != step.after_w || step.before_h != step.after_h) {
        OwnedBitmap picture;
        with_memory([&] { picture = picture_beyond(step, current_frame, back); });
        return (picture && adopt_frame(std::move(picture))) || refuse_for_memory();
    }
    if (!apply_step(step, current_frame)) {
        UA_log("[ ERROR ] : A step of the history is damaged");
        return false;
    }
    for (const StepTile& tile : (step.plain ? step.plain : step.deflated)->tiles) touched_tiles.add(tile.tile);
    return true;
}

void forget_open_step() {
    if (pending == PENDING_OPEN)
        pending = PENDING_NONE;
    else
        replace_bitmap(opened.frame, nullptr);
    opened = {};
}

/// The Frame goes. If its step is open, that takes the picture along.
void leave_history() {
    if (pending == PENDING_OPEN) undo_snapshot = nullptr;
    pending = PENDING_NONE;
    history = {};
    drop_carried_cel();
}

// ---- At rest -------------------------------------------------------------------------------------------------------

constexpr std::size_t frame_bytes_max = std::size_t{1} << 28;  // 8192 x 8192 pixels

bool copy_some_tiles() {
    constexpr int tiles_at_once = 64;  // 1 MiB
    if (pending != PENDING_NONE || touched_tiles.empty()) return false;
    renew_notes();
    for (int i = 0; i < tiles_at_once && !touched_tiles.empty(); ++i)
        copy_tile(current_frame, undo_snapshot, touched_tiles.take());
    return true;
}

/// The step that is being deflated, and its tiles so far.
struct Deflating {
    int step = -1;
    std::shared_ptr<const StepTiles> plain;
    std::shared_ptr<StepTiles> done;
};
Deflating deflating;

/// The newest steps are deflated beside their plain tiles, for the file; behind them only those are kept.
bool deflate_older_steps() {
    const int quick_from = history.position - History::kept_always;
    for (int number = history.end(); number-- > history.first;) {
        const Step& step = history.step(number);
        if (!step.plain) return false;  // and so are all before it
        if (step.deflated) {
            if (number < quick_from) history.set_tiles(number, nullptr, step.deflated);
            continue;
        }
        if (deflating.plain != step.plain) deflating = {number, step.plain, std::make_shared<StepTiles>()};
        if (deflate_some(step, *deflating.done)) {
            history.set_tiles(number, step.plain, deflating.done);
            deflating = {};
        }
        return true;
    }
    return false;
}

}  // namespace

bool save_undo(bool keep_redo) {
    if (!settle()) return refuse_for_memory();
    if (!keep_redo) cut_redo();
    pending = PENDING_STEP;
    ++steps_begun;
    note_change(frame_index);
    return true;
}

int step_in_progress() { return pending == PENDING_STEP ? steps_begun : no_step; }

bool undo_last() {
    if (undo_reach().done == 0) return false;
    if (!settle()) return refuse_for_memory();
    const int number = history.position - 1;
    if (!carry_out(history.step(number), true)) return false;
    history.position = number;
    note_change(frame_index);
    return exchange_carried_cel(number);
}

bool redo_last() {
    if (pending != PENDING_NONE || history.position >= history.ceiling) return false;
    if (!settle()) return refuse_for_memory();
    const int number = history.position;
    if (!carry_out(history.step(number), false)) return false;
    history.position = number + 1;
    note_change(frame_index);
    return exchange_carried_cel(number);
}

UndoReach undo_reach() {
    const int now = pending == PENDING_STEP ? 1 : 0;
    const int most = reaches_all() ? history.position + now : static_cast<int>(opt_undo_depth);
    const int done = std::min(history.position - history.floor + now, most);
    return {done, done + history.ceiling - history.position};
}

int lead_frame(int from, int to) {
    for (; from > to; --from)
        if (!carry_out(history.step(history.floor + from - 1), true)) return from;
    for (; from < to; ++from)
        if (!carry_out(history.step(history.floor + from), false)) return from;
    return from;
}

bool change_frame(OwnedBitmap picture) {
    const bool is_kept = settle() && with_memory([&] { history.add(step_between(current_frame, picture.get())); });
    if (!adopt_frame(std::move(picture))) {
        if (is_kept) --history.position, cut_redo();
        return false;
    }
    if (!is_kept) reset_undo_slots();
    if (!reaches_all()) history.floor = history.position;
    drop_carried_cel();
    note_change(frame_index);
    return true;
}

void reset_undo_slots() {
    leave_history();
    if (current_frame != nullptr && !fits_frame(undo_snapshot)) replace_bitmap(undo_snapshot, nullptr);
    if (current_frame != nullptr) note_all_touched();
}

void renew_undo_reach() {
    if (current_frame == nullptr || !settle()) return;
    history.floor = reaches_all() ? history.first : history.position;
    history.ceiling = reaches_all() ? history.end() : history.position;
}

bool take_step() {
    if (!settle()) return refuse_for_memory();
    forget_open_step();
    pending = PENDING_OPEN;
    opened = {frame_index, undo_snapshot};
    return true;
}

const UndoStep& open_step() { return opened; }

bool step_is_of_frame() { return pending == PENDING_OPEN; }

void count_step() {
    if (opened.frame == nullptr) return;
    note_change(opened.slot);
    if (pending != PENDING_OPEN) return forget_open_step();
    cut_redo();
    pending = PENDING_STEP;
    ++steps_begun;
    opened = {};
}

void drop_step() { forget_open_step(); }

bool take_back_step() {
    if (pending == PENDING_OPEN)
        for (const int tile : touched_tiles.tiles()) copy_tile(undo_snapshot, current_frame, tile);
    else if (OwnedBitmap frame = copy_bitmap(opened.frame); !frame || !adopt_frame(std::move(frame)))
        return refuse_for_memory();
    drop_step();
    return true;
}

void give_step_cel(CelAside given) {
    drop_carried_cel();
    carried = {history.position - (pending == PENDING_STEP ? 0 : 1), given};
}

std::optional<HistoryToStore> history_to_store() {
    if (pending != PENDING_OPEN && !settle()) return std::nullopt;
    HistoryToStore stored;
    const auto copy = [&] {
        stored.history = history;
        if (pending != PENDING_OPEN) return;
        Step hole = pending_step();
        hole.elsewhere = true;
        stored.history.add(std::move(hole));
        stored.before_hole = undo_snapshot;
    };
    if (!with_memory(copy)) return std::nullopt;
    return stored;
}

History* settled_history() { return pending != PENDING_OPEN && settle() ? &history : nullptr; }

void take_history(History taken) {
    reset_undo_slots();
    history = std::move(taken);
    const bool comes_home = opened.slot == frame_index && fits_frame(opened.frame);
    if (comes_home) {
        if (history.position > history.first && history.step(history.position - 1).elsewhere) --history.position;
        history.cut_redo();
        replace_bitmap(undo_snapshot, OwnedBitmap(opened.frame));
        pending = PENDING_OPEN;
    }
    history.floor = reaches_all() ? history.first : history.position;
    history.ceiling = reaches_all() ? history.end() : history.position;
    while (!reaches_all() && history.floor > history.first && history.step(history.floor - 1).elsewhere)
        --history.floor;
}

int last_changed_frame() { return changed_last; }

void renumber_changed_frame(const std::function<int(int slot)>& slot_of) {
    if (changed_last >= 0) changed_last = slot_of(changed_last);
}

bool prepare_undo_memory() {
    if (current_frame == nullptr || is_refused) return false;
    const auto side = [](int pixels) { return static_cast<std::size_t>(pixels); };
    if (side(current_frame->w) * side(current_frame->h) * sizeof(Color) > frame_bytes_max) return false;
    if (!fits_frame(undo_snapshot)) {
        if (pending == PENDING_NONE && make_snapshot()) return true;
        return false;
    }
    return copy_some_tiles() || unless_memory_ends(deflate_older_steps, false);
}

void refuse_undo_memory(bool refused) { is_refused = refused; }

}  // namespace nubo
