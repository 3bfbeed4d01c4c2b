#include "workspace/rescue.h"

#include "base/log.h"
#include "codecs/bmp_file.h"
#include "paint/undo.h"
#include "platform/safe_file.h"
#include "state/cel.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "workspace/folders.h"
#include "workspace/nail.h"
#include "workspace/notices.h"
#include "workspace/rescue_folder.h"
#include "workspace/workspace_files.h"
#include <array>
#include <atomic>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <utility>

namespace nubo {
namespace {

constexpr unsigned rescue_ticks = rescue_seconds * clock_hz, telling_ticks = 60 * clock_hz;

/// What a Frame looks like, in 64 bits.
using Print = std::uint64_t;

Print saved_print = 0;            // of the Frame as its file holds it
bool saved_print_wanted = false;  // the Frame was saved and not changed since: take its print at the next chance
Print rescued_print = 0;          // of the Frame as its rescue holds it, 0 for none
unsigned last_ticks = 0;          // when the Frame was last looked at
bool fails = false;               // the last rescue did
unsigned told_ticks = 0;          // when the user was last told so
bool is_held = false;             // no rescue may be written

BITMAP* snapshot = nullptr;  // read by the thread while it runs
std::jthread writer;         // joins even where the program ends without a stop
std::atomic<bool> written{false}, done{true};

/// Four lanes, so that the multiplications don't wait for each other.
Print print_of(BITMAP* frame) {
    constexpr std::uint64_t prime = 0x9e3779b97f4a7c15;
    constexpr int lanes = 4, lane_pixels = 2;
    std::array<std::uint64_t, lanes> hash{1, 2, 3, static_cast<std::uint64_t>(frame->w)};
    for (int y = 0; y < frame->h; ++y) {
        const Color* const row = pixels_at(frame, 0, y);
        int x = 0;
        for (; x + lanes * lane_pixels <= frame->w; x += lanes * lane_pixels) {
            std::array<std::uint64_t, lanes> words{};
            std::memcpy(words.data(), row + x, sizeof words);
            for (std::size_t i = 0; i < lanes; ++i) hash[i] = (hash[i] ^ words[i]) * prime, hash[i] ^= hash[i] >> 32;
        }
        for (; x < frame->w; ++x) hash[0] = (hash[0] ^ row[x]) * prime, hash[0] ^= hash[0] >> 32;
    }
    return ((hash[0] * prime + hash[1]) * prime + hash[2]) * prime + hash[3];
}

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
    destroy_bitmap(snapshot);
    snapshot = nullptr;
    if (!written) return rescue_failed();
    fails = false;
}

void start_writing(Print print) {
    snapshot = copy_bitmap(current_frame).release();
    if (snapshot == nullptr) return rescue_failed();
    written = false;
    done = false;
    try {
        writer = std::jthread([path = rescue_path(frame_index), picture = snapshot] {
            written = save_bmp_file(path, picture);
            done = true;
        });
        rescued_print = print;
    } catch (const std::system_error&) {  // no more threads: the next tick that is due tries again
        done = true;
        destroy_bitmap(snapshot);
        snapshot = nullptr;
        rescue_failed();
    }
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
    if (print == rescued_print) return;
    if (print != saved_print) return start_writing(print);
    // The changes were undone: the rescue of them would bring them back.
    if (rescued_print != 0) remove_file(rescue_path(frame_index));
    rescued_print = 0;
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
    start_writing(print_of(current_frame));
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
