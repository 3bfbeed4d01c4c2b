#include "gui/progress_box.h"

#include "gui/columns.h"
#include "gui/window.h"
#include "state/flow.h"
#include "state/view.h"
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

ProgressBox::ProgressBox(Label title) {
    GUI_close_window();
    key_focus = -1;
    WindowRow row = window;
    row.title = title;
    build_window(row);
    draw();
}

ProgressBox::~ProgressBox() { GUI_close_window(); }

void ProgressBox::tell(double percent) {
    progress_of(PROGRESS_BAR) = static_cast<std::int16_t>(percent);
    if (percent >= all || std::chrono::steady_clock::now() - drawn_ >= drawn_every) draw();
}

void ProgressBox::run_beside(const std::function<void()>& work) {
    // Where no thread is to be had the work is done at `get`.
    std::future<void> done = std::async(std::launch::async | std::launch::deferred, work);
    while (done.wait_for(drawn_every) == std::future_status::timeout) draw();
    done.get();
}

void ProgressBox::draw() {
    update_screen(UPDATE_NORMAL);
    drawn_ = std::chrono::steady_clock::now();
}

}  // namespace nubo
