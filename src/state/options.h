#pragma once
// The user's options, kept in user.def and edited in the OPTIONS window, and the names of the workspace.
#include "state/frames.h"
#include "state/labels.h"
#include "state/run.h"
#include "state/shared.h"
#include <algorithm>
#include <array>

namespace nubo {

// ---- Options: the value before user.def is read; the GUI's controls write straight into them -----------------------

inline constinit Shared<int> opt_cel_masking = 1;
inline constinit Shared<int> opt_cel_tolerance = 5;
inline constinit Shared<int> opt_crosshair_color = 0;  // 0 WHITE, 1 GRAY, 2 BLACK
inline constinit Shared<int> opt_crosshair_scaling = 1;
inline constinit Shared<int> opt_crosshair_strength = 13;  // 0 switches them off
inline constinit Shared<int> mouse_reversed = 1;           // 0 NORMAL, 1 REVERSE: swaps the buttons on GUI elements
inline constinit Shared<int> opt_cursor_zoom = 0;          // 0: the cursor grows with the zoom
inline constinit Shared<int> opt_mouse_speed = 4;
inline constinit Shared<int> opt_status_bar = 1;
inline constinit Shared<int> opt_status_font = 1;  // 0 NARROW, 1 WIDE
inline constinit Shared<int> opt_status_strength = 160;
inline constinit Shared<int> opt_tooltips = 0;
inline constinit Shared<int> opt_backless = 0;
inline constinit Shared<int> opt_tool_distance = 0;
enum GifReduction : int { REDUCTION_FAST, REDUCTION_GOOD, REDUCTION_BEST, REDUCTION_COUNT };
inline constinit Shared<int> opt_gif_reduction = REDUCTION_FAST;
inline constinit Shared<int> opt_quick_pan_strength = 225;
inline constinit Shared<int> opt_zoom_preview = 0;
inline constinit Shared<int> opt_zoom_preview_size = 1;  // 1 SMALL, 2 MEDIUM, 3 LARGE
enum FilePreview : int { PREVIEW_NONE, PREVIEW_ALL, PREVIEW_LIMIT, PREVIEW_COUNT };
inline constinit Shared<int> opt_file_preview = PREVIEW_LIMIT;
inline constinit Shared<int> opt_file_preview_limit = 2;  // units of 1,024,000 bytes
inline constinit Shared<int> opt_undo_depth = 3;
inline constinit int sfx_volume = 128, music_volume = 128;

// ---- The table of the options, in the order of the window's list ---------------------------------------------------

inline constexpr int option_choices_max = 3;
struct OptionChoice {
    Label label = LABEL_NONE;
    int value = 0;
};
using OptionChoices = std::array<OptionChoice, option_choices_max>;  // LABEL_NONE ends them

/// One option: a slider from `lowest` to `highest`, or a group of buttons. A separator has no word.
struct UserOption {
    Label label = LABEL_NONE;
    Shared<int>* word = nullptr;
    int defaults = 0;  // what the button DEFAULTS sets
    int lowest = 0, highest = 0;
    int step = 1;  // of the slider: a notch of the wheel
    OptionChoices choices{};

    /// A group of buttons.
    constexpr bool has_choices() const { return choices[0].label != LABEL_NONE; }
};

namespace of_user {

inline constexpr OptionChoices on_off{{{LABEL_ON, 1}, {LABEL_OFF, 0}}};

constexpr UserOption slider(Label label, Shared<int>& word, int defaults, int lowest, int highest, int step) {
    return {label, &word, defaults, lowest, highest, step};
}
constexpr UserOption radio(Label label, Shared<int>& word, int defaults, const OptionChoices& choices) {
    UserOption row{label, &word, defaults, choices[0].value, choices[0].value};
    for (const OptionChoice& choice : choices) {
        if (choice.label == LABEL_NONE) continue;
        row.lowest = std::min(row.lowest, choice.value);
        row.highest = std::max(row.highest, choice.value);
    }
    row.choices = choices;
    return row;
}
constexpr UserOption separator(Label label) { return {.label = label}; }

}  // namespace of_user

inline constexpr std::array user_options{
    of_user::radio(LABEL_OPTION_CEL_MASKING, opt_cel_masking, 1, of_user::on_off),
    of_user::slider(LABEL_OPTION_CEL_TOLERANCE, opt_cel_tolerance, 3, 0, 255, 5),
    of_user::separator(LABEL_SEPARATOR_1),
    of_user::radio(LABEL_OPTION_CROSSHAIRS_COLOR, opt_crosshair_color, 1,
                   {{{LABEL_WHITE, 0}, {LABEL_GRAY, 1}, {LABEL_BLACK, 2}}}),
    of_user::radio(LABEL_OPTION_CROSSHAIRS_SCALING, opt_crosshair_scaling, 1, of_user::on_off),
    of_user::slider(LABEL_OPTION_CROSSHAIRS_STRENGTH, opt_crosshair_strength, 60, 0, 255, 5),
    of_user::separator(LABEL_SEPARATOR_2),
    of_user::radio(LABEL_OPTION_MOUSE_BUTTONS, mouse_reversed, 0, {{{LABEL_NORMAL, 0}, {LABEL_REVERSE, 1}}}),
    of_user::radio(LABEL_OPTION_MOUSE_CURSOR_ZOOM, opt_cursor_zoom, 0, {{{LABEL_ON, 0}, {LABEL_OFF, 1}}}),
    of_user::slider(LABEL_OPTION_MOUSE_SPEED, opt_mouse_speed, 4, 0, 4, 1),
    of_user::separator(LABEL_SEPARATOR_3),
    of_user::radio(LABEL_OPTION_STATUS_BAR, opt_status_bar, 1, of_user::on_off),
    of_user::radio(LABEL_OPTION_STATUS_BAR_FONT, opt_status_font, 1, {{{LABEL_NARROW, 0}, {LABEL_WIDE, 1}}}),
    of_user::slider(LABEL_OPTION_STATUS_BAR_STRENGTH, opt_status_strength, 160, 0, 255, 10),
    of_user::separator(LABEL_SEPARATOR_4),
    of_user::radio(LABEL_OPTION_TOOLTIPS, opt_tooltips, 1, of_user::on_off),
    of_user::radio(LABEL_OPTION_BACKLESS_MODE, opt_backless, 0, of_user::on_off),
    of_user::radio(LABEL_OPTION_SHOW_TOOL_DISTANCE, opt_tool_distance, 1, of_user::on_off),
    of_user::radio(LABEL_OPTION_POWER_SAVING_MODE, power_saving, POWER_HIGH,
                   {{{LABEL_POWER_OFF, POWER_OFF}, {LABEL_POWER_LOW, POWER_LOW}, {LABEL_POWER_HIGH, POWER_HIGH}}}),
    of_user::radio(LABEL_OPTION_GIF_COLOR_REDUCTION, opt_gif_reduction, REDUCTION_FAST,
                   {{{LABEL_FAST, REDUCTION_FAST}, {LABEL_GOOD, REDUCTION_GOOD}, {LABEL_BEST, REDUCTION_BEST}}}),
    of_user::slider(LABEL_OPTION_QUICK_PAN_STRENGTH, opt_quick_pan_strength, 225, 0, 255, 10),
    of_user::separator(LABEL_SEPARATOR_5),
    of_user::radio(LABEL_OPTION_ZOOM_PREVIEW_MODE, opt_zoom_preview, 1, of_user::on_off),
    of_user::radio(LABEL_OPTION_ZOOM_PREVIEW_SIZE, opt_zoom_preview_size, 2,
                   {{{LABEL_SMALL, 1}, {LABEL_MEDIUM, 2}, {LABEL_LARGE, 3}}}),
    of_user::separator(LABEL_SEPARATOR_6),
    of_user::radio(LABEL_OPTION_FILE_PREVIEW_MODE, opt_file_preview, PREVIEW_LIMIT,
                   {{{LABEL_ALL, PREVIEW_ALL}, {LABEL_LIMIT, PREVIEW_LIMIT}, {LABEL_PREVIEW_NONE, PREVIEW_NONE}}}),
    of_user::slider(LABEL_OPTION_FILE_PREVIEW_SIZE_LIMIT, opt_file_preview_limit, 2, 0, 64, 2),
    of_user::slider(LABEL_OPTION_UNDO_DEPTH, opt_undo_depth, 3, 1, undo_depth_all, 1),
};
static_assert(rows_in_order(user_options, &UserOption::label, LABEL_OPTION_CEL_MASKING));

// ---- Names ---------------------------------------------------------------------------------------------------------

inline constexpr int path_size = 256, file_name_size = 128, text_size = 256;  // bytes, the terminator included
inline constinit std::array<char, text_size> workspace_title{"UNNAMED WORKSPACE"};
inline constinit std::array<char, text_size> workspace_notes{"..."};
inline constinit std::array<char, path_size> image_dir{};          // in which image files are opened
inline constinit std::array<char, file_name_size> image_file{};    // last picked in the browser
inline constinit std::array<char, path_size> program_dir{};        // of the executable, without the last separator
inline constinit std::array<char, path_size> default_image_dir{};  // HOME directories; empty: floating
inline constinit std::array<char, path_size> default_font_dir{};
inline constinit std::array<char, path_size> font_dir{};  // of the preferred font
inline constinit std::array<char, file_name_size> font_name{};
inline constinit std::array<char, text_size> text_tool_text{};  // last byte always zero
inline constinit int text_tool_size = 0;                        // 0 is read as 28
inline constinit Shared<int> text_tool_gap = 0;                 // pixels behind each letter of TEXT
inline constinit Shared<int> jpeg_quality = 90;                 // 0 to 100
inline constinit int state_flag = 1, state_format = 13;         // of the workspace's state file
inline constinit int workspace_damaged = 0;                     // repairs were made; told once

}  // namespace nubo
