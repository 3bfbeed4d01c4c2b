#pragma once
// Brush tools and inks: their numbers, the slots of the drawing menu that hold them, and their options.
#include "state/shared.h"
#include <array>

namespace nubo {

// ---- Numbers -------------------------------------------------------------------------------------------------------

/// Also the index of the tool's name in the label table and of its group of description lines.
enum BrushTool : int {
    TOOL_NONE,
    TOOL_BOX,
    TOOL_CIRCLE,
    TOOL_DRAW,
    TOOL_DRIZ,
    TOOL_EDGE,
    TOOL_FILL,
    TOOL_LINE,
    TOOL_MOVE,
    TOOL_OVAL,
    TOOL_POLY,
    TOOL_RPOLY,
    TOOL_SEP,
    TOOL_FSHAPE,
    TOOL_SSHAPE,
    TOOL_SPIRAL,
    TOOL_SPLINE,
    TOOL_SPRAY,
    TOOL_TEXT,
    TOOL_COUNT
};

/// The name of ink n is label 200 + n, its description group 30 + n.
enum Ink : int {
    INK_ADD,
    INK_BRIGHT,
    INK_CLOSE,
    INK_DARK,
    INK_EMBOSS,
    INK_GLASS,
    INK_GLOW,
    INK_GRAIN,
    INK_GRAY,
    INK_HGRAD,
    INK_HOLLOW,
    INK_JUMBLE,
    INK_LGRAD,
    INK_OPAQUE,
    INK_PULL,
    INK_RGRAD,
    INK_SCRAPE,
    INK_SPARK,
    INK_SOFTEN,
    INK_SUB,
    INK_SWEEP,
    INK_TILE,
    INK_UNZAG,
    INK_VGRAD,
    INK_XOR,
    INK_COUNT
};

// ---- The six slots of each in the drawing menu ---------------------------------------------------------------------

inline constexpr int choice_slots = 6;
inline constexpr std::array<int, choice_slots> default_tool_slots{TOOL_DRAW, TOOL_CIRCLE, TOOL_BOX,
                                                                  TOOL_OVAL, TOOL_POLY,   TOOL_FSHAPE};
inline constexpr std::array<int, choice_slots> default_ink_slots{INK_OPAQUE, INK_ADD,    INK_BRIGHT,
                                                                 INK_DARK,   INK_EMBOSS, INK_UNZAG};
inline constinit std::array<int, choice_slots> tool_slots = default_tool_slots;
inline constinit std::array<int, choice_slots> ink_slots = default_ink_slots;
inline constinit int active_tool_slot = 0, active_ink_slot = 0;

/// The tool and the ink in use.
inline BrushTool active_tool() { return static_cast<BrushTool>(tool_slots[static_cast<unsigned>(active_tool_slot)]); }
inline Ink active_ink() { return static_cast<Ink>(ink_slots[static_cast<unsigned>(active_ink_slot)]); }

// ---- Options -------------------------------------------------------------------------------------------------------

inline constexpr int option_rows = 50, option_slots = 8;  // rows beyond the last tool and ink are stored and unused
/// `[tool or ink][slot]`; all 0 until a workspace fills them. The GUI's sliders and toggles write straight into them.
inline constinit std::array<std::array<Shared<int>, option_slots>, option_rows> tool_options{};
inline constinit std::array<std::array<Shared<int>, option_slots>, option_rows> ink_options{};

enum ToolOption : int {
    OPTION_FILLED = 0,           // BOX, CIRCLE, OVAL, POLY, R.POLY, FSHAPE, SSHAPE, SPLINE: 0 or 1
    OPTION_DRIZ_RADIUS = 0,      // 0 to 32
    OPTION_DRIZ_TAPER = 1,       // 0 to 32
    OPTION_TOLERANCE = 0,        // EDGE, FILL, SEP.: 0 to 255
    OPTION_USE_BRUSH_COLOR = 0,  // MOVE: 0 or 1
    OPTION_CLOSED = 1,           // SPLINE: 0 or 1
    OPTION_CURVE = 2,            // SPLINE: 0 to 100
    OPTION_SPRAY_DENSITY = 0,    // 0 to 255
    OPTION_SPRAY_RADIUS = 1,     // 0 to 31
    OPTION_ANTIALIAS = 0         // TEXT: 0 or 1
};
enum InkOption : int {
    OPTION_STRENGTH = 0,          // 0 to 255; JUMBLE 1 to 5, UNZAG 0 to 100
    OPTION_GLOW_RADIUS = 1,       // 0 to 31
    OPTION_GRAIN_FREQUENCY = 1,   // 0 to 100
    OPTION_HOLLOW_TOLERANCE = 0,  // 0 to 255
    OPTION_REPEAT = 0,            // the four gradients: 0 or 1
    OPTION_BANDING = 2,           // the four gradients: 0 to 255
    OPTION_NODE = 3,              // first node; H.GRAD and V.GRAD 3, 4; L.GRAD and R.GRAD x, y, x, y at 3 to 6
    OPTION_RADIAL_RADIUS = 7      // R.GRAD: derived from the nodes
};

/// One option of a tool or an ink, by its number and its slot.
inline Shared<int>& tool_option(BrushTool tool, ToolOption slot) {
    return tool_options[static_cast<unsigned>(tool)][static_cast<unsigned>(slot)];
}
inline Shared<int>& ink_option(Ink ink, InkOption slot) {
    return ink_options[static_cast<unsigned>(ink)][static_cast<unsigned>(slot)];
}

// ---- Values that the shape windows remember, stored in the workspace -----------------------------------------------

struct PolygonValues {
    int angle = 0, radius = 0, sides = 0;
};
struct SpiralValues {
    int angle = 0, scale = 0, wraps = 0, spread = 0, flip = 0;
};
struct SupershapeValues {
    int angle = 0, n1 = 0, n2 = 0, n3 = 0, arms = 0, magnitude = 0;
};
inline constinit PolygonValues polygon_values;
inline constinit SpiralValues spiral_values;
inline constinit SupershapeValues supershape_values;

}  // namespace nubo
