// TURN: the Cel about a point that the user clicks, by the angle of a slider.
#include "base/keys.h"
#include "gui/presses.h"
#include "gui/window.h"
#include "paint/cel_pixels.h"
#include "state/flow.h"
#include "state/mouse.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/view.h"
#include "state/windows.h"
#include "windows/cel/cel_commands.h"
#include "windows/kit/over_frame.h"
#include "windows/kit/placement.h"
#include "windows/kit/run_window.h"
#include <array>

namespace nubo {
namespace {

constexpr int full_circle = 360, turn_w = 142, turn_h = 36, row_w = turn_w - 3, answer_w = 59;
enum TurnSlot : int { TURN_SLIDER = slot_content, TURN_OKAY, TURN_CANCEL, TURN_SLOTS };

constexpr ElementRow answer_row(TurnSlot slot, int x, Label label) {
    return {
        .slot = slot, .type = ELEMENT_BUTTON_LIT, .x = x, .y = 26, .w = answer_w, .label = label, .left = ACTION_CLICK};
}
constexpr std::array<ElementRow, TURN_SLOTS - slot_content> turn_rows{
    {{.slot = TURN_SLIDER,
      .type = ELEMENT_BOX,
      .x = 2,
      .y = 13,
      .w = row_w,
      .range = {.lowest = 0, .highest = full_circle, .step = 1}},
     answer_row(TURN_OKAY, 2, LABEL_OKAY),
     answer_row(TURN_CANCEL, turn_w - 1 - answer_w, LABEL_CANCEL)}};
static_assert(rows_in_order(turn_rows, &ElementRow::slot, slot_content));

/// Far from the pivot: in the corner across from its quarter of the view.
void open_turn_window(Point pivot) {
    constexpr int margin = 15;
    const bool right = pivot.x < view_center_x, low = pivot.y < view_center_y;
    build_window({.id = WINDOW_BOX,
                  .x = right ? view_w - margin - turn_w : margin,
                  .y = low ? view_h - margin - turn_h : margin,
                  .w = turn_w,
                  .h = turn_h,
                  .child_count = TURN_SLOTS,
                  .title = LABEL_SET_ROTATION,
                  .title_w = row_w,
                  .elements = turn_rows,
                  .base = high_slot});
    gui::slider_value[at(high_slot + TURN_SLIDER)] = std::clamp(cel_angle, 0, full_circle);
}

/// The window as long as it lives; `menu_id` is its own meanwhile, so that a drag of it moves no other window's place.
class TurnWindow {
public:
    explicit TurnWindow(Point pivot) : menu_before_(menu_id) { open_turn_window(pivot); }
    ~TurnWindow() {
        clear_high_slots();
        menu_id = menu_before_;
    }
    TurnWindow(const TurnWindow&) = delete;
    TurnWindow& operator=(const TurnWindow&) = delete;

private:
    int menu_before_;
};

int angle = 0;           // degrees, as shown
int angle_followed = 0;  // of the slider, when the angle was taken from it

/// The angle goes where the slider is moved, with SHIFT in steps. SHIFT alone, as with an arrow key, leaves it. The
/// slider comes to the step once SHIFT and the button are up.
void follow_slider() {
    constexpr int step = 15;
    constexpr double part_of_256 = 0.711111111;
    Word& slider = gui::slider_value[at(high_slot + TURN_SLIDER)];
    const int value = slider;
    if (value != angle_followed) angle = shift_is_down() ? (value + step / 2) / step * step : value;
    angle_followed = value;
    if (!shift_is_down() && mouse_left == 0) slider = angle_followed = angle;
    cel_place.x2 = static_cast<int>(angle * part_of_256);
    cel_place.degrees = angle;
}

Outcome serve_turn(HandStep, Point) {
    follow_slider();
    if (take_click(high_slot + TURN_CANCEL) > 0) return LEAVES;
    return take_click(high_slot + TURN_OKAY) > 0 ? ANCHORS : NOT_SERVED;
}

/// The box is that of the pixels on the overlay.
bool lies_in_box(Point at) {
    const int x = at.x - shown.pan_x, y = at.y - shown.pan_y;
    return x >= cel_place.left && x <= cel_place.right && y >= cel_place.top && y <= cel_place.bottom &&
           cel_place.right >= 0;
}

constexpr PlacementKind turn_kind{.shown = CEL_TURN,
                                  .committed = CEL_TURN,
                                  .prompt = [] { return MESSAGE_TURN_ANGLE; },
                                  .held_prompt = MESSAGE_TURN_NEW_CENTER,
                                  .takes_up = lies_in_box,
                                  .serve = serve_turn};

bool ask_pivot(Point& pivot) {
    Waiting wait({.prompt = MESSAGE_TURN_CENTER, .hotkeys = HOTKEYS_MODAL});
    if (!wait.for_click()) return false;
    pivot = wait.point();
    return true;
}

}  // namespace

void turn_cel_about(int x, int y) {
    prepare_cel();
    const TurnWindow window({x, y});
    cel_place = {.x = x, .y = y, .selected = 0};
    angle = angle_followed = gui::slider_value[at(high_slot + TURN_SLIDER)];
    follow_slider();
    if (run_placement(turn_kind, UNDO_TO_SAVE) == PLACEMENT_ANCHORED) cel_angle = angle;
}

void turn_cel() {
    const ClearedScreen cleared;
    if (Point pivot; ask_pivot(pivot)) turn_cel_about(pivot.x, pivot.y);
}

}  // namespace nubo
