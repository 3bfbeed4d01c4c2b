// LASSO and WAND by their keys, and what becomes of what they have taken.
#include "windows/cel/select.h"

#include "paint/cel_pixels.h"
#include "paint/selection.h"
#include "state/cel.h"
#include "state/flow.h"
#include "state/run.h"
#include "windows/cel/cel_commands.h"
#include "windows/kit/run_window.h"
#include "workspace/notices.h"

namespace nubo {
namespace {

const char* prompt_of(const PixelSet& shape) {
    if (!shape.empty()) return "RIGHT CLICK TAKES IT. SHIFT ADDS, CTRL TAKES AWAY";
    return select_tool == SELECT_BY_LASSO ? "DRAW AROUND IT, OR CLICK ITS CORNERS. RIGHT CLICK LEAVES"
                                          : "CLICK WHAT THE WAND SHALL TAKE. RIGHT CLICK LEAVES";
}

SelectEnd select_on_frame(SelectionInHand& selection) {
    Waiting wait({.prompt = MESSAGE_TOLD, .hotkeys = HOTKEYS_MODAL});
    for (;;) {
        set_told_text(prompt_of(selection.shape()));
        const HandStep hand = wait.pass();
        selection.follow_frame();
        if (hand == HAND_LEFT) selection.take_from(wait, wait.point());
        if (hand == HAND_RIGHT) return SELECT_IS_CEL;
        if (hand == HAND_ESCAPES) return SELECT_IS_LEFT;
        if (const SelectEnd end = selection.asked_by_keys(); end != SELECT_GOES_ON) return end;
    }
}

void select_with(SelectTool tool) {
    select_tool = tool;
    const ClearedScreen cleared;
    SelectEnd end;
    PixelSet shape;
    {
        SelectionInHand selection;
        end = select_on_frame(selection);
        shape = selection.give();
    }
    end_selection(shape, end);
}

void take_as_cel(const PixelSet& shape) {
    const Area area = area_in_view(shape);
    if (!take_cel(cut_out(area, &shape), CEL_IS_CUT_OUT)) return flash_message(MESSAGE_NO_MEMORY);
    cel_x = area.left;
    cel_y = area.top;
}

}  // namespace

void lasso_by_key() { select_with(SELECT_BY_LASSO); }
void wand_by_key() { select_with(SELECT_BY_WAND); }

void end_selection(const PixelSet& shape, SelectEnd end) {
    // The key that has asked for it may have another meaning where this leads to.
    while ((key_down[KEY_M] != 0 || key_down[KEY_ENTER] != 0 || key_down[KEY_ENTER_PAD] != 0) && exit_requested == 0)
        update_screen(UPDATE_NORMAL);
    if (shape.empty() || end == SELECT_IS_LEFT || exit_requested != 0) return;
    end == SELECT_IS_MOVED ? move_shape(shape) : take_as_cel(shape);
}

}  // namespace nubo
