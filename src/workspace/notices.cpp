#include "workspace/notices.h"

#include "state/flow.h"
#include "state/options.h"
#include "state/run.h"
#include "state/view.h"
#include <algorithm>

namespace nubo {

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
    set_told_text(text);
    flash_message(MESSAGE_TOLD);
}

void say_busy(std::size_t amount) {
    constexpr std::size_t takes_long = 1'000'000;  // the colours of a GIF are learned from as many in that time
    if (amount < takes_long) return;
    flash_text("ONE MOMENT...");
    update_screen(UPDATE_NORMAL);
}

void mark_damage() { workspace_damaged = 1; }

}  // namespace nubo
