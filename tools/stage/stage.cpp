#include "stage.h"

#include "base/bitmap.h"
#include "base/jobs.h"
#include "base/random.h"
#include "base/timebase.h"
#include "framework/resources.h"
#include "framework/text.h"
#include "game/actors.h"
#include "game/bubbles.h"
#include "game/console_window.h"
#include "game/defaults.h"
#include "game/draw_actors.h"
#include "game/draw_bubbles.h"
#include "game/ripples.h"
#include "game/screen_effects.h"
#include "game/script_tick.h"
#include "game/scripts.h"
#include "game/sound.h"
#include "gui/draw.h"
#include "gui/mouse.h"
#include "gui/present.h"
#include "gui/tick.h"
#include "platform/folder.h"
#include "platform/program_folder.h"
#include "state/cel.h"
#include "state/console.h"
#include "state/drawn_actors.h"
#include "state/effects.h"
#include "state/flow.h"
#include "state/options.h"
#include "state/resources.h"
#include "state/run.h"
#include "state/shown.h"
#include "state/view.h"
#include <algorithm>
#include <allegro.h>
#include <cstdio>
#include <vector>

namespace nubo {
namespace {

struct Label {
    int x, y;
    std::string text;
};
std::vector<Label> labels;
const Scene* playing = nullptr;
bool shows_keys = false;

// ---- The clockwork -------------------------------------------------------------------------------------------------

struct Clock {
    void (*tick)();
    int hz;
};
/// As in the editor, the jobs wait while the console is open.
void tick_jobs() {
    if (Console_running == 0) count_job_delays();
}

constexpr Clock clocks[] = {
    {UA_bubble_tick, 45}, {tick_jobs, 45}, {UA_behavior_handler, 140}, {UA_script_tick, 100},
    {UA_sound_tick, 5},   {GUI_tick, 60},  {cursor_tick, 10},          {UA_timebase_tick, clock_hz}};

// ---- Drawing -------------------------------------------------------------------------------------------------------

/// A game's depth sort: what stands lower on the screen is nearer and drawn later.
void sort_draw_list() {
    auto end = draw_list.begin();
    for (int who = 0; who < actor_count; ++who)
        if (drawn::Type[at(who)] != ACTOR_FREE) *end++ = who;
    std::stable_sort(draw_list.begin(), end, [](int a, int b) { return drawn::Pos_y[at(a)] < drawn::Pos_y[at(b)]; });
    std::fill(end, draw_list.end(), actor_none);
}

void draw_labels() {
    constexpr int outline = 1;  // entry of the palette, nearly black
    UA_set_font(FONT_NARROW, TEXT_GRAY, 0, 0, 0, outline, 0, 0);
    for (const Label& one : labels) UA_text(screen_buffer, one.x, one.y, one.text);
    constexpr int keys_x = 4, keys_y = 2;
    if (shows_keys)
        UA_text(screen_buffer, keys_x, keys_y, "LEFT, RIGHT: SCENES   SPACE: AGAIN   F12: PICTURE   ~: CONSOLE");
    constexpr int title_x = 4, title_y = view_h - 9;
    UA_set_font(FONT_WIDE, TEXT_YELLOW, 0, 0, 0, outline, 0, 0);
    UA_text(screen_buffer, title_x, title_y, playing->title);
}

void draw_scene() {
    constexpr Color backdrop = 0x202838;
    clear_to_color(screen_buffer, static_cast<int>(backdrop));
    if (playing->draw_behind != nullptr) playing->draw_behind();
    sort_draw_list();
    UA_draw_actors(0);
    UA_draw_bubbles();
    if (playing->draw_over != nullptr) playing->draw_over();
    UA_step_ready_ripples();
    draw_labels();
}

// ---- Clearing ------------------------------------------------------------------------------------------------------

void clear_stage() {
    for (int who = actor_first + 1; who < actor_last; ++who) UA_destroy_actor(who, "nubo-stage");
    for (int slot = 0; slot < script_slots; ++slot) UA_reset_script(slot);
    for (auto& active : ripple::active) active = 0;
    for (int slot = 0; slot < job_slots; ++slot) UA_clear_job(slot);
    labels.clear();
    pan_x = pan_y = 0;
    tint_r = tint_g = tint_b = -1;
    tint_strength = 0;
    fog_on = 0;
    draw_list.fill(actor_none);
}

bool load_sheet(BITMAP*& sheet, const Folder& folder, const char* name) {
    replace_bitmap(sheet, OwnedBitmap(UA_load_resource_bitmap(folder, name)));
    if (sheet == nullptr) return std::fprintf(stderr, "nubo-stage: %s holds no picture\n", name), false;
    UA_black_to_mask(sheet);
    return true;
}

}  // namespace

// ---- What the scenes have in common --------------------------------------------------------------------------------

std::size_t spawn_actor(ActorType type, int x, int y) {
    const int who = UA_spawn_blank_element(0, 0);
    if (who == actor_none) return actor_first;
    const std::size_t w = at(who);
    actor::Pos_x[w] = static_cast<std::int16_t>(x);
    actor::Pos_y[w] = static_cast<std::int16_t>(y);
    actor::Type[w].publish(type);
    return w;
}

std::size_t spawn_sprite(Cel cel, int x, int y) {
    const std::size_t who = spawn_actor(ACTOR_SPRITE, x, y);
    actor::Frame_x[who] = static_cast<std::int16_t>(cel.column);
    actor::Frame_y[who] = static_cast<std::int16_t>(cel.row);
    return who;
}

void start_behavior(std::size_t who, Behavior behavior, int delay, std::initializer_list<int> params) {
    const int slot = get_free_behavior(static_cast<int>(who));
    if (slot < 0) return;
    std::size_t i = 0;
    for (const int param : params) actor::Behavior_param[who][at(slot)][i++] = static_cast<std::int16_t>(param);
    actor::Behavior_delay[who][at(slot)] = static_cast<std::int16_t>(delay);
    actor::Behavior_accum[who][at(slot)] = 0;
    actor::BEHAVIOR[who][at(slot)].publish(behavior);
}

void label(int x, int y, const std::string& text) { labels.push_back({x, y, text}); }

void draw_paper() {
    constexpr Color paper = 0xb8b0a0;
    clear_to_color(screen_buffer, static_cast<int>(paper));
}

void draw_floor() {
    constexpr int bricks = 1;  // column of the sheet
    for (int y = 0; y < view_h; y += tile_side)
        for (int x = 0; x < view_w; x += tile_side)
            blit(tile_sheet, screen_buffer, bricks * tile_side, 0, x, y, tile_side, tile_side);
}

// ---- The stage -----------------------------------------------------------------------------------------------------

Folder stage_resources() { return Folder(program_dir.data()).inside("resource"); }

bool set_up_stage() {
    if (!find_program_dir()) return std::fputs("nubo-stage: its own folder can't be told\n", stderr), false;
    replace_bitmap(screen_buffer, make_bitmap(view_w, view_h));
    if (screen_buffer == nullptr || !create_effect_bitmaps())
        return std::fputs("nubo-stage: no memory for the screen\n", stderr), false;
    UA_initialize_variables();
    const Folder resources = stage_resources();
    UA_load_framework_video(resources);
    UA_load_object_library(resources);
    UA_load_resource_sample(resources, "UA_CHIME", stage_chime, 0);
    return load_sheet(actor_sheet, resources, "UA_ACTORS") && load_sheet(tile_sheet, resources, "UA_TILES") &&
           load_sheet(glow_sheet, resources, "UA_GLOW");
}

void play_scene(const Scene& scene) {
    handlers_locked = 1;
    clear_stage();
    playing = &scene;
    scene.build();
    handlers_locked = 0;
}

void run_stage_clock(int milliseconds) {
    constexpr int second_ms = 1000;
    static std::array<int, std::size(clocks)> parts{};  // of a tick that is due, in its rate a second
    for (int ms = 0; ms < milliseconds; ++ms)
        for (std::size_t i = 0; i < parts.size(); ++i)
            if ((parts[i] += clocks[i].hz) >= second_ms) {
                parts[i] -= second_ms;
                clocks[i].tick();
            }
}

bool is_stage_empty() {
    const auto first = actor::Type.begin() + actor_first + 1, end = actor::Type.begin() + actor_last;
    return std::all_of(first, end, [](const auto& type) { return type == ACTOR_FREE; });
}

void show_stage_keys() { shows_keys = true; }

bool start_stage_clock() {
    const bool installed = std::ranges::all_of(
        clocks, [](const Clock& clock) { return install_int_ex(clock.tick, timer_hz / clock.hz) == 0; });
    return installed || (std::fputs("nubo-stage: the timers can't be started\n", stderr), false);
}

/// The stage's own picture, in the place of the editor's.
void update_screen(int /*mode*/) {
    UA_snapshot_actors();
    shown.pan_x = pan_x;
    shown.pan_y = pan_y;
    draw_scene();
    GUI_draw_all();
    draw_frame_rate();
    UA_draw_tint();
    present();
    renew_input();
    UA_run_jobs();
}

/// The stage has no key table: its loop looks at the keys itself.
void check_hotkeys(int /*mode*/) {}

}  // namespace nubo
