#include "editor/start.h"

#include "base/bitmap.h"
#include "base/log.h"
#include "base/random.h"
#include "codecs/png.h"
#include "editor/commands.h"
#include "editor/graphics.h"
#include "editor/handlers.h"
#include "editor/stop.h"
#include "framework/outline_font.h"
#include "framework/resources.h"
#include "game/screen_effects.h"
#include "platform/display_loss.h"
#include "platform/file_inbox.h"
#include "platform/folder_lock.h"
#include "platform/input.h"
#include "platform/input_file.h"
#include "platform/input_queue.h"
#include "platform/last_words.h"
#include "platform/memory_packfile.h"
#include "platform/program_folder.h"
#include "platform/safe_file.h"
#include "platform/signals.h"
#include "platform/window_marks.h"
#include "state/cel.h"
#include "state/frames.h"
#include "state/mouse.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "windows/colors/scheme.h"
#include "windows/emblem.h"
#include "windows/files/opened_files.h"
#include "windows/hand_over.h"
#include "workspace/folders.h"
#include "workspace/frame_memory.h"
#include "workspace/notices.h"
#include "workspace/user_settings.h"
#include "workspace/workspace.h"
#include <allegro.h>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace nubo {
namespace {

constexpr int cannot_start = -1, no_font_layer = 1;
constexpr const char* no_memory = "The program ran out of memory! Reboot, or close some active programs and try again.";

/// The end of a start that can't go on, with its cause in the log, on standard error and in a window.
int refuse(const std::string& cause) {
    UA_log("[ FATAL ] : %s", cause.c_str());
    say_last_words(cause);
    return cannot_start;
}

/// What the user is told by a start that finds the program running and can't hand over all its files.
std::string words_of_locked_start(const std::vector<std::string>& files, std::size_t handed) {
    std::string words = "Nubo is already running on this Workspace";
    if (files.empty()) return words + ". Go back to its window, or close it first.";
    words += " and takes no files at present. " + std::filesystem::path(files[handed]).filename().string();
    if (const std::size_t others = files.size() - handed - 1; others > 0)
        words += " and " + std::to_string(others) + " more";
    return words + (files.size() - handed == 1 ? " was" : " were") + " not opened. Go back to its window first.";
}

/// Two editors on one Workspace would write over each other's Frames: the second one ends before it touches anything.
std::optional<int> claim_program_folder(const std::vector<std::string>& files) {
    if (!find_program_dir()) {
        say_last_words("The program's own folder can't be told.");
        return cannot_start;
    }
    if (lock_folder(program_dir.data())) return std::nullopt;
    const std::size_t handed = files.empty() ? 0 : hand_over_files(program_dir.data(), files);
    if (!files.empty() && handed == files.size()) return 0;
    say_last_words(words_of_locked_start(files, handed));
    return exit_locked;
}

/// The log belongs where the program was started; all else happens in the program's own folder.
std::optional<int> open_log_and_enter_folder() {
    UA_log_reset();
    UA_log_open(program_dir.data());
    UA_log("[ INIT ] : Old resources swept up");
    UA_log("[ INIT ] : %s now loading", program_title);
    UA_log("[ INIT ] : DEFCON 1 - Standard logging");
    open_file_inbox(program_dir.data());
    if (chdir(program_dir.data()) == 0) return std::nullopt;
    return refuse(std::string("The program's own folder can't be entered: ") + std::strerror(errno));
}

/// The program takes keys, not text: Allegro's keyboard needn't have Xlib read its large table of composed letters, nor
/// an input method asked, which would keep keys to itself.
void do_without_input_method() {
    setenv("XCOMPOSEFILE", "/dev/null", 1);
    setenv("XMODIFIERS", "@im=none", 1);
}

bool start_allegro() {
    do_without_input_method();
    if (install_allegro(SYSTEM_AUTODETECT, &errno, std::atexit) != 0 || install_timer() != 0 ||
        install_keyboard() != 0 || install_mouse() < 0) {
        refuse("No window can be opened here: is DISPLAY set to a running X server?");
        return false;
    }
    watch_display();
    UA_log("[ INIT ] : Initialized Allegro");
    install_input();
    set_window_title(program_title);
    name_window_class();
    set_close_button_callback(note_close);
    request_exit_on_signals();
    return true;
}

// ---- Images --------------------------------------------------------------------------------------------------------

/// The picture of a PNG file of the resource folder; a null result has been told.
OwnedBitmap load_resource_png(const char* name) {
    const std::string path = resource_folder().file(name);
    constexpr std::size_t size_max = std::size_t{16} << 20;  // bytes; far above any picture of ours
    Bytes bytes;
    if (read_file(path, size_max, bytes))
        if (PACKFILE* const file = open_for_reading(bytes)) {
            OwnedBitmap picture(load_png_pf(file, nullptr));
            pack_fclose(file);
            if (picture) return picture;
            UA_log("[ STATS ] : %s", png_error);
        }
    UA_log("ERROR: Failed to find a resource file. File = %s", path.c_str());
    say_last_words(std::string("A critical resource file is missing. Please reinstall the program.\nFile = ") + path);
    return nullptr;
}

bool load_application_images() {
    replace_bitmap(logo, load_resource_png("N_HD_1X.RES"));
    const OwnedBitmap tips = logo ? load_resource_png("brushie.PNG") : nullptr;
    if (!tips) return false;
    replace_bitmap(tip_sheet, make_bitmap(tip_sheet_w, tip_sheet_h, transparent_color));
    if (tip_sheet == nullptr) return refuse(no_memory), false;
    blit(tips.get(), tip_sheet, 0, 0, 0, 0, tip_sheet_w, tip_image_h);
    UA_log("[ INIT ] : Loaded application video resources");
    return true;
}

/// In the sizes that desktops show. Without memory for one the window goes without it.
void show_icon() {
    std::vector<OwnedBitmap> icons;
    std::vector<BITMAP*> pictures;
    const OwnedBitmap whole = draw_icon(logo);
    for (const int side : {16, 24, 32, 48, 64, 128})
        if (OwnedBitmap icon = whole ? scaled_icon(whole.get(), side) : nullptr) {
            pictures.push_back(icon.get());
            icons.push_back(std::move(icon));
        }
    set_window_icon(pictures);
}

bool find_resource_folder() {
    std::error_code error;
    if (std::filesystem::is_directory(resource_folder().path(), error)) return true;
    refuse("The folder \"resource\" can't be entered. Please reinstall the program.");
    return false;
}

void load_framework_resources() {
    UA_load_framework_video(resource_folder());
    UA_log("[ INIT ] : Loaded framework video resources");
    UA_sweep_temp_resources(resource_folder());
}

/// Allegro's tables for drawing into paletted bitmaps, from the palette of the resources.
void build_palette_tables() {
    static RGB_MAP map;
    set_palette(global_palette.data());
    create_rgb_table(&map, global_palette.data(), nullptr);
    rgb_map = &map;
}

bool create_work_bitmaps() {
    constexpr int nail_side = nail_tile * nail_columns, placeholder = 2;
    replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h));
    replace_bitmap(cel, make_bitmap(placeholder, placeholder));
    replace_bitmap(cel_mask, make_bitmap(placeholder, placeholder));
    replace_bitmap(original_frame, make_bitmap(placeholder, placeholder));
    replace_bitmap(nail_sheet, make_bitmap(nail_side, nail_side));
    return preview_bitmap && cel && cel_mask && original_frame && nail_sheet;
}

/// The mouse starts in the middle of the window, and its wheel's position counts from there.
void place_mouse() {
    last_wheel = ::mouse_z;
    position_mouse(screen_w / 2, screen_h / 2);
}

/// A folder that takes no files is told of at once, not when the work is done.
void warn_if_nothing_can_be_saved() {
    const auto frame_bytes =
        static_cast<std::size_t>(current_frame->w) * static_cast<std::size_t>(current_frame->h) * 3;
    if (!workspace_is_away() && !has_room_for(workspace_folder().path(), frame_bytes))
        queue_box(LABEL_NOTHING_CAN_BE_SAVED, LABEL_DISK_FULL_OR_READ_ONLY);
}

/// The first picture comes up out of black.
void fade_in() {
    constexpr int full = 254, step = 8;
    tint_r = tint_g = tint_b = 0;
    tint_strength = full;
    UA_tint_screen(0, 0, 0, 0, 0, step);
}

}  // namespace

std::optional<int> start_program(const std::vector<std::string>& files) {
    handlers_locked = 1;
    UA_seed_random();  // before the first random colours are drawn
    if (const auto code = claim_program_folder(files)) return code;
    if (const auto code = open_log_and_enter_folder()) return code;
    if (!start_allegro()) return cannot_start;
    if (const GraphicsResult result = UA_init_graphics(); result != GRAPHICS_UP) return result;
    watch_window();
    name_window_process();
    if (font_system_init() != 0) return refuse("Error while initializing the font layer"), no_font_layer;
    UA_log("[ INIT ] : Framework initialized");
    hand_over_commands();
    load_user_settings();
    UA_log("[ INIT ] : User settings loaded from file");
    if (!find_resource_folder()) return cannot_start;
    UA_load_object_library(resource_folder());
    UA_log("[ INIT ] : Loaded application audio resources");
    UA_log("[ INIT ] : Loaded framework audio resources");
    if (!load_application_images()) return cannot_start;
    show_icon();
    load_framework_resources();
    build_palette_tables();
    if (!create_work_bitmaps()) return refuse(no_memory);
    place_mouse();
    hand_over_windows();
    install_handlers();
    UA_log("[ INIT ] : Interrupts installed");
    if (!open_workspace()) return refuse(no_memory);
    if (preferred_font == nullptr) return refuse("System font file is missing. Please reinstall the application.");
    save_work_at_sudden_end();
    warn_if_nothing_can_be_saved();
    gui_enabled = 1;
    handlers_locked = 0;
    UA_log("[ INIT ] : All preparations complete. Entering program loop");
    UA_log(" ");
    editor_running = 1;
    fade_in();
    wear_scheme();
    open_files(files);
    return std::nullopt;
}

}  // namespace nubo
