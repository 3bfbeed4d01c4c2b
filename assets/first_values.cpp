#include "first_values.h"

#include "schemes.h"

#include "base/color.h"
#include "base/keys.h"
#include "editor/commands.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/tools.h"
#include "windows/options_window.h"
#include <algorithm>
#include <allegro.h>
#include <cstdio>
#include <cstring>

namespace nubo {

namespace {

// ---- Tools and inks ------------------------------------------------------------------------------------------------

/// Every option of a table of tools or inks at its first value, all other slots at 0.
void set_options(const auto& rows, auto& values) {
    for (auto& row : values)
        for (Shared<int>& value : row) value = 0;
    for (std::size_t i = 0; i < rows.size(); ++i)
        for (const ChoiceOption& option : rows[i].options)
            if (option.kind != KIND_NONE) values[i][at(option.slot)] = option.first;
}

// ---- Colours -------------------------------------------------------------------------------------------------------

constexpr std::size_t ramp_length = favorites_row / 2;

int between(int from, int to, double share) { return static_cast<int>(from + (to - from) * share + 0.5); }

/// The colour at `share`, 0 to 1, of a ramp whose anchors stand at equal distances.
Color ramp_color(const std::vector<Color>& anchors, double share) {
    const double place = share * static_cast<double>(anchors.size() - 1);
    const std::size_t first = std::min(static_cast<std::size_t>(place), anchors.size() - 2);
    const Color a = anchors[first], b = anchors[first + 1];
    const double rest = place - static_cast<double>(first);
    return pack_color(between(red_of(a), red_of(b), rest), between(green_of(a), green_of(b), rest),
                      between(blue_of(a), blue_of(b), rest));
}

/// The colours behind a row's name; empty if one is none.
std::vector<Color> colors_of(const Words& row) {
    std::vector<Color> colors;
    for (std::size_t i = 1; i < row.size(); ++i) {
        const auto color = color_from_hex(row[i]);
        if (!color) return {};
        colors.push_back(*color);
    }
    return colors;
}

/// Two ramps to the row of the favourites' window; the last one is cut where the favourites end.
bool set_favorites(const ArtBlock& block) {
    std::size_t at = 0;
    for (const Words& row : block.rows) {
        const auto anchors = colors_of(row);
        if (anchors.size() < 2) return false;
        const std::size_t length = std::min(ramp_length, favorite_count - at);
        for (std::size_t i = 0; i < length; ++i)
            favorites[at++] = ramp_color(anchors, static_cast<double>(i) / static_cast<double>(length - 1));
    }
    return at == favorite_count;
}

bool set_slots(const ArtBlock& block) {
    const auto colors = block.rows.size() == 1 ? colors_of(block.rows[0]) : std::vector<Color>();
    if (colors.size() != color_slot_count) return false;
    std::ranges::copy(colors, color_slots.begin());
    return true;
}

template <std::size_t N> void set_text(std::array<char, N>& buffer, const char* text) {
    buffer.fill('\0');
    std::strncpy(buffer.data(), text, N - 1);
}

// ---- Keys ----------------------------------------------------------------------------------------------------------

/// Beside the default keys: what other programs have taught the hands, and zoom keys for those without a number pad.
void set_second_keys() {
    hotkeys[HOTKEY_UNDO][KEY_ALTERNATE] = key_ctrl | KEY_Z;
    hotkeys[HOTKEY_REDO][KEY_ALTERNATE] = key_ctrl | KEY_Y;
    hotkeys[HOTKEY_ZOOM_IN][KEY_ALTERNATE] = KEY_EQUALS;
    hotkeys[HOTKEY_ZOOM_OUT][KEY_ALTERNATE] = KEY_MINUS;
}

}  // namespace

bool set_first_colors(const ArtSource& source) {
    for (const ArtBlock& block : source.blocks) {
        if (block.head[0] == "ramps" && !set_favorites(block))
            return art_fault(source, block, "ramps are names and colors, two or more, and fill 256 favourites");
        if (block.head[0] == "slots" && !set_slots(block)) return art_fault(source, block, "slots are ten colors");
    }
    return true;
}

bool set_first_scheme(const ArtSource& source) {
    constexpr const char* first_scheme = "NIGHT";  // gray, so that the picture's colours are seen as they are
    const auto schemes = read_schemes(source);
    if (!schemes) return false;
    const auto found = std::ranges::find(*schemes, first_scheme, &ArtScheme::name);
    if (found == schemes->end()) {
        std::fprintf(stderr, "There is no colour scheme %s.\n", first_scheme);
        return false;
    }
    color_scheme = found->colors;
    return true;
}

void set_first_settings() {
    constexpr int cursor_keeps_its_size = 1;
    hand_over_commands();
    default_hotkeys();
    set_second_keys();
    set_option_defaults();
    opt_undo_depth = undo_depth_all;
    opt_gif_reduction = REDUCTION_BEST;       // the others change colours that would all have found a place
    opt_cursor_zoom = cursor_keeps_its_size;  // grown, its arms would hide the pixels beside it
    opt_crosshair_scaling = 0;
    sfx_volume = music_volume = 255;
    frame_pacing = 1;
}

void set_first_workspace() {
    set_options(tools, tool_options);
    set_options(inks, ink_options);
    tool_slots = {TOOL_DRAW, TOOL_LINE, TOOL_BOX, TOOL_CIRCLE, TOOL_FILL, TOOL_SPRAY};
    ink_slots = {INK_OPAQUE, INK_GLASS, INK_BRIGHT, INK_DARK, INK_TILE, INK_RGRAD};
    active_tool_slot = active_ink_slot = 0;
    polygon_values = {.angle = 0, .radius = 40, .sides = 6};
    spiral_values = {.angle = 0, .scale = 100, .wraps = 6, .spread = 4, .flip = 0};
    supershape_values = {.angle = 0, .n1 = 50, .n2 = 70, .n3 = 70, .arms = 6, .magnitude = 60};
    brush_color = 0xffffff;
    mask_color = 0x000000;
    spectrum_start = 0x28306c;
    spectrum_end = 0xffd07c;
    spectrum_fold = 1;
    brush_tip = 2;  // three pixels across: seen at once, and fine enough to write with
    text_tool_size = 28;
    set_text(text_tool_text, "NUBO");
    set_text(workspace_title, "WELCOME TO NUBO");
    set_text(workspace_notes, "THREE FRAMES TO TRY THINGS OUT ON: A BOARD, SPRITES, A LANDSCAPE. NEW CLEARS THEM.");
}

}  // namespace nubo
