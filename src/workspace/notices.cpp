#include "workspace/notices.h"

#include "state/flow.h"
#include "state/options.h"
#include "state/run.h"
#include "state/status.h"
#include <algorithm>
#include <string_view>

namespace nubo {
namespace {

constexpr std::string_view one_moment = "ONE MOMENT...";

}  // namespace

void queue_box(Label first, Label second) {
    const auto begin = pending_boxes.begin(), end = begin + pending_box_count;
    const bool waits =
        std::any_of(begin, end, [&](const PendingBox& box) { return box.first == first && box.second == second; });
    if (waits || pending_box_count == box_slots) return;
    pending_boxes[static_cast<unsigned>(pending_box_count++)] = {first, second};
}

std::optional<PendingBox> take_box() {
    if (pending_box_count == 0) return std::nullopt;
    const PendingBox oldest = pending_boxes.front();
    std::rotate(pending_boxes.begin(), pending_boxes.begin() + 1, pending_boxes.end());
    --pending_box_count;
    return oldest;
}

void flash_message(Message message) {
    status_message = message;
    status_timer = flash_ticks;
}

void set_told_text(const std::string& text) {
    told_text.fill('\0');
    const std::size_t length = std::min(text.size(), told_text.size() - 1);
    std::replace_copy(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length), told_text.begin(), '|', '!');
}

void flash_text(const std::string& text) {
    constexpr int ticks_to_read = 5;  // of a letter, where the text is long
    set_told_text(text);
    flash_message(MESSAGE_TOLD);
    status_timer = std::max(flash_ticks, ticks_to_read * static_cast<int>(text.size()));
}

BusyNotice::BusyNotice(std::size_t amount) {
    // A PNG of noise has as many pixels packed in that time, and one of few colours as many bytes unpacked, of which
    // each may stand for a thousand.
    constexpr std::size_t takes_long = 150'000;
    if (amount < takes_long) return;
    flash_text(std::string(one_moment));
    update_screen(UPDATE_NORMAL);
}

BusyNotice::~BusyNotice() {
    if (status_message != MESSAGE_TOLD || told_text.data() != one_moment) return;  // what came of it is told
    status_message = status_coordinates;
    status_timer = 0;
}

void mark_damage() { workspace_damaged = 1; }

}  // namespace nubo
