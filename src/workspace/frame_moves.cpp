#include "workspace/frame_moves.h"

#include "base/log.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "state/run.h"
#include "workspace/bmp_file.h"
#include "workspace/frame_files.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace nubo {
namespace {

constexpr const char *journal_file = "frames.job", *staged_nail = "inserted.nal";

/// For each slot the slot whose Frame it now holds.
using SlotMap = std::array<int, frame_slots>;

constexpr SlotMap nothing_moved() {
    SlotMap map{};
    for (int slot = 0; slot < frame_slots; ++slot) map[static_cast<unsigned>(slot)] = slot;
    return map;
}

/// What the start has repaired and the state file, or the Nail, doesn't know of yet.
struct Repairs {
    bool moved = false;
    int frames_before = 0;     // by the journal, 0 without one: a state file of as many Frames is older than the move
    bool nail_is_old = false;  // so is the Nail: an insert puts a new one in place, a delete doesn't
    SlotMap by_journal = nothing_moved(), by_gaps = nothing_moved();  // in this order
};
constinit Repairs repairs;

struct Move {
    char kind = 0;  // 'I' insert, 'D' delete
    int start = 0, count = 0, frames = 0;
};

std::string current(int slot) { return frame_file_name(STEM_CURRENT, slot); }
std::string rescue(int slot) { return frame_file_name(STEM_RESCUE, slot); }
std::string staged(int i) { return frame_file_name(STEM_INSERTED, i); }
std::string doomed(int i) { return frame_file_name(STEM_DELETED, i); }

/// Renames if there is a file to rename and its new name is free: if not, that was done before the kill.
bool advance(const std::string& from, const std::string& to) {
    return !file_exists(from) || file_exists(to) || rename_file(from, to);
}

// ---- The journal ---------------------------------------------------------------------------------------------------

bool write_journal(const Move& move) {
    const std::string line = std::string(1, move.kind) + " " + std::to_string(move.start) + " " +
                             std::to_string(move.count) + " " + std::to_string(move.frames) + "\n";
    return write_file(journal_file, line.data(), line.size());
}

/// The work under way, if there is some and the files bear it out.
std::optional<Move> read_journal() {
    constexpr std::size_t longest = 64;
    std::vector<std::uint8_t> bytes;
    if (!read_file(journal_file, longest, bytes)) return std::nullopt;
    const std::string line(bytes.begin(), bytes.end());
    Move move;
    if (std::sscanf(line.c_str(), "%c %4d %4d %4d", &move.kind, &move.start, &move.count, &move.frames) != 4)
        return std::nullopt;
    if (move.start < 0 || move.count < 1 || move.frames < 1 || move.frames > frame_slots) return std::nullopt;
    if (move.kind == 'I' && move.start < move.frames && move.count <= frame_slots - move.frames &&
        count_slot_files(STEM_CURRENT) + count_slot_files(STEM_INSERTED) == move.frames + move.count)
        return move;
    if (move.kind == 'D' && move.count < move.frames && move.start <= move.frames - move.count &&
        count_slot_files(STEM_CURRENT) + count_slot_files(STEM_DELETED) == move.frames)
        return move;
    return std::nullopt;
}

/// Removes what an insert has staged and a delete has taken out.
void remove_leftovers() {
    for (int i = 0; i < frame_slots; ++i)
        for (const std::string& file : {staged(i), doomed(i)})
            if (file_exists(file)) remove_file(file);
    if (file_exists(staged_nail)) remove_file(staged_nail);
}

// ---- The renames, forth and back -----------------------------------------------------------------------------------

bool carry_out(const Move& move) {
    bool done = true;
    if (move.kind == 'I') {
        for (int slot = move.frames - 1; slot > move.start; --slot)
            done = done && advance(current(slot), current(slot + move.count));
        for (int i = 0; i < move.count; ++i) done = done && advance(staged(i), current(move.start + 1 + i));
        return done && (!file_exists(staged_nail) || rename_file(staged_nail, nail_file));
    }
    for (int i = 0; i < move.count; ++i) done = done && advance(current(move.start + i), doomed(i));
    for (int slot = move.start + move.count; slot < move.frames; ++slot)
        done = done && advance(current(slot), current(slot - move.count));
    return done;
}

bool take_back(const Move& move) {
    bool done = true;
    if (move.kind == 'I') {
        // A new Frame stands in its slot only if it isn't under its staged name any more.
        for (int i = move.count - 1; i >= 0; --i) done = done && advance(current(move.start + 1 + i), staged(i));
        for (int slot = move.start + 1; slot < move.frames; ++slot)
            done = done && advance(current(slot + move.count), current(slot));
        return done;
    }
    for (int slot = move.frames - 1; slot >= move.start + move.count; --slot)
        done = done && advance(current(slot - move.count), current(slot));
    for (int i = move.count - 1; i >= 0; --i) done = done && advance(doomed(i), current(move.start + i));
    return done;
}

/// A move that could neither be carried out nor be taken back, until one of the two is possible.
constinit std::optional<Move> stuck;

/// Does the work under its journal. Where neither forth nor back is possible the journal stays for the next start.
bool perform(const Move& move) {
    if (!write_journal(move)) {
        remove_leftovers();
        return false;
    }
    if (carry_out(move)) return true;
    stuck = move;
    end_frame_move();
    return false;
}

// ---- Gaps and maps -------------------------------------------------------------------------------------------------

SlotMap map_of(const Move& move) {
    SlotMap map = nothing_moved();
    for (int& from : map) {
        if (move.kind == 'D' && from >= move.start && from + move.count < frame_slots) from += move.count;
        if (move.kind == 'I' && from > move.start)
            from = from > move.start + move.count ? from - move.count : move.start;
    }
    return map;
}

/// A Frame that has only its rescue: a blank one that was painted on and never saved.
void adopt_rescues() {
    for (int slot = 0; slot < frame_slots; ++slot) advance(rescue(slot), current(slot));
}

/// Moves Frames down over slots without a file.
SlotMap close_gaps(bool& moved) {
    SlotMap map = nothing_moved();
    int free_slot = 0;
    for (int slot = 0; slot < frame_slots; ++slot) {
        if (!file_exists(current(slot))) continue;
        if (slot != free_slot) {
            if (!rename_file(current(slot), current(free_slot))) break;
            advance(rescue(slot), rescue(free_slot));
            UA_log("[ INFO ] : Closed a gap: frame %d is now frame %d", slot, free_slot);
            map[static_cast<unsigned>(free_slot)] = slot;
            moved = true;
            mark_damage();
        }
        ++free_slot;
    }
    return map;
}

void move_views(const SlotMap& map) {
    const auto before = frame_view;
    for (std::size_t i = 0; i < map.size(); ++i) frame_view[i] = before[static_cast<unsigned>(map[i])];
    const auto place = std::find(map.begin(), map.end(), static_cast<int>(frame_index));
    if (place != map.end()) frame_index = static_cast<int>(place - map.begin());  // else it was deleted
}

/// A tile only ever comes from a higher slot or from several below it, so the order of copying matters: a copy of the
/// sheet spares thinking about it.
void move_tiles(const SlotMap& map) {
    const OwnedBitmap before = copy_bitmap(nail_sheet);
    if (!before) return;
    for (int slot = 0; slot < frame_slots; ++slot) {
        const int from = map[static_cast<unsigned>(slot)];
        blit(before.get(), nail_sheet, from % nail_columns * nail_tile, from / nail_columns * nail_tile,
             slot % nail_columns * nail_tile, slot / nail_columns * nail_tile, nail_tile, nail_tile);
    }
}

}  // namespace

bool insert_frame_files(int start, int count, BITMAP* picture, BITMAP* nail) {
    if (!end_frame_move()) return false;
    bool written = save_bmp_file(staged_nail, nail);
    for (int i = 0; i < count; ++i) written = written && save_bmp_file(staged(i), picture);
    if (!written) {
        remove_leftovers();
        return false;
    }
    return perform({'I', start, count, frame_count});
}

bool delete_frame_files(int start, int count) { return end_frame_move() && perform({'D', start, count, frame_count}); }

bool end_frame_move() {
    if (stuck && !take_back(*stuck)) return false;
    if (file_exists(journal_file)) {
        if (!remove_file(journal_file)) return false;
        sync_folder(".");  // else a loss of power could bring the journal back without the Frames it speaks of
    }
    stuck.reset();
    remove_leftovers();
    return true;
}

bool row_is_whole() { return !stuck || !file_exists(journal_file) || end_frame_move(); }

bool repair_frame_files() {
    repairs = {};
    remove_unfinished_files(".");
    if (const std::optional<Move> move = read_journal()) {
        if (carry_out(*move)) {
            UA_log("[ INFO ] : Finished what the last run began with frame %d", move->start);
            repairs.moved = true;
            repairs.frames_before = move->frames;
            repairs.nail_is_old = move->kind == 'D';
            repairs.by_journal = map_of(*move);
        }
    } else {
        end_frame_move();
    }
    adopt_rescues();
    repairs.by_gaps = close_gaps(repairs.moved);
    return repairs.moved;
}

void follow_with_views() {
    if (!repairs.moved) return;
    if (repairs.frames_before == frame_count) move_views(repairs.by_journal);
    move_views(repairs.by_gaps);
}

void follow_with_tiles() {
    if (!repairs.moved) return;
    if (repairs.nail_is_old) move_tiles(repairs.by_journal);
    move_tiles(repairs.by_gaps);
    repairs = {};
}

}  // namespace nubo
