#include "editor/start.h"

#include "base/bitmap.h"
#include "base/log.h"
#include "base/random.h"
#include "codecs/png.h"
#include "editor/graphics.h"
#include "editor/handlers.h"
#include "editor/quick_pan.h"
#include "editor/zoom_preview.h"
#include "framework/actors.h"
#include "framework/resources.h"
#include "platform/folder_lock.h"
#include "platform/input.h"
#include "platform/program_folder.h"
#include "platform/signals.h"
#include "state/cel.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/view.h"
#include "windows/about_box.h"
#include "windows/color_elements.h"
#include "windows/gradient_nodes.h"
#include "windows/help_window.h"
#include "windows/scheme.h"
#include "workspace/user_settings.h"
#include "workspace/workspace.h"
#include <allegro.h>
#include <cstdio>
#include <unistd.h>

namespace nubo {
namespace {

constexpr const char* window_title = "Nubo v1.3";
constexpr int cannot_start = -1;

void request_exit_by_close_button() { exit_requested = 1; }

/// Two editors on one Workspace would write over each other's Frames: the second one ends before it touches anything.
int claim_program_folder() {
    if (!find_program_dir()) {
        std::fprintf(stderr, "nubo: the program's own folder can't be told\n");
        return cannot_start;
    }
    if (lock_folder(program_dir.data())) return 0;
    constexpr const char* taken =
        "Nubo is already running on this Workspace. Go back to its window, or close it first.\n";
    std::fputs(taken, stderr);
    if (install_allegro(SYSTEM_AUTODETECT, &errno, std::atexit) == 0) allegro_message("%s", taken);
    return exit_locked;
}

/// The log belongs where the program was started; all else happens in the program's own folder.
int open_log_and_enter_folder() {
    if (const int code = claim_program_folder(); code != 0) return code;
    UA_log_reset();
    UA_log_open(program_dir.data());
    UA_log("[ INIT ] : Old resources swept up");
    UA_log("[ INIT ] : %s now loading", window_title);
    UA_log("[ INIT ] : DEFCON 1 - Standard logging");
    if (chdir(program_dir.data()) == 0) return 0;
    UA_log("[ FATAL ] : The program's own folder can't be entered. Folder = %s", program_dir.data());
    std::fprintf(stderr, "nubo: the program's own folder can't be entered\n");
    return cannot_start;
}

bool start_allegro() {
    if (install_allegro(SYSTEM_AUTODETECT, &errno, std::atexit) != 0 || install_timer() != 0 ||
        install_keyboard() != 0 || install_mouse() < 0) {
        UA_log("[ FATAL ] : Allegro can't be started: is there a display?");
        std::fprintf(stderr, "nubo: no window can be opened here: is DISPLAY set to a running X server?\n");
        return false;
    }
    UA_log("[ INIT ] : Initialized Allegro");
    install_input();
    set_window_title(window_title);
    set_close_button_callback(request_exit_by_close_button);
    request_exit_on_signals();
    return true;
}

// ---- Images --------------------------------------------------------------------------------------------------------

bool load_resource_png(const char* path, BITMAP*& handle) {
    replace_bitmap(handle, OwnedBitmap(load_png(path, nullptr)));
    if (handle != nullptr) return true;
    UA_log("ERROR: Failed to find a resource file. File = %s", path);
    UA_log("[ STATS ] : %s", png_error);
    allegro_message("A critical resource file is missing. Please reinstall the program.");
    return false;
}

bool load_application_images() {
    BITMAP* tips = nullptr;
    if (!load_resource_png("resource/N_HD_1X.RES", logo) || !load_resource_png("resource/brushie.PNG", tips))
        return false;
    const OwnedBitmap owned_tips(tips);
    replace_bitmap(tip_sheet, make_bitmap(tip_sheet_w, tip_sheet_h, transparent_color));
    if (tip_sheet == nullptr) return false;
    blit(tips, tip_sheet, 0, 0, 0, 0, tip_sheet_w, tip_image_h);
    UA_log("[ INIT ] : Loaded application video resources");
    return true;
}

/// The scrambled images are read where they lie, in "resource".
bool load_framework_resources() {
    if (chdir("resource") != 0) return false;
    UA_load_framework_video();
    UA_log("[ INIT ] : Loaded framework video resources");
    UA_sweep_temp_resources();
    return chdir("..") == 0;
}

bool load_object_library() {
    if (chdir("resource") != 0) return false;
    UA_load_object_library();
    return chdir("..") == 0;
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

/// The first picture comes up out of black.
void fade_in() {
    constexpr int full = 254, step = 8;
    tint_r = tint_g = tint_b = 0;
    tint_strength = full;
    UA_tint_screen(0, 0, 0, 0, 0, step);
}

}  // namespace

int start_program() {
    handlers_locked = 1;
    UA_seed_random();  // before the first random colours are drawn
    if (const int code = open_log_and_enter_folder(); code != 0) return code;
    if (!start_allegro()) return cannot_start;
    if (const GraphicsResult result = UA_init_graphics(); result != GRAPHICS_UP) return result;
    UA_log("[ INIT ] : Framework initialized");
    load_user_settings();
    UA_log("[ INIT ] : User settings loaded from file");
    if (!load_object_library()) return cannot_start;
    UA_log("[ INIT ] : Loaded application audio resources");
    UA_log("[ INIT ] : Loaded framework audio resources");
    if (!load_application_images() || !load_framework_resources()) return cannot_start;
    build_palette_tables();
    if (!create_work_bitmaps()) return cannot_start;
    place_mouse();
    register_zoom_preview();
    register_quick_pan();
    set_color_drawers();
    register_help_window();
    register_about_box();
    register_gradient_nodes();
    install_handlers();
    UA_log("[ INIT ] : Interrupts installed");
    if (!open_workspace()) return cannot_start;
    gui_enabled = 1;
    handlers_locked = 0;
    UA_log("[ INIT ] : All preparations complete. Entering program loop");
    UA_log(" ");
    enter_image_dir();
    editor_running = 1;
    fade_in();
    apply_scheme(SCHEME_TO_INTERFACE);
    recolor_gui_sheet(color_scheme[SCHEME_BACKGROUND], color_scheme[SCHEME_BORDER], color_scheme[SCHEME_SHADOW],
                      color_scheme[SCHEME_BACKGROUND]);
    return 0;
}

void shutdown_program() {
    UA_log("[ END ] : User has opted to exit the program.");
    UA_log("[ END ] : Switching off handlers and locking processes.");
    handlers_locked = 1;
    gui_enabled = 0;
    editor_running = 0;
    UA_log("[ END ] : Writing workspace to file.");
    close_workspace();
    UA_log("[ END ] : Writing user settings to file.");
    save_user_settings();
    UA_log("[ END ] : Closing log.");
    UA_log_close();
}

}  // namespace nubo
