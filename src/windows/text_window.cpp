#include "windows/text_window.h"

#include "framework/outline_font.h"
#include "gui/presses.h"
#include "gui/waiting.h"
#include "paint/tool_text.h"
#include "state/flow.h"
#include "state/mouse.h"
#include "state/outline_fonts.h"
#include "state/run.h"
#include "state/view.h"
#include "windows/files/file_browser.h"
#include "windows/kit/quick_pan.h"
#include "windows/kit/run_window.h"
#include "windows/kit/waiting_boxes.h"
#include "workspace/notices.h"
#include <algorithm>

namespace nubo {
namespace {

// ---- The window as rows --------------------------------------------------------------------------------------------

enum TextSlot : int {
    TEXT_SIZE_LABEL = slot_content,
    TEXT_SIZE,
    TEXT_GAP_LABEL,
    TEXT_GAP,
    TEXT_INPUT_LABEL,
    TEXT_INPUT,
    TEXT_OKAY,
    TEXT_CANCEL,
    TEXT_FONT,
    TEXT_SLOTS
};

constexpr SliderRange size_range{0, 350, 1}, gap_range{0, 32, 1};

constexpr ElementRow caption_row(TextSlot slot, int x, int y, Label label) {
    return {.slot = slot, .x = x, .y = y, .w = 35, .label = label, .fill = &ui_border};
}
constexpr ElementRow button_row(TextSlot slot, int x, Label label) {
    return {.slot = slot, .type = ELEMENT_BUTTON_LIT, .x = x, .y = 32, .w = 59, .label = label, .left = ACTION_CLICK};
}

constexpr ElementRow size_row{.slot = TEXT_SIZE, .type = ELEMENT_BOX, .x = 38, .y = 12, .w = 150, .range = size_range};
/// Dark, as a title is.
constexpr ElementRow one_size_row{.slot = TEXT_SIZE,
                                  .type = ELEMENT_TITLE,
                                  .x = 38,
                                  .y = 12,
                                  .w = 150,
                                  .label = LABEL_FONT_HAS_ONE_SIZE,
                                  .fill = &ui_shadow};

constexpr std::array<ElementRow, TEXT_SLOTS - slot_content> rows{{
    caption_row(TEXT_SIZE_LABEL, 2, 12, LABEL_SIZE),
    size_row,
    caption_row(TEXT_GAP_LABEL, 189, 12, LABEL_GAP),
    {.slot = TEXT_GAP, .type = ELEMENT_BOX, .x = 225, .y = 12, .w = 92, .range = gap_range},
    caption_row(TEXT_INPUT_LABEL, 2, 22, LABEL_INPUT),
    {.slot = TEXT_INPUT, .type = ELEMENT_TEXT_FIELD, .x = 38, .y = 22, .w = 279, .fill = &ui_shadow},
    button_row(TEXT_OKAY, 2, LABEL_OKAY),
    button_row(TEXT_CANCEL, 62, LABEL_CANCEL),
    {.slot = TEXT_FONT, .type = ELEMENT_FILE_NAME, .x = 122, .y = 32, .w = 195, .left = ACTION_CLICK},
}};
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr int window_h = 43, upper_y = 0, lower_y = view_h - 1 - window_h;
constexpr WindowRow window{.id = WINDOW_TEXT,
                           .x = 0,
                           .y = lower_y,
                           .w = 319,
                           .h = window_h,
                           .child_count = TEXT_SLOTS,
                           .title = LABEL_TEXT_TITLE,
                           .title_w = 316,
                           .elements = rows,
                           .cancel = TEXT_CANCEL,
                           .focus = TEXT_INPUT,
                           .prompt = MESSAGE_CEL_REPOSITION,
                           .pans = true};
constexpr FieldLayout input_layout{.visible = 45, .max = 120, .font = FONT_WIDE, .selects = SELECTS_NOTHING};

// ---- The tool ------------------------------------------------------------------------------------------------------

constinit Word size = 0;  // where the slider stands

class TextTool;
constinit TextTool* running = nullptr;

class TextTool {
public:
    TextTool() : preview_(TOOL_TEXT) {
        running = this;
        text_in_hand = text_tool_text;
        size = text_tool_size < 1 ? text_size_first : std::min(text_tool_size, size_range.highest);
    }
    ~TextTool() {
        running = nullptr;
        text_in_hand.fill('\0');
    }
    TextTool(const TextTool&) = delete;
    TextTool& operator=(const TextTool&) = delete;

    void run(bool at_top) {
        WindowRow row = window;
        if (at_top) row.y = upper_y;
        follow();
        const WindowPass end = run_window(row, {.built = fill, .show = look, .serve = [&] { return serve(); }});
        if (end == WINDOW_DONE)
            commit();
        else if (exit_requested != 0)
            keep();
    }

    static void keep() {
        text_tool_text = text_in_hand;
        text_tool_size = size;
    }

    void draw_preview() {
        if (carried_) place(shown_mouse());
        line_.draw_preview();
    }

private:
    static void fill() {
        GUI_link_slider(TEXT_SIZE, &size);
        GUI_link_slider(TEXT_GAP, &text_tool_gap);
        GUI_set_field(TEXT_INPUT, input_layout, text_in_hand.data());
        settle_size();
    }

    /// Of a font that has one size only, SIZE says so in the place of its slider.
    static void settle_size() {
        const bool slides = !font_has_one_size(preferred_font);
        if (slides == (gui::has_slider[TEXT_SIZE] != 0)) return;
        build_element(slides ? size_row : one_size_row, window_x(), window_y());
        if (slides) GUI_link_slider(TEXT_SIZE, &size);
    }

    static void look() {
        GUI_read_field(TEXT_INPUT, text_in_hand);
        settle_size();
    }

    WindowPass serve() {
        const bool entered = take_click(TEXT_INPUT) > 0, okay = take_click(TEXT_OKAY) > 0;
        look();  // behind the clicks: what was typed before them belongs to the text
        follow();
        if (entered || okay || right_press_outside()) return WINDOW_DONE;
        if (take_click(TEXT_FONT) > 0) choose_font();
        const Point mouse{pixel_x, pixel_y};
        return pressed_outside(mouse_left) && line_.contains(mouse) ? carry(mouse) : WINDOW_STAYS;
    }

    void follow() {
        const TextLook look{text_in_hand.data(), size, text_tool_gap, tool_option(TOOL_TEXT, OPTION_ANTIALIAS)};
        if (!line_.follow(look)) flash_text("THIS TEXT IS TOO LARGE TO BE DRAWN");
    }

    void choose_font() {
        file_browser(BROWSE_FOR_FONT, PURPOSE_FONT);
        show_waiting_boxes();
        line_.change_font();
    }

    void place(Point mouse) const { click_points[0] = {mouse.x - grip_.x, mouse.y - grip_.y}; }

    /// The line follows the mouse until the next press: a left one sets it down, a right one paints it, ESC puts it
    /// back.
    WindowPass carry(Point press) {
        const Point before = click_points[0];
        grip_ = {press.x - before.x, press.y - before.y};
        carried_ = true;
        Waiting wait({.prompt = MESSAGE_TEXT_POINT, .hotkeys = HOTKEYS_MODAL});
        HandStep hand = HAND_RESTS;
        while (hand == HAND_RESTS) {
            hand = wait.pass();
            if (mouse_middle != 0) quick_pan();
        }
        carried_ = false;
        if (hand == HAND_ESCAPES)
            click_points[0] = before;
        else
            place({pixel_x, pixel_y});
        return hand == HAND_RIGHT ? WINDOW_DONE : WINDOW_STAYS;
    }

    void commit() {
        preview_.reset();
        line_.commit();
        keep();
    }

    TextInHand line_;
    std::optional<ToolPreview> preview_;
    bool carried_ = false;
    Point grip_{};  // where the hand holds the line, from its corner
};

void draw_text_preview() {
    if (running != nullptr) running->draw_preview();
}

}  // namespace

void register_text_window() {
    set_tool_runner(TOOL_TEXT, text_tool);
    set_preview_drawer(TOOL_TEXT, draw_text_preview);
}

void keep_open_text() {
    if (running != nullptr) TextTool::keep();
}

void text_tool(BrushTool) {
    if (preferred_font == nullptr) return;
    const bool at_top = mouse_y >= view_h / 2;
    click_points[0] = {pixel_x - text_margin, pixel_y - text_margin};
    wait_while_down(mouse_left);
    TextTool().run(at_top);
}

}  // namespace nubo
