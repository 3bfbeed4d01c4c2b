#pragma once
// Frames: the one in memory, the table of all, and what undo keeps of the one in memory.
#include "state/shared.h"
#include <array>
#include <cstdint>

struct BITMAP;

namespace nubo {

// ---- The Frame in memory -------------------------------------------------------------------------------------------
// `current_frame`, `stroke_mask` and the two sizes change together: only `adopt_frame` (paint/surfaces.h) writes them.

inline constinit BITMAP* current_frame = nullptr;   // the frame being edited
inline constinit BITMAP* stroke_mask = nullptr;     // of its size: coverage of the running stroke, one int a pixel
inline constinit Shared<int> frame_w = 0;           // size of `current_frame`: the timer handlers may not look into
inline constinit Shared<int> frame_h = 0;           // a bitmap that the main flow replaces
inline constinit BITMAP* original_frame = nullptr;  // the frame as last swapped in; RESTORE copies it back
/// The Frame, while a preview shows in `current_frame`; null: none does. What is saved is never the preview, which
/// `end_frame_preview` (workspace/frame_memory.h) takes off; that has the bitmap then.
inline constinit BITMAP* frame_behind_preview = nullptr;

// ---- The table of all Frames ---------------------------------------------------------------------------------------

inline constexpr int frame_slots = 100;
inline constexpr int max_frame_side = 65535;   // pixels; memory may set a lower bound
inline constinit Shared<int> frame_count = 1;  // frames in the workspace, 1 to 100
inline constinit Shared<int> frame_index = 0;  // slot of the current frame
struct FrameView {
    int pan_x = 0, pan_y = 0, zoom = 1;
};                                                                 // frame pixels; zoom 1 to 6
inline constinit std::array<FrameView, frame_slots> frame_view{};  // kept for each frame across switches
inline constexpr int nail_tile = 40, nail_columns = 10;  // tile s of `nail_sheet` stands at (s % 10, s / 10) x 40

// ---- Undo ----------------------------------------------------------------------------------------------------------

inline constexpr int undo_depth_max = 12;
inline constexpr int undo_depth_all = undo_depth_max + 1;  // as far as the history of the Frame reaches
inline constinit BITMAP* undo_snapshot = nullptr;          // the Frame before the running stroke: what inks read

}  // namespace nubo
