#pragma once
// The user's options, kept in user.def and edited in the OPTIONS window, and the names of the workspace.
#include "state/shared.h"
#include <array>

namespace nubo {

// ---- Options: the value before user.def is read; the GUI's controls write straight into them -----------------------

inline constinit Shared<int> opt_cel_masking = 1;
inline constinit Shared<int> opt_cel_tolerance = 5;    // 0 to 255
inline constinit Shared<int> opt_crosshair_color = 0;  // 0 WHITE, 1 GRAY, 2 BLACK
inline constinit Shared<int> opt_crosshair_scaling = 1;
inline constinit Shared<int> opt_crosshair_strength = 13;  // 0 to 255, 0 switches them off
inline constinit Shared<int> mouse_reversed = 1;           // 0 NORMAL, 1 REVERSE: swaps the buttons on GUI elements
inline constinit Shared<int> opt_cursor_zoom = 0;          // 0: the cursor grows with the zoom
inline constinit Shared<int> opt_mouse_speed = 4;          // 0 to 4
inline constinit Shared<int> opt_status_bar = 1;
inline constinit Shared<int> opt_status_font = 1;        // 0 NARROW, 1 WIDE
inline constinit Shared<int> opt_status_strength = 160;  // 0 to 255
inline constinit Shared<int> opt_tooltips = 0;
inline constinit Shared<int> opt_backless = 0;
inline constinit Shared<int> opt_tool_distance = 0;
enum GifReduction : int { REDUCTION_FAST, REDUCTION_GOOD, REDUCTION_BEST, REDUCTION_COUNT };
inline constinit Shared<int> opt_gif_reduction = REDUCTION_FAST;
inline constinit Shared<int> opt_quick_pan_strength = 225;  // 0 to 255
inline constinit Shared<int> opt_zoom_preview = 0;
inline constinit Shared<int> opt_zoom_preview_size = 1;  // 1 SMALL, 2 MEDIUM, 3 LARGE
enum FilePreview : int { PREVIEW_NONE, PREVIEW_ALL, PREVIEW_LIMIT, PREVIEW_COUNT };
inline constinit Shared<int> opt_file_preview = PREVIEW_LIMIT;
inline constinit Shared<int> opt_file_preview_limit = 2;    // units of 1,024,000 bytes
inline constinit Shared<int> opt_undo_depth = 3;            // 1 to 12
inline constinit int sfx_volume = 128, music_volume = 128;  // 0 to 255

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
inline constinit std::array<char, text_size> text_tool_text{" "};  // last byte always zero
inline constinit int text_tool_size = 0;                           // 0 is read as 28
inline constinit Shared<int> jpeg_quality = 90;                    // 0 to 100
inline constinit int state_flag = 1, state_format = 13;            // of the workspace's state file
inline constinit int workspace_damaged = 0;                        // repairs were made; told once

}  // namespace nubo
