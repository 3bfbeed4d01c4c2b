#include "workspace/rescue.h"

#include "base/log.h"
#include "paint/undo.h"
#include "platform/safe_file.h"
#include "state/cel.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "workspace/bmp_files.h"
#include "workspace/folders.h"
#include "workspace/frame_history.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/picture_print.h"
#include "workspace/rescue_folder.h"
#include "workspace/workspace_files.h"
#include <atomic>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <utility>

namespace nubo {
namespace {

constexpr unsigned rescue_ticks = rescue_seconds * clock_hz, telling_ticks = 60 * clock_hz;

Print saved_print = 0;            // of the Frame as its file holds it
bool saved_print_wanted = false;  // the Frame was saved and not changed since: take its print at the next chance
Print rescued_print = 0;          // of the Frame as its rescue holds it, 0 for none
unsigned last_ticks = 0;          // when the Frame was last looked at
bool fails = false;               // the last rescue did
unsigned told_ticks = 0;          // when the user was last told so
bool is_held = false;             // no rescue may be written

BITMAP* snapshot = nullptr;  // read by the thread while it runs
HistoryWrite history;        // the thread's while it runs
std::jthread writer;         // joins even where the program ends without a stop
std::atomic<bool> written{false}, done{true};

/// Without a Workspace the Frame goes where it would go at the end; empty if that can't be.
std::string rescue_path(int slot) {
    if (!workspace_is_away()) return slot_of_row(slot).rescue();
    return note_rescued_work() ? FrameSlot{rescue_folder(), slot}.frame() : std::string();
}

/// Paint that is only in memory is told of at once, and from then on every minute as long as it is.
void rescue_failed() {
    rescued_print = 0;  // to be tried again when the time has come
    const auto now = static_cast<unsigned>(UA_clock_ticks);
    if (fails && now - told_ticks < telling_ticks) return;
    fails = true;
    told_ticks = now;
    flash_text("YOUR WORK CAN'T BE SAVED. IS THE DISK FULL?");
}

/// Joins the thread.
void collect() {
    if (!writer.joinable()) return;
    writer.join();
    replace_bitmap(snapshot, nullptr);
    take_written(history);
    if (!written) return rescue_failed();
    fails = false;
}

/// Starts the thread, which writes the history and then the snapshot, if there is one, to `path`. False without a
/// thread.
bool start_writer(const std::string& path) {
    done = false;
    try {
        writer = std::jthread([path] {
            history.carry_out();  // first: the rescue of a picture that its history doesn't know would end it
            written = snapshot == nullptr || save_bmp_file(path, snapshot);
            done = true;
        });
    } catch (const std::system_error&) {  // no more threads: the next tick that is due tries again
        done = true;
        history = {};
        return false;
    }
    return true;
}

void start_rescue(Print print) {
    snapshot = copy_bitmap(current_frame).release();
    if (snapshot == nullptr) return rescue_failed();
    history = history_to_write(slot_of_row(frame_index), print_of_saved_frame(), print);
    if (start_writer(rescue_path(frame_index))) {
        rescued_print = print;
        return;
    }
    replace_bitmap(snapshot, nullptr);
    rescue_failed();
}

/// What was done has led back to a picture that is on the disk.
void write_history_alone(Print print) {
    history = history_to_write(slot_of_row(frame_index), print_of_saved_frame(), print);
    if (!history.path.empty()) start_writer("");
}

/// While an area floats the Frame that it was cut out of has a hole.
bool has_hole(const FrameSlot& slot) { return area_floats != 0 && open_step().slot == slot.number; }

}  // namespace

void autosave_tick(bool stroke_running) {
    if (current_frame == nullptr || is_held) return;
    take_saved_print();
    const auto now = static_cast<unsigned>(UA_clock_ticks);
    if (stroke_running || !done) return;
    collect();
    if (now - last_ticks < rescue_ticks) return;
    last_ticks = now;
    const Print print = print_of(current_frame);
    if (print != rescued_print && print != saved_print) return start_rescue(print);
    const bool has_rescue = rescued_print != 0 || slot_of_row(frame_index).has_rescue();
    if (print == saved_print && has_rescue) {  // of changes that were undone: it would bring them back
        remove_file(rescue_path(frame_index));
        rescued_print = 0;
    }
    write_history_alone(print);
}

RescueHold::RescueHold() {
    settle_rescue();
    is_held = true;
}

RescueHold::~RescueHold() { is_held = false; }

void settle_rescue() { collect(); }

bool rescue_cut_frame(const FrameSlot& slot) {
    return !has_hole(slot) || save_bmp_file(slot.rescue(), open_step().frame);
}

void renew_cut_rescue(const FrameSlot& slot) {
    if (has_hole(slot)) utimensat(AT_FDCWD, slot.rescue().c_str(), nullptr, 0);
}

bool put_back_cut_frame(const FrameSlot& slot) {
    if (!rename_file(slot.rescue(), slot.frame())) return false;
    make_nail_tile(open_step().frame, slot.number);
    return true;
}

void rescue_landed_area(const FrameSlot& cut) {
    if (!cut.has_rescue()) return;
    collect();
    rescued_print = 0;
    start_rescue(print_of(current_frame));
    collect();
    if (rescued_print != 0 && cut.number != frame_index) remove_file(cut.rescue());
}

void note_frame_saved() {
    saved_print_wanted = true;
    fails = false;
}

void take_saved_print() {
    if (!saved_print_wanted) return;
    saved_print = print_of(current_frame);
    saved_print_wanted = false;
    rescued_print = 0;
    last_ticks = static_cast<unsigned>(UA_clock_ticks);
}

std::optional<Print> print_of_saved_frame() { return saved_print_wanted ? std::nullopt : std::optional(saved_print); }

void forget_rescue(const FrameSlot& slot) {
    if (area_floats != 0) return;  // the Frame that it was cut out of has one
    if (slot.has_rescue()) remove_file(slot.rescue());
    if (slot.number == frame_index) rescued_print = 0;
}

int find_rescue(const Folder& folder) {
    int found = -1;
    for (int number = 0; number < frame_slots; ++number) {
        const FrameSlot slot{folder, number};
        if (!slot.has_rescue()) continue;
        // Files of one instant have one time, since the clock goes in steps.
        if (found < 0 && time_of_file(slot.rescue()) >= time_of_file(slot.frame()))
            found = number;
        else
            set_aside(slot.rescue(), aside_spare);  // clocks may be wrong
    }
    return found;
}

OwnedBitmap read_rescue(const FrameSlot& slot) {
    PictureFault fault;
    OwnedBitmap picture = load_bmp_file(slot.rescue(), fault);
    if (fault == PICTURE_MALFORMED) set_aside(slot.rescue());
    return picture;
}

}  // namespace nubo
