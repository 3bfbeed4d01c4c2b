#pragma once
// The brush tools: one table, a row each; and what the drawing menu and the Workspace hold of tools and inks. What the
// tools do stands in the table of paint/tool_table.h.
#include "state/choices.h"
#include "state/inks.h"
#include "state/shared.h"
#include <array>

namespace nubo {

// ---- Numbers -------------------------------------------------------------------------------------------------------

/// The number of a tool, as the Workspace stores it.
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

// ---- Options of the tools ------------------------------------------------------------------------------------------

enum ToolOption : int {
    OPTION_FILLED = 0,  // BOX, CIRCLE, OVAL, POLY, R.POLY, FSHAPE, SSHAPE, SPLINE
    OPTION_DRIZ_RADIUS = 0,
    OPTION_DRIZ_TAPER = 1,
    OPTION_TOLERANCE = 0,        // EDGE, FILL, SEP.
    OPTION_USE_BRUSH_COLOR = 0,  // MOVE
    OPTION_CLOSED = 1,           // SPLINE
    OPTION_CURVE = 2,            // SPLINE
    OPTION_SPRAY_DENSITY = 0,
    OPTION_SPRAY_RADIUS = 1,
    OPTION_ANTIALIAS = 0  // TEXT
};

namespace of_tool {

inline constexpr int filled_w = 55;
inline constexpr ChoiceOption filled{KIND_TOGGLE,
                                     OPTION_FILLED,
                                     LABEL_FILLED,
                                     0,
                                     1,
                                     1,
                                     MESSAGE_FILLED,
                                     {.told = {MESSAGE_BRUSH_HOLLOW, MESSAGE_BRUSH_FILLED}},
                                     filled_w};
inline constexpr ChoiceOption filled_without_key{KIND_TOGGLE, OPTION_FILLED,  LABEL_FILLED, 0,       1,
                                                 1,           MESSAGE_FILLED, {},           filled_w};
inline constexpr ChoiceOption driz_radius{KIND_SLIDER,
                                          OPTION_DRIZ_RADIUS,
                                          LABEL_TOOL_RADIUS,
                                          0,
                                          32,
                                          6,
                                          MESSAGE_RADIUS,
                                          {.title = LABEL_SET_TOOL_RADIUS, .highest = 32}};
inline constexpr ChoiceOption driz_taper{KIND_SLIDER, OPTION_DRIZ_TAPER, LABEL_TAPER, 0, 32, 24, MESSAGE_TAPER};
inline constexpr ChoiceOption tolerance{KIND_SLIDER,
                                        OPTION_TOLERANCE,
                                        LABEL_TOLERANCE,
                                        0,
                                        255,
                                        5,
                                        MESSAGE_TOLERANCE,
                                        {.title = LABEL_SET_TOOL_TOLERANCE, .highest = 255}};
inline constexpr ChoiceOption use_brush_color{
    KIND_TOGGLE, OPTION_USE_BRUSH_COLOR, LABEL_USE_BRUSH_COLOR, 0, 1, 0, MESSAGE_NONE, {}, 97};
inline constexpr ChoiceOption spline_filled{KIND_TOGGLE, OPTION_FILLED, LABEL_FILLED, 0, 1, 0, MESSAGE_FILLED};
inline constexpr ChoiceOption spline_closed{KIND_TOGGLE, OPTION_CLOSED, LABEL_CLOSED, 0, 1, 0, MESSAGE_CLOSED};
inline constexpr ChoiceOption spline_curve{KIND_SLIDER, OPTION_CURVE, LABEL_CURVE, 0, 100, 50, MESSAGE_CURVE};
inline constexpr ChoiceOption spray_density{
    KIND_SLIDER,
    OPTION_SPRAY_DENSITY,
    LABEL_DENSITY,
    0,
    255,
    24,
    MESSAGE_DENSITY,
    {.title = LABEL_SET_TOOL_DENSITY, .highest = 32}};  // the key's slider is for the lower end
inline constexpr ChoiceOption spray_radius{KIND_SLIDER, OPTION_SPRAY_RADIUS, LABEL_TOOL_RADIUS, 0, 31,
                                           12,          MESSAGE_RADIUS};
inline constexpr ChoiceOption antialias{KIND_TOGGLE,
                                        OPTION_ANTIALIAS,
                                        LABEL_ANTIALIAS,
                                        0,
                                        1,
                                        1,
                                        MESSAGE_ANTIALIAS,
                                        {.told = {MESSAGE_BRUSH_ROUGH, MESSAGE_BRUSH_ANTIALIASED}},
                                        65};

}  // namespace of_tool

// ---- The table -----------------------------------------------------------------------------------------------------

struct ToolKind {
    BrushTool number;
    std::string_view name;
    ChoiceOptions options;
    Description description;
};

/// Held to the rules of `choices_are_sound` by paint/tools.cpp.
inline constexpr std::array<ToolKind, TOOL_COUNT> tools{{
    {TOOL_NONE, "", {}, {}},
    {TOOL_BOX, "BOX", {of_tool::filled}, {"DRAWS A RECTANGLE.", "USES CURRENT BRUSH", "IF IT'S NOT FILLED."}},
    {TOOL_CIRCLE, "CIRCLE", {of_tool::filled}, {"DRAWS A CIRCLE.", "USES CURRENT BRUSH", "IF IT'S NOT FILLED."}},
    {TOOL_DRAW,
     "DRAW",
     {},
     {"DRAWS A SINGLE POINT", "ON THE FRAME USING", "THE CURRENT BRUSH", "COLOR AND TIP STYLE.", "",
      "HOLD THE BUTTON DOWN", "FOR FREEHAND DRAWING"}},
    {TOOL_DRIZ,
     "DRIZ.",
     {of_tool::driz_radius, of_tool::driz_taper},
     {"JUST LIKE DRAW, BUT", "WITH A BRUSH WIDTH", "THAT DECREASES THE", "FASTER YOU MOVE. NOT", "COMPATIBLE WITH",
      "BRUSH TIPS."}},
    {TOOL_EDGE,
     "EDGE",
     {of_tool::tolerance},
     {"OUTLINES THE COLOR", "YOU SELECT WITH A", "FRINGE BASED ON THE", "CURRENT BRUSH COLOR", "AND INK STYLE."}},
    {TOOL_FILL,
     "FILL",
     {of_tool::tolerance},
     {"FLOOD FILLS AN AREA", "USING THE CURRENT", "COLOR AND INK TYPE.", "THIS CAN BE SLOW AS", "HELL FOR VERY LARGE",
      "AREAS, SO USE 'BOX'", "INSTEAD OF THIS", "WHENEVER REASONABLE.", "RAISE TOLERANCE FOR", "A LOOSER FILL."}},
    {TOOL_LINE,
     "LINE",
     {},
     {"APPLIES INK IN A", "STRAIGHT LINE WITH", "THE CURRENT BRUSH", "COLOR AND TIP. YOU", "WILL SELECT A START",
      "AND END POINT FOR", "THE LINE."}},
    {TOOL_MOVE,
     "MOVE",
     {of_tool::use_brush_color},
     {"REPOSITIONS A", "RECTANGULAR AREA OF", "THE CURRENT FRAME.", "EMPTY SPACE WILL BE", "FILLED WITH THE MASK",
      "COLOR, REGARDLESS OF", "BRUSH OR INK TYPE,", "UNLESS YOU TOGGLE", "THE TOOL'S OPTION."}},
    {TOOL_OVAL,
     "OVAL",
     {of_tool::filled},
     {"DRAWS AN ELLIPSE BY", "DEFINING THE MAJOR", "AND MINOR AXES, THEN", "APPLYING AN ANGLE.", "USES CURRENT BRUSH",
      "IF IT'S NOT FILLED."}},
    {TOOL_POLY,
     "POLY",
     {of_tool::filled},
     {"DRAWS AN IRREGULAR", "POLYGON BY DEFINING", "ONE POINT AT A TIME.", "USES CURRENT BRUSH",
      "IF IT'S NOT FILLED."}},
    {TOOL_RPOLY,
     "R.POLY",
     {of_tool::filled_without_key},
     {"DRAW A REGULAR", "POLYGON BY DEFINING", "SIZE, ANGLE, AND", "NUMBER OF SIDES.", "USES CURRENT BRUSH",
      "IF IT'S NOT FILLED."}},
    {TOOL_SEP,
     "SEP.",
     {of_tool::tolerance},
     {"REPLACES ANY COLOR", "GLOBALLY WITH YOUR", "CURRENT BRUSH COLOR.", "RAISE TOLERANCE FOR", "A WIDER RANGE OF",
      "ACCEPTABLE COLORS.", "THE DEFAULT VALUE OF", "5 IS USUALLY GOOD."}},
    {TOOL_FSHAPE,
     "FSHAPE",
     {of_tool::filled},
     {"DRAWS A FREEHAND", "SHAPE AS LONG AS THE", "MOUSE IS HELD DOWN.", "RELEASE TO CLOSE THE", "SHAPE AUTOMATICALLY.",
      "USES CURRENT BRUSH", "IF IT'S NOT FILLED."}},
    {TOOL_SSHAPE,
     "SSHAPE",
     {of_tool::filled},
     {"DEFINE A SPECIAL", "SHAPE VIA FORMULA.", "THREE PARAMETERS", "ALONG WITH AN ANGLE,", "MAGNITUDE, AND TOTAL",
      "'ARMS' TO USE. ARMS", "WORK BEST IN PAIRS.", "USES CURRENT BRUSH", "IF IT'S NOT FILLED."}},
    {TOOL_SPIRAL,
     "SPIRAL",
     {},
     {"WINDS A LINE AROUND", "A SINGLE POINT. SET", "YOUR LENGTH AND", "SPACING, THEN TURN", "THE ANGLE TO FINISH",
      "THE JOB. THIS WILL", "APPLY INK USING THE", "CURRENT BRUSH TIP."}},
    {TOOL_SPLINE,
     "SPLINE",
     {of_tool::spline_filled, of_tool::spline_closed, of_tool::spline_curve},
     {"DRAWS A CURVE AROUND", "USER DEFINED CONTROL", "NODES. CLICK TO MAKE", "A NEW NODE OR MOVE",
      "AN EXISTING ONE. YOU", "CAN ADJUST THE CURVE", "AS WELL AS TOGGLE", "OPTIONS TO CLOSE OR", "FILL THE SHAPE."}},
    {TOOL_SPRAY,
     "SPRAY",
     {of_tool::spray_density, of_tool::spray_radius},
     {"APPLY INK TO THE", "FRAME IN A CIRCULAR", "PATTERN USING THE", "CURRENT BRUSH AND", "INK STYLES. SIZE AND",
      "DENSITY OF THE SPRAY", "CAN BE TWEAKED TO", "PRODUCE A VARIETY OF", "EFFECTS WHEN PAIRED", "WITH INK."}},
    {TOOL_TEXT,
     "TEXT",
     {of_tool::antialias},
     {"PLACE TEXT ON THE", "FRAME USING BITMAP", "OR VECTOR FONTS.", "ANTIALIASING IS AN", "OPTION, AND TEXT IS",
      "DRAWN WITH INK, BUT", "NOT YOUR BRUSH TIP.", "ONLY A SINGLE LINE", "CAN BE DRAWN AT A", "TIME WITH THIS TOOL."}},
}};

/// What a description box shows by its number: tool n, or ink n at `ink_description_first` + n. Null for another.
inline constexpr int ink_description_first = 30;
constexpr const Description* find_description(int number) {
    if (number >= 0 && number < TOOL_COUNT) return &tools[at(number)].description;
    const int ink = number - ink_description_first;
    return ink >= 0 && ink < INK_COUNT ? &inks[at(ink)].description : nullptr;
}

constexpr Label tool_label(BrushTool tool) { return static_cast<Label>(LABEL_TOOL_FIRST + static_cast<int>(tool)); }

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
inline BrushTool active_tool() { return static_cast<BrushTool>(tool_slots[at(active_tool_slot)]); }
inline Ink active_ink() { return static_cast<Ink>(ink_slots[at(active_ink_slot)]); }

// ---- The options' values -------------------------------------------------------------------------------------------

inline constexpr int option_rows = 50;  // rows beyond the last tool and ink are stored and unused
/// `[tool or ink][slot]`; all 0 until a workspace fills them. The GUI's sliders and toggles write straight into them.
inline constinit std::array<std::array<Shared<int>, option_slots>, option_rows> tool_options{};
inline constinit std::array<std::array<Shared<int>, option_slots>, option_rows> ink_options{};

inline Shared<int>& tool_option(BrushTool tool, ToolOption slot) { return tool_options[at(tool)][at(slot)]; }
inline Shared<int>& ink_option(Ink ink, InkOption slot) { return ink_options[at(ink)][at(slot)]; }

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
