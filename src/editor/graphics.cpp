#include "editor/graphics.h"

#include "base/log.h"
#include "codecs/gif.h"
#include "codecs/png.h"
#include "editor/screen.h"
#include "game/defaults.h"
#include "platform/input_file.h"
#include "platform/last_words.h"
#include "platform/places.h"
#include "platform/window_colors.h"
#include "state/options.h"
#include "state/run.h"
#include "workspace/folders.h"
#include <algorithm>
#include <allegro.h>
#include <cstdio>
#include <string>

namespace nubo {
namespace {

enum DisplayMode : int {
    DISPLAY_FULLSCREEN = '1',
    DISPLAY_WINDOW_2X = '2',
    DISPLAY_WINDOW_3X = '3',
    DISPLAY_WINDOW_4X = '4'
};

struct ModeRow {
    DisplayMode mode;
    int card, width, height, scale, switch_mode;
    const char* request;
    DisplayMode next;  // tried when this one is refused; itself: none
};
constexpr std::array<ModeRow, 4> modes{{
    {DISPLAY_FULLSCREEN, GFX_AUTODETECT_FULLSCREEN, 640, 480, 2, SWITCH_BACKAMNESIA,
     "[ INIT ] : Requesting 640x480 fullscreen resolution", DISPLAY_FULLSCREEN},
    {DISPLAY_WINDOW_2X, GFX_AUTODETECT_WINDOWED, 640, 480, 2, SWITCH_BACKGROUND,
     "[ INIT ] : Requesting 640x480 windowed resolution", DISPLAY_WINDOW_2X},
    {DISPLAY_WINDOW_3X, GFX_AUTODETECT_WINDOWED, 960, 720, 3, SWITCH_BACKGROUND,
     "[ INIT ] : Requesting 960x720 windowed resolution", DISPLAY_WINDOW_2X},
    {DISPLAY_WINDOW_4X, GFX_AUTODETECT_WINDOWED, 1280, 960, 4, SWITCH_BACKGROUND,
     "[ INIT ] : Requesting 1280x960 windowed resolution", DISPLAY_WINDOW_3X},
}};
static_assert(rows_in_order(modes, &ModeRow::mode, DISPLAY_FULLSCREEN));

/// The first byte of config.def, or EOF when the file is missing, empty or no file.
int UA_read_config() {
    std::uint8_t byte = 0;
    return InputFile(program_folder().file("config.def")).read_at(0, &byte, 1) ? byte : EOF;
}

const ModeRow& mode_of_config(int byte) {
    if (byte < DISPLAY_FULLSCREEN || byte > DISPLAY_WINDOW_4X) {
        UA_log("[ WARNING ] : No display mode in CONFIG.DEF. Assuming a 640x480 window. Byte = %d", byte);
        byte = DISPLAY_WINDOW_2X;
    }
    return modes[static_cast<std::size_t>(byte - DISPLAY_FULLSCREEN)];
}

/// X11 grants a window larger than the desktop, so the desktop has to be asked first.
bool fits_desktop(const ModeRow& mode) {
    int width = 0, height = 0;
    return get_desktop_resolution(&width, &height) != 0 || (mode.width <= width && mode.height <= height);
}

bool request_mode(const ModeRow& mode) {
    UA_log(mode.request);
    if (!fits_desktop(mode) || set_gfx_mode(mode.card, mode.width, mode.height, 0, 0) != 0) return false;
    set_display_switch_mode(mode.switch_mode);  // refused in fullscreen, where it changes nothing
    screen_w = mode.width;
    screen_h = mode.height;
    pixel_scale = mode.scale;
    return true;
}

/// The mode that came up, or null when it and all that it falls back to were refused.
const ModeRow* set_mode(const ModeRow* mode) {
    while (!request_mode(*mode)) {
        if (mode->next == mode->mode) return nullptr;
        mode = &mode_of_config(mode->next);
    }
    return mode;
}

}  // namespace

GraphicsResult UA_init_graphics() {
    const int config = UA_read_config();
    if (config == EOF) {
        UA_log("[ FATAL ] : Cannot locate CONFIG.DEF. Rerun configuration program, or reinstall the game!");
        say_last_words("The file CONFIG.DEF is missing. Rerun the configuration program, or reinstall the game.");
        return GRAPHICS_DENIED;
    }
    set_color_depth(32);
    const ModeRow* const mode = set_mode(&mode_of_config(config));
    if (mode == nullptr) {
        UA_log("[ INIT ] : Resolution DENIED!");
        say_last_words("Your system didn't like the specified resolution! Run CONFIGURE.EXE and pick a different one.");
        return GRAPHICS_DENIED;
    }
    UA_log("[ INIT ] : Resolution accepted");
    if (!adopt_window_colors()) {
        UA_log("[ FATAL ] : The display shows too few colors");
        say_last_words("This display has too few colors: the program needs one of 15 bits a pixel or more.");
        return GRAPHICS_DENIED;
    }
    register_png();
    register_gif();
    if (!create_screen_bitmaps()) {
        UA_log("[ FATAL ] : Not enough memory for the screen");
        say_last_words("The program ran out of memory! Reboot, or close some active programs and try again.");
        return GRAPHICS_DENIED;
    }
    UA_initialize_variables();
    UA_log("[ INIT ] : Internal assets initialized");
    for (const Place& place : find_places(program_dir.data()))
        UA_log("[ INIT ] : Found Drive - %s", std::string(1, place.letter).c_str());
    if (mode->mode == DISPLAY_FULLSCREEN) set_mouse_speed(1, 1);
    UA_log("[ INIT ] : System control hooks installed");
    set_mouse_range(0, 0, screen_w - 1, screen_h - 1);
    clear_bitmap(screen_buffer);
    blit(screen_buffer, screen, 0, 0, 0, 0, view_w, view_h);
    return GRAPHICS_UP;
}

}  // namespace nubo
