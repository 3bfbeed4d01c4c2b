#pragma once
// What the tool window and the ink window tell of the tool and the ink chosen.
#include "state/texts_table.h"
#include "state/tools.h"
#include <algorithm>

namespace nubo {

/// Groups of lines: BrushTool n in group n, Ink n in group 30 + n. A line has at most 20 characters, the width of the
/// box.
inline constexpr int description_groups = 56, description_lines = 10, description_width = 20,
                     ink_description_first = 30;

constexpr int description_group(BrushTool tool) { return static_cast<int>(tool); }
constexpr int description_group(Ink ink) { return ink_description_first + static_cast<int>(ink); }

struct DescriptionRow {
    int group;
    std::array<std::string_view, description_lines> lines;  // those behind the last are empty
};

using DescriptionTable = std::array<std::string_view, description_groups * description_lines>;

/// Puts each group's lines at their places; a group that comes twice or a line too long does not compile.
template <std::size_t N> consteval DescriptionTable fill_descriptions(const DescriptionRow (&rows)[N]) {
    DescriptionTable table{};
    for (const DescriptionRow& row : rows) {
        auto* const place = &table.at(static_cast<std::size_t>(row.group) * description_lines);
        if (!place->empty()) throw "a group stands twice";
        for (const std::string_view line : row.lines)
            if (line.size() > description_width) throw "a line is too long";
        std::copy(row.lines.begin(), row.lines.end(), place);
    }
    return table;
}

/// Line l of group g stands at 10 * g + l.
inline constexpr auto description_text = fill_descriptions({
    {description_group(TOOL_BOX), {"DRAWS A RECTANGLE.", "USES CURRENT BRUSH", "IF IT'S NOT FILLED."}},
    {description_group(TOOL_CIRCLE), {"DRAWS A CIRCLE.", "USES CURRENT BRUSH", "IF IT'S NOT FILLED."}},
    {description_group(TOOL_DRAW),
     {"DRAWS A SINGLE POINT", "ON THE FRAME USING", "THE CURRENT BRUSH", "COLOR AND TIP STYLE.", "",
      "HOLD THE BUTTON DOWN", "FOR FREEHAND DRAWING"}},
    {description_group(TOOL_DRIZ),
     {"JUST LIKE DRAW, BUT", "WITH A BRUSH WIDTH", "THAT DECREASES THE", "FASTER YOU MOVE. NOT", "COMPATIBLE WITH",
      "BRUSH TIPS."}},
    {description_group(TOOL_EDGE),
     {"OUTLINES THE COLOR", "YOU SELECT WITH A", "FRINGE BASED ON THE", "CURRENT BRUSH COLOR", "AND INK STYLE."}},
    {description_group(TOOL_FILL),
     {"FLOOD FILLS AN AREA", "USING THE CURRENT", "COLOR AND INK TYPE.", "THIS CAN BE SLOW AS", "HELL FOR VERY LARGE",
      "AREAS, SO USE 'BOX'", "INSTEAD OF THIS", "WHENEVER REASONABLE.", "RAISE TOLERANCE FOR", "A LOOSER FILL."}},
    {description_group(TOOL_LINE),
     {"APPLIES INK IN A", "STRAIGHT LINE WITH", "THE CURRENT BRUSH", "COLOR AND TIP. YOU", "WILL SELECT A START",
      "AND END POINT FOR", "THE LINE."}},
    {description_group(TOOL_MOVE),
     {"REPOSITIONS A", "RECTANGULAR AREA OF", "THE CURRENT FRAME.", "EMPTY SPACE WILL BE", "FILLED WITH THE MASK",
      "COLOR, REGARDLESS OF", "BRUSH OR INK TYPE,", "UNLESS YOU TOGGLE", "THE TOOL'S OPTION."}},
    {description_group(TOOL_OVAL),
     {"DRAWS AN ELLIPSE BY", "DEFINING THE MAJOR", "AND MINOR AXES, THEN", "APPLYING AN ANGLE.", "USES CURRENT BRUSH",
      "IF IT'S NOT FILLED."}},
    {description_group(TOOL_POLY),
     {"DRAWS AN IRREGULAR", "POLYGON BY DEFINING", "ONE POINT AT A TIME.", "USES CURRENT BRUSH",
      "IF IT'S NOT FILLED."}},
    {description_group(TOOL_RPOLY),
     {"DRAW A REGULAR", "POLYGON BY DEFINING", "SIZE, ANGLE, AND", "NUMBER OF SIDES.", "USES CURRENT BRUSH",
      "IF IT'S NOT FILLED."}},
    {description_group(TOOL_SEP),
     {"REPLACES ANY COLOR", "GLOBALLY WITH YOUR", "CURRENT BRUSH COLOR.", "RAISE TOLERANCE FOR", "A WIDER RANGE OF",
      "ACCEPTABLE COLORS.", "THE DEFAULT VALUE OF", "5 IS USUALLY GOOD."}},
    {description_group(TOOL_FSHAPE),
     {"DRAWS A FREEHAND", "SHAPE AS LONG AS THE", "MOUSE IS HELD DOWN.", "RELEASE TO CLOSE THE", "SHAPE AUTOMATICALLY.",
      "USES CURRENT BRUSH", "IF IT'S NOT FILLED."}},
    {description_group(TOOL_SSHAPE),
     {"DEFINE A SPECIAL", "SHAPE VIA FORMULA.", "THREE PARAMETERS", "ALONG WITH AN ANGLE,", "MAGNITUDE, AND TOTAL",
      "'ARMS' TO USE. ARMS", "WORK BEST IN PAIRS.", "USES CURRENT BRUSH", "IF IT'S NOT FILLED."}},
    {description_group(TOOL_SPIRAL),
     {"WINDS A LINE AROUND", "A SINGLE POINT. SET", "YOUR LENGTH AND", "SPACING, THEN TURN", "THE ANGLE TO FINISH",
      "THE JOB. THIS WILL", "APPLY INK USING THE", "CURRENT BRUSH TIP."}},
    {description_group(TOOL_SPLINE),
     {"DRAWS A CURVE AROUND", "USER DEFINED CONTROL", "NODES. CLICK TO MAKE", "A NEW NODE OR MOVE",
      "AN EXISTING ONE. YOU", "CAN ADJUST THE CURVE", "AS WELL AS TOGGLE", "OPTIONS TO CLOSE OR", "FILL THE SHAPE."}},
    {description_group(TOOL_SPRAY),
     {"APPLY INK TO THE", "FRAME IN A CIRCULAR", "PATTERN USING THE", "CURRENT BRUSH AND", "INK STYLES. SIZE AND",
      "DENSITY OF THE SPRAY", "CAN BE TWEAKED TO", "PRODUCE A VARIETY OF", "EFFECTS WHEN PAIRED", "WITH INK."}},
    {description_group(TOOL_TEXT),
     {"PLACE TEXT ON THE", "FRAME USING BITMAP", "OR VECTOR FONTS.", "ANTIALIASING IS AN", "OPTION, AND TEXT IS",
      "DRAWN WITH INK, BUT", "NOT YOUR BRUSH TIP.", "ONLY A SINGLE LINE", "CAN BE DRAWN AT A", "TIME WITH THIS TOOL."}},
    {description_group(INK_ADD),
     {"THIS INK COMBINES", "THE RGB VALUES OF", "THE BRUSH COLOR WITH", "PIXELS BELOW IT.", "THIS PUSHES COLORS",
      "TOWARD WHITE IN A", "DIFFERENT FASHION", "THAN BRIGHT INK."}},
    {description_group(INK_BRIGHT),
     {"THIS INK LIGHTENS", "PIXELS, PUSHING THEM", "TOWARD WHITE. BRUSH", "COLOR IS IGNORED."}},
    {description_group(INK_CLOSE),
     {"THIS INK CLOSES UP", "SINGLE PIXEL GAPS", "IN OTHERWISE UNIFORM", "AREAS. USE THIS TO", "CLEAN UP MISTAKES,",
      "YOU'VE MADE WHILE", "DRAWING. BRUSH COLOR", "IS IGNORED."}},
    {description_group(INK_DARK),
     {"THIS INK DARKENS", "PIXELS, PUSHING THEM", "TOWARD BLACK. BRUSH", "COLOR IS IGNORED."}},
    {description_group(INK_EMBOSS),
     {"AT LOWER STRENGTH", "SETTINGS THIS INK", "SHARPENS THE FRAME,", "WHILE AT HIGHER", "STRENGTH IT EMBOSSES",
      "PIXELS, ACCENTING", "THEM WITH A RELIEF", "EFFECT. BRUSH COLOR", "IS IGNORED."}},
    {description_group(INK_GLASS),
     {"THIS INK IS SEMI-", "OPAQUE, AND WILL", "BLEND THE BRUSH", "COLOR WITH THE FRAME", "BASED ON THE INK'S",
      "STRENGTH SETTING."}},
    {description_group(INK_GLOW),
     {"THIS INK MAKES THE", "SURROUNDING AREA", "GLOW BASED ON THE", "BRUSH COLOR. THE", "RADIUS AND STRENGTH",
      "SETTINGS ARE VERY", "IMPORTANT TO THIS", "EFFECT! THIS INK", "CAN BE !EXTREMELY!", "SLOW OVER BIG AREAS."}},
    {description_group(INK_GRAIN),
     {"APPLIES A RANDOM", "PATTERN OF LIGHT AND", "DARK COLORS BASED ON", "THE BRUSH COLOR. IT", "CAN BE USED TO SIM-",
      "ULATE FILM GRAIN AT", "LOWER SETTINGS, OR", "CRAYON STROKES AT", "THE OPPOSITE END", "OF THE SETTINGS."}},
    {description_group(INK_GRAY),
     {"THIS INK PUSHES", "COLORS TOWARD GRAY", "BASED ON THE", "STRENGTH SETTING. AT", "FULL STRENGTH, THE",
      "PIXELS IN THE FRAME", "WILL BE COMPLETELY", "DESATURATED. BRUSH", "COLOR IS IGNORED."}},
    {description_group(INK_HGRAD),
     {"APPLIES A HORIZONTAL", "GRADIENT BASED ON", "THE CURRENT SPECTRUM", "AND NODE PLACEMENT.", "THE PATTERN WILL",
      "REPEAT IF YOU ENABLE", "THAT OPTION IN THE", "INK SETTINGS MENU.", "BRUSH COLOR IS", "IGNORED."}},
    {description_group(INK_HOLLOW),
     {"THIS INK REMOVES", "SOLID BLOCKS OF", "IDENTICAL COLOR.", "THE NET EFFECT IS", "REDUCING FILLED",
      "SHAPES TO OUTLINES.", "ERASED PIXELS WILL", "BE FILLED WITH THE", "CURRENT MASK COLOR."}},
    {description_group(INK_JUMBLE),
     {"THIS INK SCATTERS", "PIXELS IN A TOTALLY", "RANDOM FASHION. THE", "STRENGTH SETTING", "DETERMINES HOW FAR",
      "THINGS CAN GET", "TOSSED. THIS IS NOT", "A 1:1 OPERATION, SO", "PIXEL OVERLAP WILL", "CERTAINLY OCCUR."}},
    {description_group(INK_LGRAD),
     {"APPLIES A LINEAR", "GRADIENT BASED ON", "THE CURRENT SPECTRUM", "AND NODE PLACEMENT.", "THE PATTERN WILL",
      "REPEAT IF YOU ENABLE", "THAT OPTION IN THE", "INK SETTINGS MENU.", "BRUSH COLOR IS", "IGNORED."}},
    {description_group(INK_OPAQUE),
     {"THIS IS THE DEFAULT", "INK, WHICH DRAWS A", "FLAT COLOR WITH NO", "EFFECTS AT ALL."}},
    {description_group(INK_PULL),
     {"MOVES A PIXEL'S HUE", "TOWARD THAT OF THE", "BRUSH COLOR, BASED", "ON THE STRENGTH", "SETTING. THIS IS",
      "SIMILAR TO THE GLASS", "TOOL, BUT LUMINANCE", "AND SATURATION ARE", "PRESERVED."}},
    {description_group(INK_RGRAD),
     {"APPLIES A RADIAL", "GRADIENT BASED ON", "THE CURRENT SPECTRUM", "AND NODE PLACEMENT.", "THE PATTERN WILL",
      "REPEAT IF YOU ENABLE", "THAT OPTION IN THE", "INK SETTINGS MENU.", "BRUSH COLOR IS", "IGNORED."}},
    {description_group(INK_SCRAPE),
     {"THIS INK PEELS AWAY", "THE FRAME'S CONTENTS", "TO REVEAL A TILED", "CEL PATTERN. YOU", "CAN MOVE THE CEL",
      "TO SHIFT THE", "PATTERN'S OFFSET.", "BRUSH COLOR IS", "IGNORED."}},
    {description_group(INK_SPARK),
     {"OPPOSITE OF GRAY.", "THIS PUSHES PIXELS", "TOWARD SATURATION", "DEPENDING ON THE", "STRENGTH SETTING.",
      "REMEMBER THAT THIS", "ENHANCES EXISTING", "COLOR, SO GRAYSCALE", "IMAGES WILL NOT BE", "TREATED WELL."}},
    {description_group(INK_SOFTEN),
     {"BLURS PIXELS BY", "COMPARING NEIGHBORS.", "THIS MAY BE APPLIED", "REPEATEDLY IF THE", "EFFECT ISN'T STRONG",
      "ENOUGH. BRUSH COLOR", "IS IGNORED."}},
    {description_group(INK_SUB),
     {"THIS INK SUBTRACTS", "THE RGB VALUES OF", "THE BRUSH COLOR WITH", "PIXELS BELOW IT.", "THIS PUSHES COLORS",
      "TOWARD BLACK IN A", "DIFFERENT FASHION", "THAN DARK INK."}},
    {description_group(INK_SWEEP),
     {"THIS INK REMOVES", "PIXELS THAT DO NOT", "CLOSELY MATCH THEIR", "NEIGHBORS. USE THE", "STRENGTH SETTING TO",
      "CONTROL SENSITIVITY.", "THIS IS GOOD FOR", "WORKING ON NOISY", "IMAGES. BRUSH COLOR", "IS IGNORED."}},
    {description_group(INK_TILE),
     {"THIS DRAWS PIXELS", "USING THE CURRENT", "CEL AS A PATTERN.", "YOU CAN MOVE THE", "CEL AROUND TO",
      "CHANGE THE OFFSET.", "INVALUABLE FOR USE", "IN TEXTURING AREAS", "OF THE FRAME."}},
    {description_group(INK_UNZAG),
     {"THIS INK EXAMINES", "PIXELS AND PERFORMS", "AN ANTIALIASING", "EFFECT IF THEY ARE", "IN SHARP CONTRAST",
      "WITH NEIGHBORING", "PIXELS. COMBINE WITH", "DIFFERENT BRUSHES TO", "GET THE MOST OUT OF", "THIS INK."}},
    {description_group(INK_VGRAD),
     {"APPLIES A VERTICAL", "GRADIENT BASED ON", "THE CURRENT SPECTRUM", "AND NODE PLACEMENT.", "THE PATTERN WILL",
      "REPEAT IF YOU ENABLE", "THAT OPTION IN THE", "INK SETTINGS MENU.", "BRUSH COLOR IS", "IGNORED."}},
    {description_group(INK_XOR),
     {"THIS IS A BITWISE", "OPERATION THAT XORS", "COLORS ON THE FRAME", "BASED ON THE CURRENT", "BRUSH COLOR. USE A",
      "STRONG SHADE OF", "WHITE TO ACHIEVE A", "TRADITIONAL NEGATIVE", "EFFECT."}},
});

}  // namespace nubo
