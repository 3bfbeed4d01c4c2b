// A user without a plan: he moves, presses, turns the wheel, types and drags at random through the program's own loop,
// over a Workspace on disk. At each picture the editor's tables must agree with each other; after each sitting he must
// find out of whatever he has opened, and the Frames on disk must be those of the table.
//
//   NUBO_RANDOM_EVENTS  events in all
//   NUBO_RANDOM_SEED    the first sitting's seed; a failure names it and the event
#include "codecs/png.h"
#include "editor/loop.h"
#include "framework/outline_font.h"
#include "framework/resources.h"
#include "gui/present.h"
#include "gui/window.h"
#include "harness/windows.h"
#include "platform/input_queue.h"
#include "platform/system_calls.h"
#include "view/frame_tiles.h"
#include "windows/kit/drawing_menu.h"
#include "workspace/folders.h"
#include "workspace/frame_slot.h"
#include "workspace/workspace.h"
#include <csignal>
#include <cstdio>
#include <initializer_list>
#include <unistd.h>

namespace nubo {
namespace {

constexpr int events_by_default = 200'000;
constexpr int events_of_sitting = 2'000, events_between_pictures = 4, event_ms = 5;
constexpr int follow_one_in = 60;  // pictures between two looks at the model
constexpr unsigned seconds_without_picture = 20;
constexpr int left = 1, right = 2, middle = 4;

int number_from_environment(const char* name, int fallback) {
    const char* const text = std::getenv(name);
    return text != nullptr ? std::atoi(text) : fallback;
}

// ---- What must hold at each picture --------------------------------------------------------------------------------

bool is_active(int slot) { return gui::active[at(slot)] != 0; }

bool drawing_menu_stands() {
    return menu_id == WINDOW_DRAWING_MENU && is_active(slot_window) && gui::label[slot_title] == LABEL_COLOR_HOME;
}

/// Beyond the window's own slots stand only the zoom preview and what lies over a window; the board of the frame jump
/// has no window.
bool elements_belong_to_window() {
    const int count = gui::child_count[slot_window];
    if (count < 0 || count > gui_slots) return false;
    for (int slot = count; slot < zoom_preview_slot; ++slot)
        if (is_active(slot) && gui::type[at(slot)] != ELEMENT_THUMBNAIL) return false;
    return true;
}

bool shows_one_active(int first, int active) {
    for (int i = 0; i < choice_slots; ++i)
        if (gui::type[at(first + i)] != (i == active ? ELEMENT_BUTTON_DOWN : ELEMENT_BUTTON)) return false;
    return true;
}

bool is_between(int value, int low, int high) { return value >= low && value <= high; }

/// The view's centre stays on the Frame, but goes on without end along tiles.
bool view_is_in_limits() {
    if (!is_between(zoom, zoom_min, zoom_max)) return false;
    const int half_w = view_w / 2 / zoom_scale[at(zoom)], half_h = (view_h / zoom_scale[at(zoom)] + 1) / 2;
    return (tiles_across() || is_between(pan_x, -half_w, frame_w)) &&
           (tiles_down() || is_between(pan_y, -half_h, frame_h));
}

/// What is wrong, null for nothing.
const char* broken_invariant() {
    if (current_frame == nullptr) return "there is no Frame";
    if (frame_w != current_frame->w || frame_h != current_frame->h) return "the Frame's size is another";
    if (stroke_mask->w != current_frame->w || stroke_mask->h != current_frame->h) return "the stroke mask's size";
    if (!is_between(frame_count, 1, frame_slots) || !is_between(frame_index, 0, frame_count - 1)) return "the row";
    if (const UndoReach reach = undo_reach(); !is_between(reach.done, 0, reach.all)) return "what undo reaches";
    if (!is_between(hover, -1, gui_slots - 1)) return "hover";
    if (!view_is_in_limits()) return "zoom or pan";
    if (!elements_belong_to_window()) return "an element without a window";
    if (!drawing_menu_stands()) return nullptr;
    if (!shows_one_active(DRAWING_TOOL_FIRST, active_tool_slot)) return "the group of tools";
    return shows_one_active(DRAWING_INK_FIRST, active_ink_slot) ? nullptr : "the group of inks";
}

// ---- What a plain model says ---------------------------------------------------------------------------------------

/// What the user sees of the editor's tables.
struct Sight {
    int window, frames, frame, tool_slot, ink_slot;
    Color brush, mask;
    bool operator==(const Sight&) const = default;
};

Sight sight() {
    return {menu_id, frame_count, frame_index, active_tool_slot, active_ink_slot, brush_color, mask_color};
}

/// A press or a key whose outcome is plain wherever the drawing menu waits for one.
struct PlainAct {
    int slot, choices;                          // a button of the menu, or the first of some, or -1 for a key
    Hotkey action;                              // whose key
    void (*foretell)(Sight& seen, int choice);  // what it changes
};

constexpr PlainAct plain_acts[] = {
    {-1, 1, HOTKEY_COUNT, [](Sight&, int) {}},
    {DRAWING_TOOL_FIRST, choice_slots, HOTKEY_COUNT, [](Sight& seen, int choice) { seen.tool_slot = choice; }},
    {DRAWING_INK_FIRST, choice_slots, HOTKEY_COUNT, [](Sight& seen, int choice) { seen.ink_slot = choice; }},
    {DRAWING_COLOR_FIRST, 10, HOTKEY_COUNT, [](Sight& seen, int choice) { seen.brush = color_slots[at(choice)]; }},
    {DRAWING_FRAME, 1, HOTKEY_COUNT, [](Sight& seen, int) { seen.window = WINDOW_FRAME_MENU; }},
    {DRAWING_PIC, 1, HOTKEY_COUNT, [](Sight& seen, int) { seen.window = WINDOW_PIC_MENU; }},
    {DRAWING_CEL, 1, HOTKEY_COUNT, [](Sight& seen, int) { seen.window = WINDOW_CEL_MENU; }},
    {DRAWING_USER, 1, HOTKEY_COUNT, [](Sight& seen, int) { seen.window = WINDOW_USER_MENU; }},
    {DRAWING_TIP, 1, HOTKEY_COUNT, [](Sight& seen, int) { seen.window = WINDOW_TIP; }},
    {-1, 1, HOTKEY_COLOR_MENU, [](Sight& seen, int) { seen.window = WINDOW_COLOR; }},
    {-1, 1, HOTKEY_FRAME_NEXT, [](Sight& seen, int) { seen.frame = (seen.frame + 1) % seen.frames; }},
    {-1, 1, HOTKEY_FRAME_PREVIOUS, [](Sight& seen, int) { seen.frame = (seen.frame + seen.frames - 1) % seen.frames; }},
    {-1, 1, HOTKEY_FRAME_FIRST, [](Sight& seen, int) { seen.frame = 0; }},
    {-1, 1, HOTKEY_FRAME_LAST, [](Sight& seen, int) { seen.frame = seen.frames - 1; }},
    {-1, 1, HOTKEY_FRAME_CLONE, [](Sight& seen, int) { seen.frames = std::min(seen.frames + 1, frame_slots); }},
    {-1, 1, HOTKEY_FRAME_INSERT, [](Sight& seen, int) { seen.frames = std::min(seen.frames + 1, frame_slots); }},
};

/// No tool, no window, no Cel and no title in the hand, and no outline that is shown for a moment.
bool menu_waits() {
    return drawing_menu_stands() && gui_enabled != 0 && gui::hidden[slot_window] == 0 && first_live_slot == 0 &&
           tool_preview == -1 && cel_place.mode == -1 && tool_preview_on == 0 && key_focus < 0 && exit_requested == 0;
}

// ---- The user ------------------------------------------------------------------------------------------------------

class RandomUser {
public:
    /// One picture: a few events, and the time between them.
    void act();
    void begin_sitting(unsigned seed);
    [[noreturn]] void give_up(const char* why) const;

    int events = 0, outcomes_compared = 0;

private:
    int below(int n) { return std::uniform_int_distribution(0, n - 1)(random_); }
    int pick(std::initializer_list<int> choices) { return choices.begin()[below(static_cast<int>(choices.size()))]; }
    void do_something();
    void move();
    void move_to_some_element();
    void use_key();
    void leave_browser();
    void follow_model();
    void choose_plain_act();
    void release_all();
    void leave();

    std::mt19937 random_;
    unsigned seed_ = 0;
    int events_of_this_sitting_ = 0, pictures_leaving_ = 0;
    int model_step_ = 0;  // pictures since he began to follow the model; 0 while he doesn't
    int plain_slot_ = -1, plain_key_ = 0;
    Sight foretold_{};
    std::vector<int> held_;
};

RandomUser user;

void move_mouse(int x, int y) {
    ::mouse_x = std::clamp(x, 0, screen_w - 1);
    ::mouse_y = std::clamp(y, 0, screen_h - 1);
}

void move_to_element(int slot) {
    move_mouse((gui::x[at(slot)] + gui::w[at(slot)] / 2) * pixel_scale,
               (gui::y[at(slot)] + gui::h[at(slot)] / 2) * pixel_scale);
}

/// Anywhere, to an element, or a little further.
void RandomUser::move() {
    constexpr int jitter = 20;
    const int kind = below(3);
    if (kind == 0) move_mouse(below(screen_w), below(screen_h));
    if (kind == 1) move_to_some_element();
    if (kind == 2) move_mouse(::mouse_x + below(2 * jitter + 1) - jitter, ::mouse_y + below(2 * jitter + 1) - jitter);
}

void RandomUser::move_to_some_element() {
    std::vector<int> slots;
    for (int slot = 0; slot < gui_slots; ++slot)
        if (is_active(slot)) slots.push_back(slot);
    if (!slots.empty()) move_to_element(slots[at(below(static_cast<int>(slots.size())))]);
}

/// Mostly keys that do something here, sometimes any; two of three presses are releases.
void RandomUser::use_key() {
    if (!held_.empty() && below(3) != 0) {
        const auto which = held_.begin() + below(static_cast<int>(held_.size()));
        ::key[*which] = 0;
        held_.erase(which);
        return;
    }
    int code = 1 + below(key_code_max);
    if (below(4) != 0) {
        const auto& row = hotkeys[at(below(HOTKEY_COUNT))];
        if (row[KEY_PRIMARY] > 0) code = row[KEY_PRIMARY] & 0xff;
    } else if (below(2) == 0) {
        code = pick({KEY_LSHIFT, KEY_RSHIFT, KEY_LCONTROL, KEY_ALT, KEY_LEFT, KEY_RIGHT, KEY_BACKSPACE, KEY_ENTER});
    }
    ::key[code] = 1;
    held_.push_back(code);
}

void RandomUser::release_all() {
    ::mouse_b = 0;
    for (const int code : held_) ::key[code] = 0;
    held_.clear();
}

/// The file browser leads out of the test's folder, where he would write over what is there: he leaves it at once.
void RandomUser::leave_browser() {
    const bool strikes = ::key[KEY_ESC] == 0;
    release_all();
    if (!strikes) return;
    ::key[KEY_ESC] = 1;
    held_.push_back(KEY_ESC);
}

void RandomUser::do_something() {
    constexpr int percent = 100;
    if (menu_id == WINDOW_FILE_BROWSER) return leave_browser();
    const int what = below(percent);
    if (what < 40)
        move();
    else if (what < 70)
        ::mouse_b = ::mouse_b ^ left;
    else if (what < 78)
        ::mouse_b = ::mouse_b ^ right;
    else if (what < 80)
        ::mouse_b = ::mouse_b ^ middle;
    else if (what < 85)
        ::mouse_z = ::mouse_z + below(7) - 3;
    else if (what < 97)
        use_key();
    else
        release_all();
}

/// Lets go of everything, does something plain, and compares what he sees then with what the model foretells.
void RandomUser::follow_model() {
    constexpr int probed = 2, rested = 20, pressed = 26, released = 30, acted = 60, dead_key = KEY_SCRLOCK;
    if (model_step_ == 1) release_all();
    if (first_change() != nullptr) return;  // a stroke paints: what the hand does waits
    ::key[dead_key] = model_step_ == probed ? 1 : 0;
    if (model_step_ == rested) choose_plain_act();
    if (model_step_ == pressed && (!menu_waits() || (plain_slot_ >= 0 && hover != plain_slot_))) model_step_ = -1;
    const bool is_down = model_step_ >= pressed && model_step_ < released;
    if (model_step_ >= pressed && plain_slot_ >= 0) ::mouse_b = !is_down ? 0 : mouse_reversed != 0 ? right : left;
    if (model_step_ >= pressed && plain_key_ > 0) ::key[plain_key_] = is_down ? 1 : 0;
    if (model_step_ == acted) {
        if (sight() != foretold_) give_up("the model foretold something else");
        ++outcomes_compared;
        model_step_ = -1;
    }
    ++model_step_;
}

/// Goes to a button, or where no button is in the way of a key, if the menu waits for either.
void RandomUser::choose_plain_act() {
    const PlainAct& act = plain_acts[below(static_cast<int>(std::size(plain_acts)))];
    const int choice = below(act.choices);
    plain_slot_ = act.slot < 0 ? -1 : act.slot + choice;
    plain_key_ = act.action == HOTKEY_COUNT ? 0 : int{hotkeys[at(act.action)][KEY_PRIMARY]};
    if (!menu_waits() || plain_key_ > key_code_max) {
        model_step_ = -1;
        return;
    }
    if (plain_slot_ >= 0)
        move_to_element(plain_slot_);
    else
        move_mouse(screen_w / 2, gui::y[slot_window] > view_h / 2 ? 2 : screen_h - 2);
    foretold_ = sight();
    act.foretell(foretold_, choice);
}

/// The end of the program ends whatever is open; a FILL at work shows many pictures first.
void RandomUser::leave() {
    constexpr int pictures_to_give_up = 3'000;
    exit_requested = 1;
    release_all();
    if (pictures_leaving_++ > pictures_to_give_up) give_up("what is open doesn't hear the end of the program");
}

void RandomUser::act() {
    alarm(seconds_without_picture);
    const bool leaves = events_of_this_sitting_ >= events_of_sitting;
    if (leaves) {
        leave();
        model_step_ = 0;
    }
    const bool plays = !leaves && model_step_ == 0;
    if (model_step_ > 0) follow_model();
    if (plays && below(follow_one_in) == 0) model_step_ = 1;
    for (int i = 0; i < events_between_pictures; ++i) {
        // A look at a time: a hand far ahead of what the program has seen would know nothing of where it is.
        if (plays && first_change() == nullptr) do_something();
        advance_time(event_ms);
    }
    if (plays) events += events_between_pictures, events_of_this_sitting_ += events_between_pictures;
    if (const char* const broken = broken_invariant()) give_up(broken);
}

void RandomUser::begin_sitting(unsigned seed) {
    random_.seed(seed);
    seed_ = seed;
    events_of_this_sitting_ = pictures_leaving_ = model_step_ = 0;
    for (int& tool : tool_slots) tool = TOOL_BOX + below(TOOL_COUNT - TOOL_BOX);
    for (int& ink : ink_slots) ink = below(INK_COUNT);
    mouse_reversed = below(2);
    power_saving = below(POWER_COUNT);
    opt_tooltips = below(2);
    opt_tool_distance = below(2);
    opt_zoom_preview = below(2);
    opt_undo_depth = 1 + below(undo_depth_all);
    adopt_frame(make_bitmap(64 + below(400), 48 + below(300)));
    reset_undo_slots();
    constexpr int frame_bytes_max = 4 << 20;  // the way to larger ones is left to the tests of the resizing
    refuse_larger_bitmaps(frame_bytes_max);
}

void RandomUser::give_up(const char* why) const {
    save_bmp("given_up.bmp", screen_buffer, nullptr);
    std::fprintf(stderr,
                 "[  FAILED  ] the random user: %s; seed %u, event %d (%d in all), window %d, slots %d, hover %d, zoom "
                 "%d, pan %d %d\n",
                 why, seed_, events_of_this_sitting_, events, int{menu_id}, int{gui::child_count[slot_window]},
                 int{hover}, int{zoom}, int{pan_x}, int{pan_y});
    std::fflush(nullptr);
    std::_Exit(1);
}

// ---- The Workspace -------------------------------------------------------------------------------------------------

class RandomUserTest : public EditorTest {
protected:
    void SetUp() override {
        std::filesystem::copy(NUBO_FOLDER "/resource", "resource", std::filesystem::copy_options::recursive);
        setenv("HOME", folder_.path().c_str(), 1);  // where the file browser opens
        UA_log_open();
        UA_load_framework_video(Folder("resource"));
        system_calls.fsync =
            system_calls.syncfs = [](int) { return 0; };  // no test pulls the plug, and it takes its time
        std::strncpy(program_dir.data(), folder_.path().c_str(), path_size - 1);
        replace_bitmap(nail_sheet, make_bitmap(nail_tile * nail_columns, nail_tile * nail_columns));
        replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h));
        replace_bitmap(logo, OwnedBitmap(load_png("resource/N_HD_1X.RES", nullptr)));
        hotkeys[HOTKEY_FRAME_CLONE][KEY_PRIMARY] = KEY_1;
        hotkeys[HOTKEY_FRAME_INSERT][KEY_PRIMARY] = KEY_2;
        hotkeys[HOTKEY_FRAME_DELETE][KEY_PRIMARY] = KEY_3;
        hotkeys[HOTKEY_RAPID_EXIT][KEY_PRIMARY] = KEY_F10;
        std::filesystem::create_directory("fonts");
        std::filesystem::copy(NUBO_FOLDER "/fonts/system.ttf", "fonts");
        ASSERT_EQ(font_system_init(), 0);
        ASSERT_TRUE(open_workspace());
        gui_enabled = 1;
    }
    void TearDown() override { set_present_hook(nullptr); }

    /// The files of the row, by their number alone: the Frame in memory may be newer than its own.
    static int files_of_row() {
        int count = 0;
        while (std::filesystem::exists(std::string("WORKSPACE/") + frame_file_name(STEM_CURRENT, count))) ++count;
        return count;
    }
    /// The lines of the log that tell of a fault.
    static std::string faults_in_log() {
        std::string faults;
        std::istringstream log(log_text());
        for (std::string line; std::getline(log, line);)
            if ((line.find("[ TRAP ]") != std::string::npos || line.find("[ ERROR ]") != std::string::npos) &&
                line.find("Radius OOB in call to plot_polygon") == std::string::npos &&  // a slider at 0
                line.find("Font error detected") == std::string::npos &&                 // another one
                line.find("No memory for a frame") == std::string::npos &&               // he may ask for any size
                line.find("to read file at OS level") == std::string::npos &&            // and for any file
                line.find("no picture of a known kind") == std::string::npos)
                faults += line + '\n';
        return faults;
    }

    ScratchFolder folder_;
};

TEST_F(RandomUserTest, BreaksNothingAndEndsFromEveryWindow) {
    const int events = number_from_environment("NUBO_RANDOM_EVENTS", events_by_default);
    const std::vector<WindowOpener> windows = all_windows();
    unsigned seed = static_cast<unsigned>(number_from_environment("NUBO_RANDOM_SEED", 1));
    std::signal(SIGALRM, [](int) { user.give_up("no picture for a long time"); });
    set_present_hook([] { user.act(); });
    while (user.events < events) {
        user.begin_sitting(seed);
        exit_requested = 0;
        build_drawing_menu();
        windows[seed % windows.size()].open();  // he finds each window open at some time, and is on his own behind it
        program_loop();
        ASSERT_EQ(files_of_row(), frame_count) << "seed " << seed;
        ASSERT_EQ(faults_in_log(), "") << "seed " << seed;
        ++seed;
    }
    alarm(0);
    EXPECT_GT(user.outcomes_compared, events / 2'000) << "he hardly found the menu waiting";
}

}  // namespace
}  // namespace nubo
