#include "workspace/frame_moves.h"

#include "base/log.h"
#include "codecs/bmp_file.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "state/run.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/workspace_files.h"
#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace nubo {
namespace {

struct Move {
    char kind = 0;  // 'I' insert, 'D' delete
    int start = 0, count = 0, frames = 0;
};

/// The paths of what takes part in a move.
struct Row {
    const Folder& folder;
    std::string current(int slot) const { return frame_path(folder, STEM_CURRENT, slot); }
    std::string rescue(int slot) const { return frame_path(folder, STEM_RESCUE, slot); }
    std::string staged(int i) const { return frame_path(folder, STEM_INSERTED, i); }
    std::string doomed(int i) const { return frame_path(folder, STEM_DELETED, i); }
    std::string staged_nail() const { return folder.file("inserted.nal"); }
    std::string journal() const { return folder.file("frames.job"); }
};

/// Renames if there is a file to rename and its new name is free: if not, that was done before the kill.
bool advance(const std::string& from, const std::string& to) {
    return !file_exists(from) || file_exists(to) || rename_file(from, to);
}

// ---- The journal ---------------------------------------------------------------------------------------------------

bool write_journal(const Row& row, const Move& move) {
    const std::string line = std::string(1, move.kind) + " " + std::to_string(move.start) + " " +
                             std::to_string(move.count) + " " + std::to_string(move.frames) + "\n";
    return write_file(row.journal(), line.data(), line.size());
}

/// The work under way, if there is some and the files bear it out.
std::optional<Move> read_journal(const Row& row) {
    constexpr std::size_t longest = 64;
    std::vector<std::uint8_t> bytes;
    if (!read_file(row.journal(), longest, bytes)) return std::nullopt;
    const std::string line(bytes.begin(), bytes.end());
    Move move;
    if (std::sscanf(line.c_str(), "%c %4d %4d %4d", &move.kind, &move.start, &move.count, &move.frames) != 4)
        return std::nullopt;
    if (move.start < 0 || move.count < 1 || move.frames < 1 || move.frames > frame_slots) return std::nullopt;
    if (move.kind == 'I' && move.start < move.frames && move.count <= frame_slots - move.frames &&
        count_slot_files(row.folder, STEM_CURRENT) + count_slot_files(row.folder, STEM_INSERTED) ==
            move.frames + move.count)
        return move;
    if (move.kind == 'D' && move.count < move.frames && move.start <= move.frames - move.count &&
        count_slot_files(row.folder, STEM_CURRENT) + count_slot_files(row.folder, STEM_DELETED) == move.frames)
        return move;
    return std::nullopt;
}

/// Removes what an insert has staged and a delete has taken out.
void remove_leftovers(const Row& row) {
    for (int i = 0; i < frame_slots; ++i)
        for (const std::string& file : {row.staged(i), row.doomed(i)})
            if (file_exists(file)) remove_file(file);
    if (file_exists(row.staged_nail())) remove_file(row.staged_nail());
}

// ---- The renames, forth and back -----------------------------------------------------------------------------------

bool carry_out(const Row& row, const Move& move) {
    bool done = true;
    if (move.kind == 'I') {
        for (int slot = move.frames - 1; slot > move.start; --slot)
            done = done && advance(row.current(slot), row.current(slot + move.count));
        for (int i = 0; i < move.count; ++i) done = done && advance(row.staged(i), row.current(move.start + 1 + i));
        return done && (!file_exists(row.staged_nail()) || rename_file(row.staged_nail(), row.folder.file(nail_file)));
    }
    for (int i = 0; i < move.count; ++i) done = done && advance(row.current(move.start + i), row.doomed(i));
    for (int slot = move.start + move.count; slot < move.frames; ++slot)
        done = done && advance(row.current(slot), row.current(slot - move.count));
    return done;
}

bool take_back(const Row& row, const Move& move) {
    bool done = true;
    if (move.kind == 'I') {
        // A new Frame stands in its slot only if it isn't under its staged name any more.
        for (int i = move.count - 1; i >= 0; --i)
            done = done && advance(row.current(move.start + 1 + i), row.staged(i));
        for (int slot = move.start + 1; slot < move.frames; ++slot)
            done = done && advance(row.current(slot + move.count), row.current(slot));
        return done;
    }
    for (int slot = move.frames - 1; slot >= move.start + move.count; --slot)
        done = done && advance(row.current(slot - move.count), row.current(slot));
    for (int i = move.count - 1; i >= 0; --i) done = done && advance(row.doomed(i), row.current(move.start + i));
    return done;
}

/// A move that could neither be carried out nor be taken back, until one of the two is possible.
constinit std::optional<Move> stuck;

/// Does the work under its journal. Where neither forth nor back is possible the journal stays for the next start.
bool perform(const Row& row, const Move& move) {
    if (!write_journal(row, move)) {
        remove_leftovers(row);
        return false;
    }
    if (carry_out(row, move)) return true;
    stuck = move;
    end_frame_move(row.folder);
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
void adopt_rescues(const Row& row) {
    for (int slot = 0; slot < frame_slots; ++slot) advance(row.rescue(slot), row.current(slot));
}

/// Moves Frames down over slots without a file.
SlotMap close_gaps(const Row& row, bool& moved) {
    SlotMap map = nothing_moved();
    int free_slot = 0;
    for (int slot = 0; slot < frame_slots; ++slot) {
        if (!file_exists(row.current(slot))) continue;
        if (slot != free_slot) {
            if (!rename_file(row.current(slot), row.current(free_slot))) break;
            advance(row.rescue(slot), row.rescue(free_slot));
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

bool insert_frame_files(const Folder& folder, int start, int count, BITMAP* picture, BITMAP* nail) {
    const Row row{folder};
    bool written = save_bmp_file(row.staged_nail(), nail);
    for (int i = 0; i < count; ++i) written = written && save_bmp_file(row.staged(i), picture);
    if (written) return perform(row, {'I', start, count, frame_count});
    remove_leftovers(row);
    return false;
}

bool delete_frame_files(const Folder& folder, int start, int count) {
    return perform({folder}, {'D', start, count, frame_count});
}

void take_back_delete(const Folder& folder, int start, int count) {
    stuck = Move{'D', start, count, frame_count};
    end_frame_move(folder);
}

bool frame_move_is_open(const Folder& folder) { return !stuck && file_exists(Row{folder}.journal()); }

bool end_frame_move(const Folder& folder) {
    const Row row{folder};
    if (stuck && !take_back(row, *stuck)) return false;
    if (file_exists(row.journal())) {
        if (!remove_file(row.journal())) return false;
        sync_folder(
            folder.path());  // else a loss of power could bring the journal back without the Frames it speaks of
    }
    stuck.reset();
    remove_leftovers(row);
    return true;
}

bool row_is_whole(const Folder& folder) {
    return !stuck || !file_exists(Row{folder}.journal()) || end_frame_move(folder);
}

FrameRepairs repair_frame_files(const Folder& folder) {
    const Row row{folder};
    FrameRepairs repairs;
    remove_unfinished_files(folder.path());
    if (const std::optional<Move> move = read_journal(row)) {
        if (carry_out(row, *move)) {
            UA_log("[ INFO ] : Finished what the last run began with frame %d", move->start);
            repairs.moved = true;
            repairs.frames_before = move->frames;
            repairs.nail_is_old = move->kind == 'D';
            repairs.by_journal = map_of(*move);
        }
    } else {
        end_frame_move(folder);
    }
    adopt_rescues(row);
    repairs.by_gaps = close_gaps(row, repairs.moved);
    return repairs;
}

void follow_with_views(const FrameRepairs& repairs) {
    if (repairs.moved && repairs.frames_before == frame_count) move_views(repairs.by_journal);
    if (repairs.moved) move_views(repairs.by_gaps);
}

void follow_with_tiles(const FrameRepairs& repairs) {
    if (repairs.moved && repairs.nail_is_old) move_tiles(repairs.by_journal);
    if (repairs.moved) move_tiles(repairs.by_gaps);
}

}  // namespace nubo
