// nubo-stage: the framework at play, scene by scene, in a window or as pictures.
#include "base/bitmap.h"
#include "base/color.h"
#include "base/random.h"
#include "codecs/png.h"
#include "game/console_window.h"
#include "game/screen_effects.h"
#include "game/sound.h"
#include "gui/key_taps.h"
#include "gui/present.h"
#include "platform/display_loss.h"
#include "platform/input.h"
#include "platform/safe_file.h"
#include "platform/signals.h"
#include "platform/window_colors.h"
#include "stage.h"
#include "state/flow.h"
#include "state/options.h"
#include "state/run.h"
#include <allegro.h>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <unistd.h>

namespace nubo {
namespace {

enum ExitCode : int { EXIT_DONE, EXIT_FAILED, EXIT_USAGE };

constexpr const char* usage =
    "Usage: nubo-stage [SCENE]      plays the scenes in a window, from SCENE on\n"
    "       nubo-stage --list       names the scenes\n"
    "       nubo-stage --shots DIR  writes a picture of each scene to DIR/SCENE.png, without a display\n"
    "       nubo-stage --help       says this\n"
    "\n"
    "In the window the arrow keys go to the next and the previous scene, SPACE plays a scene again, F12 writes\n"
    "the picture to the program's folder, the tilde key opens the console. The close button ends it.\n";

int fail(const std::string& cause) {
    std::fprintf(stderr, "nubo-stage: %s\n", cause.c_str());
    return EXIT_FAILED;
}

int list_scenes() {
    for (const Scene& scene : scenes()) std::printf("%s\n", scene.name);
    return EXIT_DONE;
}

// ---- Pictures without a display ------------------------------------------------------------------------------------

/// Plays a scene to the time of its picture, as many pictures a second as in a window.
void play_to_shot(const Scene& scene) {
    constexpr int picture_ms = 10;
    play_scene(scene);
    for (int ms = 0; ms <= scene.shot_ms; ms += picture_ms) {
        update_screen(UPDATE_NORMAL);
        run_stage_clock(picture_ms);
    }
}

int write_shots(const char* folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (install_allegro(SYSTEM_NONE, &errno, nullptr) != 0) return fail("Allegro can't be started");
    set_color_depth(32);
    use_window_color_order();
    if (!set_up_stage()) return EXIT_FAILED;
    set_present_hook([] {});
    set_sample_player([](const SAMPLE*, int, int, int, int) { return -1; });
    for (const Scene& scene : scenes()) {
        // The same chance each time, for each scene by itself.
        random_first.seed(1U);
        random_second.seed(2U);
        play_to_shot(scene);
        const std::string path = std::string(folder) + "/" + scene.name + ".png";
        Bytes bytes;
        if (!write_png(screen_buffer, bytes) || !write_file(path, bytes.data(), bytes.size()))
            return fail(path + " can't be written");
    }
    return EXIT_DONE;
}

// ---- The window ----------------------------------------------------------------------------------------------------

bool open_window() {
    constexpr int scale = 3;
    if (install_allegro(SYSTEM_AUTODETECT, &errno, std::atexit) != 0 || install_timer() != 0 ||
        install_keyboard() != 0 || install_mouse() < 0)
        return fail("no window can be opened here: is DISPLAY set to a running X server?"), false;
    watch_display();
    install_input();
    set_color_depth(32);
    if (set_gfx_mode(GFX_AUTODETECT_WINDOWED, view_w * scale, view_h * scale, 0, 0) != 0 || !adopt_window_colors())
        return fail("the display refuses a window of 960x720"), false;
    set_display_switch_mode(SWITCH_BACKGROUND);
    screen_w = view_w * scale;
    screen_h = view_h * scale;
    pixel_scale = scale;
    set_window_title("Nubo stage");
    set_close_button_callback([] { exit_requested = 1; });
    request_exit_on_signals();
    return true;
}

/// Does what the key that was struck asks for.
void serve_key(int code, std::size_t& number) {
    const std::size_t count = scenes().size();
    if (code == KEY_RIGHT) number = (number + 1) % count;
    if (code == KEY_LEFT) number = (number + count - 1) % count;
    if (code == KEY_RIGHT || code == KEY_LEFT || code == KEY_SPACE) play_scene(scenes()[number]);
    if (code == KEY_F12) UA_screen_capture();
    if (code != KEY_TILDE) return;
    UA_console(0);
    editor_running = 0;  // the view is the scene's, not the mouse's
}

/// Without a card the library tells so in lines of its own; the stage plays on in silence.
void start_sound() {
    const int words = dup(STDERR_FILENO), nowhere = open("/dev/null", O_WRONLY);
    if (words >= 0 && nowhere >= 0) dup2(nowhere, STDERR_FILENO);
    install_sound(DIGI_AUTODETECT, MIDI_NONE, nullptr);
    if (words >= 0) dup2(words, STDERR_FILENO);
    close(words);
    close(nowhere);
}

int play_in_window(std::size_t number) {
    UA_seed_random();
    if (!open_window()) return EXIT_FAILED;
    start_sound();
    if (!set_up_stage() || !start_stage_clock()) return EXIT_FAILED;
    show_stage_keys();
    play_scene(scenes()[number]);
    KeyTaps keys;
    while (exit_requested == 0) {
        update_screen(UPDATE_NORMAL);
        serve_key(keys.take(), number);
        if (is_stage_empty()) play_scene(scenes()[number]);
    }
    handlers_locked = 1;
    return EXIT_DONE;
}

int run(std::span<char* const> words) {
    const std::string_view first = words.empty() ? "" : words[0];
    if (first == "--help" && words.size() == 1) return std::fputs(usage, stdout), EXIT_DONE;
    if (first == "--list" && words.size() == 1) return list_scenes();
    if (first == "--shots" && words.size() == 2) return write_shots(words[1]);
    if (words.empty()) return play_in_window(0);
    for (std::size_t i = 0; i < scenes().size() && words.size() == 1; ++i)
        if (first == scenes()[i].name) return play_in_window(i);
    std::fputs(usage, stderr);
    return EXIT_USAGE;
}

}  // namespace
}  // namespace nubo

int main(int argc, char** argv) { return nubo::run({argv + 1, static_cast<std::size_t>(argc - 1)}); }
