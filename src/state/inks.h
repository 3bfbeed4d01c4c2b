#pragma once
// The inks: one table, a row each. A new ink is an enumerator and a row here, and a file of its own in paint/, which
// says what it does.
#include "state/choices.h"
#include "state/colors.h"
#include "state/frames.h"
#include "state/run.h"
#include "state/shared.h"

namespace nubo {

// ---- Numbers -------------------------------------------------------------------------------------------------------

/// The number of an ink, as the Workspace stores it.
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

// ---- Options -------------------------------------------------------------------------------------------------------

enum InkOption : int {
    OPTION_STRENGTH = 0,
    OPTION_GLOW_RADIUS = 1,
    OPTION_GRAIN_FREQUENCY = 1,
    OPTION_HOLLOW_TOLERANCE = 0,
    OPTION_REPEAT = 0,        // the four gradients
    OPTION_BANDING = 2,       // the four gradients
    OPTION_NODE = 3,          // first node; H.GRAD and V.GRAD 3, 4; L.GRAD and R.GRAD x, y, x, y at 3 to 6
    OPTION_RADIAL_RADIUS = 7  // R.GRAD: derived from the nodes
};

namespace of_ink {

/// Blends do well in the middle of the range, effects that pile up below it, tolerances where they tell shades of a
/// colour from another.
constexpr ChoiceOption strength(int first, int lowest = 0, int highest = 255, int key_highest = 255) {
    return {KIND_SLIDER, OPTION_STRENGTH, LABEL_STRENGTH,   lowest,
            highest,     first,           MESSAGE_STRENGTH, {.title = LABEL_SET_INK_STRENGTH, .highest = key_highest}};
}
inline constexpr ChoiceOption glow_radius{KIND_SLIDER, OPTION_GLOW_RADIUS, LABEL_TOOL_RADIUS, 0, 31, 6, MESSAGE_RADIUS};
inline constexpr ChoiceOption grain_frequency{KIND_SLIDER, OPTION_GRAIN_FREQUENCY, LABEL_FREQUENCY, 0, 100,
                                              60,          MESSAGE_FREQUENCY};
inline constexpr ChoiceOption hollow_tolerance{KIND_SLIDER,
                                               OPTION_HOLLOW_TOLERANCE,
                                               LABEL_TOLERANCE,
                                               0,
                                               255,
                                               5,
                                               MESSAGE_TOLERANCE,
                                               {.title = LABEL_SET_INK_TOLERANCE, .highest = 255}};
inline constexpr ChoiceOption jumble_reach = strength(3, 1, 5, 5), unzag_strength = strength(100, 0, 100, 100);

// The nodes of a gradient lie anywhere around the Frame.
inline constexpr ChoiceOption repeat{KIND_TOGGLE, OPTION_REPEAT, LABEL_REPEAT, 0, 1, 0, MESSAGE_REPEAT};
inline constexpr ChoiceOption banding{KIND_SLIDER, OPTION_BANDING, LABEL_BANDING, 0, 255, 0, MESSAGE_BANDING};
constexpr ChoiceOption node(int index, int first) {
    return {KIND_NODE,
            OPTION_NODE + index,
            index == 0 ? LABEL_POSITION : LABEL_NONE,
            -max_frame_side,
            max_frame_side,
            first,
            index == 0 ? MESSAGE_POSITION : MESSAGE_NONE};
}
/// Between two places on one axis, the first of which is 0.
constexpr ChoiceOptions axis_gradient(int end) { return {repeat, node(0, 0), banding, node(1, end)}; }
constexpr ChoiceOptions plane_gradient(int x1, int y1, int x2, int y2) {
    return {repeat, node(0, x1), banding, node(1, y1), node(2, x2), node(3, y2)};
}

}  // namespace of_ink

// ---- The table -----------------------------------------------------------------------------------------------------

/// What the paint of a pixel depends on, beside its tip: itself alone; also its place, or chance; or so many pixels
/// around it as well.
enum InkSight : int { SEES_ITSELF = -1, SEES_ITS_PLACE = 0, SEES_NEIGHBORS = 1, SEES_FIVE_AROUND = 5 };

struct InkKind {
    Ink number;
    InkSight sight;
    std::string_view name;
    ChoiceOptions options;
    Description description;
};

/// Held to the rules of `choices_are_sound` by paint/inks.cpp.
inline constexpr std::array<InkKind, INK_COUNT> inks{{
    {INK_ADD,
     SEES_ITSELF,
     "ADD",
     {of_ink::strength(128)},
     {"THIS INK COMBINES", "THE RGB VALUES OF", "THE BRUSH COLOR WITH", "PIXELS BELOW IT.", "THIS PUSHES COLORS",
      "TOWARD WHITE IN A", "DIFFERENT FASHION", "THAN BRIGHT INK."}},
    {INK_BRIGHT,
     SEES_ITSELF,
     "BRIGHT",
     {of_ink::strength(96)},
     {"THIS INK LIGHTENS", "PIXELS, PUSHING THEM", "TOWARD WHITE. BRUSH", "COLOR IS IGNORED."}},
    {INK_CLOSE,
     SEES_NEIGHBORS,
     "CLOSE",
     {of_ink::strength(16)},
     {"THIS INK CLOSES UP", "SINGLE PIXEL GAPS", "IN OTHERWISE UNIFORM", "AREAS. USE THIS TO", "CLEAN UP MISTAKES,",
      "YOU'VE MADE WHILE", "DRAWING. BRUSH COLOR", "IS IGNORED."}},
    {INK_DARK,
     SEES_ITSELF,
     "DARK",
     {of_ink::strength(96)},
     {"THIS INK DARKENS", "PIXELS, PUSHING THEM", "TOWARD BLACK. BRUSH", "COLOR IS IGNORED."}},
    {INK_EMBOSS,
     SEES_NEIGHBORS,
     "EMBOSS",
     {of_ink::strength(96)},
     {"AT LOWER STRENGTH", "SETTINGS THIS INK", "SHARPENS THE FRAME,", "WHILE AT HIGHER", "STRENGTH IT EMBOSSES",
      "PIXELS, ACCENTING", "THEM WITH A RELIEF", "EFFECT. BRUSH COLOR", "IS IGNORED."}},
    {INK_GLASS,
     SEES_ITSELF,
     "GLASS",
     {of_ink::strength(128)},
     {"THIS INK IS SEMI-", "OPAQUE, AND WILL", "BLEND THE BRUSH", "COLOR WITH THE FRAME", "BASED ON THE INK'S",
      "STRENGTH SETTING."}},
    {INK_GLOW,
     SEES_ITSELF,
     "GLOW",
     {of_ink::strength(32), of_ink::glow_radius},
     {"THIS INK MAKES THE", "SURROUNDING AREA", "GLOW BASED ON THE", "BRUSH COLOR. THE", "RADIUS AND STRENGTH",
      "SETTINGS ARE VERY", "IMPORTANT TO THIS", "EFFECT! THIS INK", "CAN BE !EXTREMELY!", "SLOW OVER BIG AREAS."}},
    {INK_GRAIN,
     SEES_ITS_PLACE,
     "GRAIN",
     {of_ink::strength(160), of_ink::grain_frequency},
     {"APPLIES A RANDOM", "PATTERN OF LIGHT AND", "DARK COLORS BASED ON", "THE BRUSH COLOR. IT", "CAN BE USED TO SIM-",
      "ULATE FILM GRAIN AT", "LOWER SETTINGS, OR", "CRAYON STROKES AT", "THE OPPOSITE END", "OF THE SETTINGS."}},
    {INK_GRAY,
     SEES_ITSELF,
     "GRAY",
     {of_ink::strength(160)},
     {"THIS INK PUSHES", "COLORS TOWARD GRAY", "BASED ON THE", "STRENGTH SETTING. AT", "FULL STRENGTH, THE",
      "PIXELS IN THE FRAME", "WILL BE COMPLETELY", "DESATURATED. BRUSH", "COLOR IS IGNORED."}},
    {INK_HGRAD,
     SEES_ITS_PLACE,
     "H.GRAD",
     of_ink::axis_gradient(view_w - 1),
     {"APPLIES A HORIZONTAL", "GRADIENT BASED ON", "THE CURRENT SPECTRUM", "AND NODE PLACEMENT.", "THE PATTERN WILL",
      "REPEAT IF YOU ENABLE", "THAT OPTION IN THE", "INK SETTINGS MENU.", "BRUSH COLOR IS", "IGNORED."}},
    {INK_HOLLOW,
     SEES_NEIGHBORS,
     "HOLLOW",
     {of_ink::hollow_tolerance},
     {"THIS INK REMOVES", "SOLID BLOCKS OF", "IDENTICAL COLOR.", "THE NET EFFECT IS", "REDUCING FILLED",
      "SHAPES TO OUTLINES.", "ERASED PIXELS WILL", "BE FILLED WITH THE", "CURRENT MASK COLOR."}},
    {INK_JUMBLE,
     SEES_FIVE_AROUND,
     "JUMBLE",
     {of_ink::jumble_reach},
     {"THIS INK SCATTERS", "PIXELS IN A TOTALLY", "RANDOM FASHION. THE", "STRENGTH SETTING", "DETERMINES HOW FAR",
      "THINGS CAN GET", "TOSSED. THIS IS NOT", "A 1:1 OPERATION, SO", "PIXEL OVERLAP WILL", "CERTAINLY OCCUR."}},
    {INK_LGRAD,
     SEES_ITS_PLACE,
     "L.GRAD",
     of_ink::plane_gradient(40, 40, 280, 200),
     {"APPLIES A LINEAR", "GRADIENT BASED ON", "THE CURRENT SPECTRUM", "AND NODE PLACEMENT.", "THE PATTERN WILL",
      "REPEAT IF YOU ENABLE", "THAT OPTION IN THE", "INK SETTINGS MENU.", "BRUSH COLOR IS", "IGNORED."}},
    {INK_OPAQUE,
     SEES_ITSELF,
     "OPAQUE",
     {},
     {"THIS IS THE DEFAULT", "INK, WHICH DRAWS A", "FLAT COLOR WITH NO", "EFFECTS AT ALL."}},
    {INK_PULL,
     SEES_ITSELF,
     "PULL",
     {of_ink::strength(160)},
     {"MOVES A PIXEL'S HUE", "TOWARD THAT OF THE", "BRUSH COLOR, BASED", "ON THE STRENGTH", "SETTING. THIS IS",
      "SIMILAR TO THE GLASS", "TOOL, BUT LUMINANCE", "AND SATURATION ARE", "PRESERVED."}},
    {INK_RGRAD,
     SEES_ITS_PLACE,
     "R.GRAD",
     of_ink::plane_gradient(160, 116, 260, 116),
     {"APPLIES A RADIAL", "GRADIENT BASED ON", "THE CURRENT SPECTRUM", "AND NODE PLACEMENT.", "THE PATTERN WILL",
      "REPEAT IF YOU ENABLE", "THAT OPTION IN THE", "INK SETTINGS MENU.", "BRUSH COLOR IS", "IGNORED."}},
    {INK_SCRAPE,
     SEES_ITS_PLACE,
     "SCRAPE",
     {of_ink::strength(160)},
     {"THIS INK PEELS AWAY", "THE FRAME'S CONTENTS", "TO REVEAL A TILED", "CEL PATTERN. YOU", "CAN MOVE THE CEL",
      "TO SHIFT THE", "PATTERN'S OFFSET.", "BRUSH COLOR IS", "IGNORED."}},
    {INK_SPARK,
     SEES_ITSELF,
     "SPARK",
     {of_ink::strength(96)},
     {"OPPOSITE OF GRAY.", "THIS PUSHES PIXELS", "TOWARD SATURATION", "DEPENDING ON THE", "STRENGTH SETTING.",
      "REMEMBER THAT THIS", "ENHANCES EXISTING", "COLOR, SO GRAYSCALE", "IMAGES WILL NOT BE", "TREATED WELL."}},
    {INK_SOFTEN,
     SEES_NEIGHBORS,
     "SOFTEN",
     {of_ink::strength(160)},
     {"BLURS PIXELS BY", "COMPARING NEIGHBORS.", "THIS MAY BE APPLIED", "REPEATEDLY IF THE", "EFFECT ISN'T STRONG",
      "ENOUGH. BRUSH COLOR", "IS IGNORED."}},
    {INK_SUB,
     SEES_ITSELF,
     "SUB",
     {of_ink::strength(128)},
     {"THIS INK SUBTRACTS", "THE RGB VALUES OF", "THE BRUSH COLOR WITH", "PIXELS BELOW IT.", "THIS PUSHES COLORS",
      "TOWARD BLACK IN A", "DIFFERENT FASHION", "THAN DARK INK."}},
    {INK_SWEEP,
     SEES_NEIGHBORS,
     "SWEEP",
     {of_ink::strength(16)},
     {"THIS INK REMOVES", "PIXELS THAT DO NOT", "CLOSELY MATCH THEIR", "NEIGHBORS. USE THE", "STRENGTH SETTING TO",
      "CONTROL SENSITIVITY.", "THIS IS GOOD FOR", "WORKING ON NOISY", "IMAGES. BRUSH COLOR", "IS IGNORED."}},
    {INK_TILE,
     SEES_ITS_PLACE,
     "TILE",
     {},
     {"THIS DRAWS PIXELS", "USING THE CURRENT", "CEL AS A PATTERN.", "YOU CAN MOVE THE", "CEL AROUND TO",
      "CHANGE THE OFFSET.", "INVALUABLE FOR USE", "IN TEXTURING AREAS", "OF THE FRAME."}},
    {INK_UNZAG,
     SEES_NEIGHBORS,
     "UNZAG",
     {of_ink::unzag_strength},
     {"THIS INK EXAMINES", "PIXELS AND PERFORMS", "AN ANTIALIASING", "EFFECT IF THEY ARE", "IN SHARP CONTRAST",
      "WITH NEIGHBORING", "PIXELS. COMBINE WITH", "DIFFERENT BRUSHES TO", "GET THE MOST OUT OF", "THIS INK."}},
    {INK_VGRAD,
     SEES_ITS_PLACE,
     "V.GRAD",
     of_ink::axis_gradient(view_h - 1),
     {"APPLIES A VERTICAL", "GRADIENT BASED ON", "THE CURRENT SPECTRUM", "AND NODE PLACEMENT.", "THE PATTERN WILL",
      "REPEAT IF YOU ENABLE", "THAT OPTION IN THE", "INK SETTINGS MENU.", "BRUSH COLOR IS", "IGNORED."}},
    {INK_XOR,
     SEES_ITSELF,
     "XOR",
     {},
     {"THIS IS A BITWISE", "OPERATION THAT XORS", "COLORS ON THE FRAME", "BASED ON THE CURRENT", "BRUSH COLOR. USE A",
      "STRONG SHADE OF", "WHITE TO ACHIEVE A", "TRADITIONAL NEGATIVE", "EFFECT."}},
}};

/// True for the gradients, which run between nodes on the Frame.
constexpr bool has_nodes(int ink) { return find_option(inks[at(ink)].options, OPTION_NODE) != nullptr; }

constexpr Label ink_label(Ink ink) { return static_cast<Label>(LABEL_INK_FIRST + static_cast<int>(ink)); }

}  // namespace nubo
