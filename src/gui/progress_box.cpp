#include "gui/progress_box.h"

#include "gui/window.h"
#include "state/flow.h"
#include "state/gui.h"
#include "state/run.h"
#include <array>
#include <future>

namespace nubo {
namespace {

using namespace std::chrono_literals;

enum ProgressSlot : int { PROGRESS_BAR = slot_content, PROGRESS_SLOTS };

constexpr std::array<ElementRow, 1> rows{
    {{.slot = PROGRESS_BAR, .type = ELEMENT_PROGRESS, .x = 2, .y = 12, .w = 117, .h = 9}}};

constexpr WindowRow window{.id = WINDOW_BOX,
                           .x = view_w / 2 - 60,
                           .y = view_h / 3,
                           .w = 120,
                           .h = 42,
                           .child_count = PROGRESS_SLOTS,
                           .title_w = 117,
                           .elements = rows};

constexpr auto drawn_every = 40ms;
constexpr double all = 100;

}  // namespace

ProgressBox::ProgressBox(Label title)
    : disk_waits_([this](const auto& wait, std::size_t bytes) { draw_beside(wait, bytes); }) {
    GUI_close_window();
    key_focus = -1;
    WindowRow row = window;
    row.title = title;
    build_window(row);
    draw();
}

ProgressBox::~ProgressBox() { GUI_close_window(); }

void ProgressBox::tell(double percent) {
    gui::progress[at(PROGRESS_BAR)] = static_cast<std::int16_t>(percent);
    percent >= all ? draw() : draw_if_due();
}

/// A long wait has a thread of its own; where none is to be had it is made at `get`.
void ProgressBox::draw_beside(const std::function<void()>& wait, std::size_t bytes) {
    constexpr std::size_t takes_long = 1'000'000;
    if (bytes < takes_long) return wait(), draw_if_due();
    std::future<void> done = std::async(std::launch::async | std::launch::deferred, wait);
    while (done.wait_for(drawn_every) == std::future_status::timeout) draw();
    done.get();
}

void ProgressBox::draw_if_due() {
    if (std::chrono::steady_clock::now() - drawn_ >= drawn_every) draw();
}

void ProgressBox::draw() {
    const DiskWaits no_picture(nullptr);  // if the display is lost here, the work is saved without one
    update_screen(UPDATE_NORMAL);
    drawn_ = std::chrono::steady_clock::now();
}

}  // namespace nubo
