#include "workspace/user_settings.h"

#include "base/color.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/hotkeys.h"
#include "state/options.h"
#include "state/run.h"
#include "workspace/byte_fields.h"
#include "workspace/folders.h"
#include "workspace/notices.h"

namespace nubo {
namespace {

constexpr const char *resource_folder = "resource", *settings_file = "user.def";
constexpr std::size_t settings_bytes = 614;
constexpr int modifiers = key_ctrl | key_alt | key_shift;

template <class Fields> void walk_settings(Fields& fields) {
    constexpr FieldRange reversed = flag_field("the mouse buttons", 0);
    constexpr FieldRange depth{"the undo depth", 1, 12, 3};
    constexpr FieldRange volume{"a volume", 0, 255, 255};
    fields.byte(mouse_reversed, reversed);  // this and the depth stand twice: the second ones, as words, count
    fields.byte(frame_pacing, {"the frame pacing", 0, 255, 1});
    fields.byte(sfx_volume, volume);
    fields.byte(music_volume, volume);
    fields.byte(opt_undo_depth, depth);
    fields.byte(opt_tool_distance, flag_field("the tool distance", 0));
    for (std::size_t row = 0; row < hotkey_rows_stored; ++row)
        for (Shared<int>& key : hotkeys[row]) fields.word(key, {"a key", 0, key_code_max | modifiers | 0x7f, 0});
    fields.word(power_saving, {"the power saving", 0, POWER_COUNT - 1, POWER_HIGH});
    fields.word(opt_gif_reduction, {"the GIF reduction", 0, REDUCTION_COUNT - 1, REDUCTION_FAST});
    fields.word(opt_zoom_preview, flag_field("the zoom preview", 0));
    fields.word(opt_zoom_preview_size, {"the size of the zoom preview", 1, 3, 1});
    fields.word(opt_crosshair_strength, {"the crosshairs' strength", 0, 255, 13});
    fields.word(opt_crosshair_scaling, flag_field("the crosshairs' scaling", 1));
    // A first run writes a colour here unless the crosshairs have been drawn, which makes an index of it.
    fields.word(opt_crosshair_color, {"the crosshairs' colour", 0, 0xffffff, 0});
    fields.word(opt_cel_masking, flag_field("the cel masking", 1));
    fields.word(opt_cel_tolerance, {"the cel tolerance", 0, 255, 5});
    fields.word(opt_status_bar, flag_field("the status bar", 1));
    fields.word(opt_tooltips, flag_field("the tooltips", 0));
    fields.word(opt_backless, flag_field("the backless mode", 0));
    fields.word(opt_cursor_zoom, flag_field("the cursor zoom", 0));
    fields.word(opt_mouse_speed, {"the mouse speed", 0, 4, 4});
    fields.word(mouse_reversed, reversed);
    fields.word(opt_undo_depth, depth);
    fields.word(opt_file_preview, {"the file preview", 0, PREVIEW_COUNT - 1, PREVIEW_LIMIT});
    fields.word(opt_quick_pan_strength, {"the quick pan's strength", 0, 255, 225});
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

}  // namespace

void load_user_settings() {
    const std::string path = std::string(resource_folder) + "/" + settings_file;
    if (!file_exists(path)) {
        UA_log("[ INFO ] : Couldn't locate the user settings file. Assuming default settings.");
        return set_first_run_defaults();
    }
    std::vector<std::uint8_t> bytes;
    read_file(path, settings_bytes, bytes);  // one that can't be read counts as empty
    FieldReader fields(bytes, settings_file);
    walk_settings(fields);
    frame_pacing = frame_pacing != 0 ? 1 : 0;
    drop_impossible_keys();
    if (!fields.finish()) mark_damage();
}

bool save_user_settings() {
    FieldWriter fields;
    walk_settings(fields);
    const std::string path = std::string(program_dir.data()) + "/" + resource_folder + "/" + settings_file;
    const bool written = write_file(path, fields.bytes.data(), fields.bytes.size());
    enter_program_dir();
    return written;
}

}  // namespace nubo
