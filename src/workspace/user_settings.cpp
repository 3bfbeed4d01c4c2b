#include "workspace/user_settings.h"

#include "base/color.h"
#include "base/keys.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/gui.h"
#include "state/hotkeys.h"
#include "state/options.h"
#include "state/run.h"
#include "state/texts_labels.h"
#include "workspace/browse_places.h"
#include "workspace/byte_fields.h"
#include "workspace/folders.h"
#include "workspace/notices.h"
#include "workspace/workspace_files.h"

namespace nubo {
namespace {

constexpr const char* settings_file = "user.def";
constexpr std::size_t settings_bytes = 614;
constexpr int modifiers = key_ctrl | key_alt | key_shift;

/// The range of an option by its row in the table; outside of it, the option keeps what it holds: the value of a start.
FieldRange range_of(const Word& word) {
    const auto* const row = std::ranges::find(user_options, &word, &UserOption::word);
    return {label_text[at(row->label)].data(), row->lowest, row->highest, word};
}

std::string settings_path() { return resource_folder().file(settings_file); }

/// The keys of a row. One that has none, since the user has taken them away, holds a mark in their place: else it would
/// be offered its default keys again.
template <class Fields> void walk_keys(Fields& fields, std::size_t row) {
    constexpr int offered = 0x10000, highest = key_code_max | modifiers | 0x7f;
    auto& [primary, alternate] = hotkeys[row];
    fields.word(primary, {"a key", 0, highest, 0});
    const bool is_marked = hotkey_offered[row] && primary == 0 && alternate == 0;
    int stored = alternate | (is_marked ? offered : 0);
    fields.word(stored, {"a key", 0, highest, 0, offered});
    alternate = stored & ~offered;
    hotkey_offered[row] |= (stored & offered) != 0;
}

template <class Fields> void walk_settings(Fields& fields) {
    constexpr FieldRange volume{"a volume", 0, 255, 255};
    const auto option = [&](Word& word) { fields.word(word, range_of(word)); };
    // Buttons and depth stand twice: the second ones, as words, count.
    fields.byte(mouse_reversed, flag_field("the mouse buttons", 0));
    fields.byte(frame_pacing, {"the frame pacing", 0, 255, 1});
    fields.byte(sfx_volume, volume);
    fields.byte(music_volume, volume);
    fields.byte(opt_undo_depth, range_of(opt_undo_depth));
    fields.byte(opt_tool_distance, range_of(opt_tool_distance));
    for (std::size_t row = 0; row < hotkey_rows_stored; ++row) walk_keys(fields, row);
    option(power_saving);
    option(opt_gif_reduction);
    option(opt_zoom_preview);
    option(opt_zoom_preview_size);
    option(opt_crosshair_strength);
    option(opt_crosshair_scaling);
    // A first run writes a colour here unless the crosshairs have been drawn, which makes an index of it.
    fields.word(opt_crosshair_color, {"the crosshairs' colour", 0, 0xffffff, 0});
    option(opt_cel_masking);
    option(opt_cel_tolerance);
    option(opt_status_bar);
    option(opt_tooltips);
    option(opt_backless);
    option(opt_cursor_zoom);
    option(opt_mouse_speed);
    option(mouse_reversed);
    option(opt_undo_depth);
    option(opt_file_preview);
    option(opt_quick_pan_strength);
    for (Color& color : color_scheme) fields.color(color, "a colour of the scheme");
}

/// Keys that no keyboard has are unmapped.
void drop_impossible_keys() {
    for (auto& row : hotkeys)
        for (Shared<int>& key : row)
            if ((key & ~modifiers) > key_code_max) key = 0;
}

void set_first_run_defaults() {
    mouse_reversed = 0;
    frame_pacing = 1;
    sfx_volume = music_volume = 255;
    opt_crosshair_strength = 18;
    opt_crosshair_scaling = 1;
    opt_crosshair_color = static_cast<int>(pack_color(254, 254, 254));
}

/// True if there was a file and it could be read, whole or in part.
bool read_settings() {
    const std::string path = settings_path();
    if (!file_exists(path)) {
        UA_log("[ INFO ] : Couldn't locate the user settings file. Assuming default settings.");
        return false;
    }
    std::vector<std::uint8_t> bytes;
    if (!read_file(path, settings_bytes, bytes)) {
        UA_log("[ ERROR ] : The user settings file can't be read. Assuming default settings.");
        keep_unread(path);
        mark_damage();
        return false;
    }
    FieldReader fields(bytes, settings_file);
    walk_settings(fields);
    frame_pacing = frame_pacing != 0 ? 1 : 0;
    drop_impossible_keys();
    if (!fields.finish()) mark_damage();
    return true;
}

}  // namespace

void load_user_settings() {
    load_browse_places();
    set_first_run_defaults();
    hotkey_offered.fill(false);
    const bool has_read = read_settings();
    const auto& [primary, alternate] = hotkeys[HOTKEY_HISTORY];
    const bool knows_history = hotkey_offered[HOTKEY_HISTORY] || primary != 0 || alternate != 0;
    if (has_read && !knows_history && opt_undo_depth == undo_depth_max)
        queue_box(LABEL_UNDO_REACHES_ALL, LABEL_UNDO_DEPTH_ALL);
    offer_new_keys(/*only_noted=*/!has_read);
}

bool save_user_settings() {
    FieldWriter fields;
    walk_settings(fields);
    const std::string path = settings_path();
    const bool places_kept = save_browse_places();
    return make_way(path) && write_file(path, fields.bytes.data(), fields.bytes.size()) && places_kept;
}

}  // namespace nubo
