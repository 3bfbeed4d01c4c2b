#include "windows/workspace_window.h"

#include "state/options.h"
#include "windows/files/file_browser.h"
#include "windows/files/workspace_archives.h"
#include "windows/kit/confirm_box.h"
#include "windows/kit/run_window.h"
#include <array>
#include <span>

namespace nubo {
namespace {

enum WorkspaceSlot : int {
    WORKSPACE_FRAMES_CAPTION = slot_content,
    WORKSPACE_TITLE_CAPTION,
    WORKSPACE_NOTES_CAPTION,
    WORKSPACE_FRAMES,
    WORKSPACE_TITLE,
    WORKSPACE_NOTES,
    WORKSPACE_SAVE,
    WORKSPACE_LOAD,
    WORKSPACE_NEW,
    WORKSPACE_RETURN,
    WORKSPACE_SLOTS
};

// clang-format off
constexpr std::array<ElementRow, WORKSPACE_SLOTS - slot_content> rows{{
    // slot                    type                   x   y    w  h  label                   left          right        tooltip                   fill
    {WORKSPACE_FRAMES_CAPTION, ELEMENT_BUTTON,        2, 12,  45, 9, LABEL_FRAMES,           ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,             &ui_border},
    {WORKSPACE_TITLE_CAPTION,  ELEMENT_BUTTON,        2, 22,  45, 9, LABEL_TITLE,            ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,             &ui_border},
    {WORKSPACE_NOTES_CAPTION,  ELEMENT_BUTTON,        2, 32,  45, 9, LABEL_NOTES,            ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,             &ui_border},
    {WORKSPACE_FRAMES,         ELEMENT_FRAME_COUNT,  48, 12, 151, 9, LABEL_NONE,             ACTION_NONE,  ACTION_NONE, MESSAGE_NONE,             &ui_background},
    {WORKSPACE_TITLE,          ELEMENT_TEXT_FIELD,   48, 22, 151, 9, LABEL_NONE,             ACTION_FOCUS, ACTION_NONE, MESSAGE_NONE,             &ui_shadow},
    {WORKSPACE_NOTES,          ELEMENT_TEXT_FIELD,   48, 32, 151, 9, LABEL_NONE,             ACTION_FOCUS, ACTION_NONE, MESSAGE_NONE,             &ui_shadow},
    {WORKSPACE_SAVE,           ELEMENT_BUTTON_LIT,    2, 42,  45, 9, LABEL_WORKSPACE_SAVE,   ACTION_CLICK, ACTION_NONE, MESSAGE_WORKSPACE_SAVE,   &ui_background},
    {WORKSPACE_LOAD,           ELEMENT_BUTTON_LIT,   50, 42,  45, 9, LABEL_WORKSPACE_LOAD,   ACTION_CLICK, ACTION_NONE, MESSAGE_WORKSPACE_LOAD,   &ui_background},
    {WORKSPACE_NEW,            ELEMENT_BUTTON_LIT,   98, 42,  45, 9, LABEL_WORKSPACE_NEW,    ACTION_CLICK, ACTION_NONE, MESSAGE_WORKSPACE_NEW,    &ui_background},
    {WORKSPACE_RETURN,         ELEMENT_BUTTON_LIT,  154, 42,  45, 9, LABEL_WORKSPACE_RETURN, ACTION_CLICK, ACTION_NONE, MESSAGE_WORKSPACE_RETURN, &ui_background},
}};
// clang-format on
static_assert(rows_in_order(rows, &ElementRow::slot, slot_content));

constexpr WindowRow window{.id = WINDOW_WORKSPACE,
                           .place = POS_WORKSPACE,
                           .x = 62,
                           .y = 70,
                           .w = 200,
                           .h = 52,
                           .child_count = WORKSPACE_SLOTS,
                           .title = LABEL_WORKSPACE_TITLE,
                           .title_w = 197,
                           .elements = rows,
                           .cancel = WORKSPACE_RETURN,
                           .outside = OUTSIDE_HIDES,
                           .focus = WORKSPACE_TITLE,
                           .pans = true};
constexpr FieldLayout field{.visible = 24, .max = 120, .font = FONT_WIDE, .selects = SELECTS_NOTHING};

void read_fields() {
    constexpr std::size_t stored = 120 + 1;  // with the terminator
    GUI_read_field(WORKSPACE_TITLE, std::span(workspace_title).first<stored>());
    GUI_read_field(WORKSPACE_NOTES, std::span(workspace_notes).first<stored>());
}

void set_fields() {
    GUI_set_field(WORKSPACE_TITLE, field, workspace_title.data());
    GUI_set_field(WORKSPACE_NOTES, field, workspace_notes.data());
}

}  // namespace

void workspace_window() {
    bool saves = false, loads = false, clears = false;
    const auto serve = [&] {
        saves = take_click(WORKSPACE_SAVE) > 0;
        loads = take_click(WORKSPACE_LOAD) > 0;
        clears = take_click(WORKSPACE_NEW) > 0;
        return saves || loads || clears ? WINDOW_DONE : WINDOW_STAYS;
    };
    run_window(window, {.built = set_fields, .show = read_fields, .serve = serve});
    if (saves) file_browser(BROWSE_TO_SAVE, PURPOSE_ARCHIVE);
    if (loads) file_browser(BROWSE_TO_LOAD, PURPOSE_ARCHIVE);
    if (clears && confirm(LABEL_CLEAR_WORKSPACE, LABEL_PREVIOUS_BRINGS_BACK)) new_workspace();
}

}  // namespace nubo
