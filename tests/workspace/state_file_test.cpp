#include "editor/commands.h"
#include "harness/user.h"
#include "platform/input_file.h"
#include "state/cel.h"
#include "state/guides.h"
#include "state/hotkeys.h"
#include "state/view.h"
#include "state/windows.h"
#include "workspace/bmp_files.h"
#include "workspace/notices.h"
#include "workspace/side_files.h"
#include "workspace/state_fields.h"
#include "workspace/user_settings.h"
#include "workspace/workspace_kit.h"

namespace nubo {
namespace {

using Bytes = std::vector<std::uint8_t>;

void put_word(Bytes& bytes, std::size_t at, int value) {
    for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<std::uint8_t>(value >> (24 - 8 * i));
}

/// A number of a file: where it stands, in how many bytes, a value of its own, and the variable it belongs to.
struct Place {
    std::size_t offset, size;
    int value;
    std::function<int()> get;
};
template <typename Number> Place byte_at(std::size_t offset, int value, Number& number) {
    return {offset, 1, value, [&number] { return static_cast<int>(number); }};
}
template <typename Number> Place word_at(std::size_t offset, int value, Number& number) {
    return {offset, 4, value, [&number] { return static_cast<int>(number); }};
}

void put_places(Bytes& bytes, const std::vector<Place>& places) {
    for (const Place& place : places)
        place.size == 1 ? void(bytes[place.offset] = static_cast<std::uint8_t>(place.value))
                        : put_word(bytes, place.offset, place.value);
}
void expect_places(const std::vector<Place>& places) {
    for (const Place& place : places) EXPECT_EQ(place.get(), place.value) << "offset " << place.offset;
}

std::vector<Place> places_of_choices() {
    return {byte_at(0, TOOL_TEXT, tool_slots[0]),
            byte_at(5, TOOL_BOX, tool_slots[5]),
            byte_at(6, INK_XOR, ink_slots[0]),
            byte_at(11, INK_GLOW, ink_slots[5]),
            byte_at(12, 4, active_tool_slot),
            byte_at(13, 5, active_ink_slot),
            byte_at(14, SPACE_HSV, colorspace),
            byte_at(15, 1, state_flag),
            byte_at(16, 6, zoom),
            byte_at(17, 99, frame_index),
            byte_at(18, 100, frame_count),
            byte_at(19, 44, text_tool_size),
            byte_at(20, 3, favorites_page),
            byte_at(21, 1, spectrum_fold),
            byte_at(22, 0, opt_cel_masking),
            byte_at(23, 36, brush_tip),
            word_at(24, 359, supershape_values.angle),
            word_at(28, -3000, supershape_values.n1),
            word_at(40, 20, supershape_values.arms),
            word_at(44, 500, supershape_values.magnitude),
            word_at(48, 90, spiral_values.angle),
            word_at(56, 64, spiral_values.wraps),
            word_at(64, 1, spiral_values.flip),
            word_at(68, 45, polygon_values.angle),
            word_at(76, 32, polygon_values.sides)};
}

std::vector<Place> places_of_colors_and_options() {
    return {word_at(80, 0x010203, color_slots[0]),
            word_at(116, 0x040506, color_slots[9]),
            word_at(120, 0x070809, favorites[0]),
            word_at(1140, 0xfffffe, favorites[255]),
            byte_at(1288, 13, state_format),
            byte_at(1292, 2, frame_view[0].zoom),
            byte_at(1391, 6, frame_view[99].zoom),
            word_at(1392, 270, cel_angle),
            word_at(1396, 75, jpeg_quality),
            word_at(1400, -20, cel_x),
            word_at(1404, 30, cel_y),
            word_at(1408, 0xabcdef, brush_color),
            word_at(1412, 0x123456, mask_color),
            word_at(1416, -160, pan_x),
            word_at(1420, 77, pan_y),
            word_at(1424, 0x111111, spectrum_start),
            word_at(1428, 0x222222, spectrum_end),
            word_at(1432, 123456, tool_options[0][0]),
            word_at(1432 + 17 * 64 + 8, 31, tool_options[TOOL_SPRAY][OPTION_SPRAY_RADIUS]),
            word_at(1432 + 7 * 64 + 12, 100, ink_options[INK_GRAIN][OPTION_GRAIN_FREQUENCY]),
            word_at(4628, -5, ink_options[49][7])};
}

std::vector<Place> state_places() {
    std::vector<Place> places = places_of_choices();
    for (const Place& place : places_of_colors_and_options()) places.push_back(place);
    return places;
}

/// A state file as its table of offsets tells, with all texts empty but the title and the image file.
Bytes make_state(const std::string& title, const std::string& file) {
    Bytes bytes(4632, 0);
    for (int i = 0; i < choice_slots; ++i) bytes[static_cast<unsigned>(i)] = TOOL_DRAW;
    put_places(bytes, state_places());
    for (const std::string& text : {title, std::string(), std::string(), file, std::string(), std::string(),
                                    std::string(), std::string(), std::string()}) {
        bytes.push_back(static_cast<std::uint8_t>(text.size()));
        bytes.insert(bytes.end(), text.begin(), text.end());
    }
    const std::size_t windows = bytes.size();
    bytes.resize(windows + 512 + 800);
    put_word(bytes, windows, -1);
    put_word(bytes, windows + 508, 239);        // y of window 63
    put_word(bytes, bytes.size() - 8, -65535);  // pan x of the last slot
    return bytes;
}

TEST_F(WorkspaceTest, StateFileHasItsLayout) {
    const std::string longest(127, 'f');
    const Bytes bytes = make_state("A TITLE", longest);
    EXPECT_EQ(bytes.size(), 5953U + 7 + 127);
    EXPECT_TRUE(unpack_state(bytes, "file")) << log_text();
    expect_places(state_places());
    EXPECT_STREQ(workspace_title.data(), "A TITLE");
    EXPECT_STREQ(image_file.data(), longest.c_str());
    EXPECT_TRUE(window_pos[0].x == -1 && window_pos[63].y == 239 && frame_view[99].pan_x == -65535);
    EXPECT_EQ(pack_state(), bytes);
}

TEST_F(WorkspaceTest, GuidesLieInTheStateOnceOneWasChanged) {
    const Bytes plain = make_state("", "");
    Bytes bytes = plain;
    const Bytes stretch{0x24, 0, 0, 0, 32,   0,  1, 0xff, 0xfd, 2, 0x32, 200, 0x3d, 1, 0,
                        0,    9, 0, 3, 0x27, 15, 0, 100,  0x35, 2, 60,   99,  100,  2};
    std::copy(stretch.begin(), stretch.end(), bytes.begin() + 1144);
    bytes[1186] = 0x1d;
    bytes[1187] = 31;
    bytes[1287] = 255;
    EXPECT_TRUE(unpack_state(bytes, "without the mark"));
    EXPECT_EQ(guides.symmetry, SYMMETRY_OFF);
    EXPECT_EQ(guides.cell_w, 16);
    EXPECT_EQ(pack_state(), plain);

    bytes[1291] = 1;
    EXPECT_TRUE(unpack_state(bytes, "file")) << log_text();
    const std::vector<int> read{
        guides.symmetry,      guides.tiles,         guides.axis_x,          guides.axis_y,        guides.ghost,
        guides.ghosts_before, guides.ghosts_after,  guides.ghost_strength,  guides.pixel_grid,    guides.cell_grid,
        guides.snap,          guides.checker,       guides.hides_rim,       guides.cell_w,        guides.cell_h,
        guides.cell_x,        guides.cell_y,        guides.pinned_frame,    guides.last_symmetry, guides.last_tiles,
        guides.last_ghost,    guides.clean_cel,     guides.cel_shape,       guides.speed,         guides.first_frame,
        guides.range_end,     guides.loop,          guides.frame_times[99], guides.clear_ground,  guides.palette_length,
        guides.lock,          guides.wand_tolerance};
    EXPECT_EQ(read,
              (std::vector<int>{4, 2, 32, 131069,         2,  2,  3,   200, 1,   0, 1,   1, 1, 256, 9, 3, 9999, 100, 5,
                                3, 2, 1,  CEL_IS_CUT_OFF, 60, 99, 100, 2,   255, 1, 256, 1, 30}));
    EXPECT_EQ(pack_state(), bytes);
}

TEST_F(WorkspaceTest, StateCutOrTwistedAnywhereGivesValuesInRange) {
    const Bytes good = make_state("TITLE", "FILE");
    const auto expect_sound = [](const Bytes& bad, std::size_t at) {
        unpack_state(bad, "file");
        ASSERT_TRUE(unpack_state(pack_state(), "file again")) << at;  // nothing is left to complain about
    };
    for (std::size_t at = 0; at < good.size(); ++at) {
        const Bytes cut(good.begin(), good.begin() + static_cast<long>(at));
        EXPECT_FALSE(unpack_state(cut, "file")) << at;
        if (at % 7 == 0) expect_sound(cut, at);
        for (const int twist : {0xff, 0x80, 0x01}) {
            Bytes bad = good;
            bad[at] = static_cast<std::uint8_t>(bad[at] ^ twist);
            expect_sound(bad, at);
        }
    }
    EXPECT_TRUE(logged("file holds"));
    EXPECT_TRUE(logged("file is cut short at 100 bytes"));
}

TEST_F(WorkspaceTest, EachFileMissingEmptyOrCutIsRepairedAndTold) {
    make_workspace({1, 2, 3}, 1);
    std::filesystem::rename("WORKSPACE", "original");
    struct Case {
        const char *file, *line;
    };
    for (const auto& [file, line] : {Case{"current.spa", "current.spa"},
                                     {"current.cel", "Cel container repaired"},
                                     {"current.nal", "Nail container repaired"},
                                     {"current.tip", "Custom tip container repaired"},
                                     {"current.001", "current.001"}})
        for (const long length : {-1L, 0L, 1L, 40L, 60L}) {
            std::filesystem::remove_all("WORKSPACE");
            std::filesystem::copy("original", "WORKSPACE");
            const std::string path = std::string("WORKSPACE/") + file;
            length < 0 ? void(std::filesystem::remove(path))
                       : std::filesystem::resize_file(path, static_cast<std::uintmax_t>(length));
            std::filesystem::resize_file("UA_log.txt", 0);
            workspace_damaged = 0;
            favorites.fill(0);
            ASSERT_TRUE(open_workspace()) << file << length;
            const bool gone = length < 0 && std::string(file) == "current.spa";  // no Workspace is no damage
            const auto box = take_box();
            EXPECT_EQ(box ? box->first : LABEL_NONE, gone ? LABEL_NONE : LABEL_WORKSPACE_DAMAGED) << file << length;
            EXPECT_FALSE(take_box());
            EXPECT_EQ(favorites[9], color_scheme[SCHEME_BACKGROUND]) << file << length;
            EXPECT_TRUE(gone || logged(line) || logged("Closed a gap")) << file << length << log_text();
            EXPECT_GE(frame_count, 2);
            close_workspace();
            workspace_damaged = 0;
            ASSERT_TRUE(open_workspace());
            EXPECT_FALSE(take_box()) << "told again: " << file << length;
        }
}

TEST_F(WorkspaceTest, SidePicturesComeBackAndOneTwistedHarmsNothing) {
    make_workspace({1}, 0);
    replace_bitmap(cel_mask, make_bitmap(3, 2, 0x998877));
    *pixels_at(tip_sheet, 15, 58) = 0x010101;
    guides.cel_shape = CEL_IS_CUT_OUT;
    close_workspace();
    guides.cel_shape = CEL_IS_WHOLE;
    save_workspace_state(state_file, true);  // of a run that is killed before its Cel is on disk
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(guides.cel_shape, CEL_IS_CUT_OUT);
    EXPECT_TRUE(cel->w == 3 && cel->h == 2 && *pixels_at(cel, 2, 1) == 0x998877 &&
                *pixels_at(cel_mask, 0, 0) == 0x998877);
    EXPECT_EQ(*pixels_at(tip_sheet, 15, 58), 0x010101U);
    Bytes good;
    ASSERT_TRUE(read_file("WORKSPACE/current.cel", SIZE_MAX, good));
    for (std::size_t at = 0; at < good.size(); ++at) {
        Bytes bad = good;
        bad[at] ^= 0xff;
        ASSERT_TRUE(write_file("WORKSPACE/current.cel", bad.data(), bad.size()));
        load_side_file(workspace_folder(), SIDE_CEL, "current.");
        EXPECT_TRUE(cel->w == cel_mask->w && cel->h == cel_mask->h);
    }
}

TEST_F(WorkspaceTest, AlternateSetTakesThePlaceOfNone) {
    make_workspace({5, 6}, 1);
    for (const char* ending : {"000", "001", "spa", "cel", "nal", "tip"})
        std::filesystem::rename(std::string("WORKSPACE/current.") + ending,
                                std::string("WORKSPACE/alternate.") + ending);
    ASSERT_TRUE(save_bmp_file("WORKSPACE/current.000", make_bitmap(9, 9, 0x77).get()));  // somebody's all the same
    ASSERT_TRUE(open_workspace());
    EXPECT_TRUE(id_in_memory() == 6 && frame_index == 1 && logged("Swapping to alternate workspace"));
    EXPECT_EQ(ids_on_disk(), (Ids{5, 6}));
    EXPECT_TRUE(files_in_workspace("alternate") == 0 && files_in_workspace("unreadable.000") == 1);
    std::filesystem::copy("WORKSPACE/current.000", "WORKSPACE/alternate.007");
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(files_in_workspace("alternate"), 0);  // a Workspace that loaded needs none
}

TEST_F(WorkspaceTest, FileBrowserOpensWhereTheLastOperationLeftIt) {
    make_screen();
    make_workspace({1, 2, 3}, 0);
    const std::string home = folder_.path(), images = home + "/Images";
    std::filesystem::create_directory(images);
    std::strcpy(image_dir.data(), images.c_str());
    for (const auto& [act, after] : std::vector<std::pair<std::function<void()>, std::string>>{
             {[] { fetch_frame(0, 1); }, images},
             {[] { insert_frames(1, 1, true); }, home},
             {[] { fetch_frame(1, 1); }, home},
             {[] { fetch_frame(1, 0); }, images},
             {[] { delete_frames(1, 1); }, home},
             {[] { browse_in(Folder("/tmp")); }, "/tmp"},
             {[] { save_workspace_state(state_file, true); }, home},  // and what it found is stored
             {[] { open_workspace(); }, "/tmp"},
             {[] { clear_workspace(); }, home}}) {
        act();
        EXPECT_EQ(browse_folder().path(), after);
    }
    EXPECT_EQ(std::filesystem::current_path(), home);  // the process itself stays where it is
    image_dir.fill('\0');
    insert_frames(0, 1, true);
    save_workspace_state(state_file, true);
    open_workspace();
    EXPECT_STREQ(image_dir.data(), "") << "nobody has looked for a picture yet";
}

// ---- The user's settings -------------------------------------------------------------------------------------------

std::vector<Place> settings_places() {
    return {byte_at(1, 1, frame_pacing),
            byte_at(2, 7, sfx_volume),
            byte_at(3, 200, music_volume),
            byte_at(5, 1, opt_tool_distance),
            word_at(6, key_ctrl | 26, hotkeys[0][KEY_PRIMARY]),
            word_at(498, 105, hotkeys[61][KEY_ALTERNATE]),
            word_at(502, POWER_LOW, power_saving),
            word_at(506, REDUCTION_BEST, opt_gif_reduction),
            word_at(510, 1, opt_zoom_preview),
            word_at(514, 3, opt_zoom_preview_size),
            word_at(518, 60, opt_crosshair_strength),
            word_at(522, 0, opt_crosshair_scaling),
            word_at(526, 2, opt_crosshair_color),
            word_at(530, 0, opt_cel_masking),
            word_at(534, 9, opt_cel_tolerance),
            word_at(538, 0, opt_status_bar),
            word_at(542, 1, opt_tooltips),
            word_at(546, 1, opt_backless),
            word_at(550, 1, opt_cursor_zoom),
            word_at(554, 2, opt_mouse_speed),
            word_at(558, 1, mouse_reversed),
            word_at(562, 12, opt_undo_depth),
            word_at(566, PREVIEW_ALL, opt_file_preview),
            word_at(570, 100, opt_quick_pan_strength),
            word_at(574, 0x010203, color_scheme[0]),
            word_at(610, 0x040506, color_scheme[9])};
}

TEST_F(WorkspaceTest, SettingsFileHasItsLayoutAndItsSecondCopiesCount) {
    Bytes bytes(614, 0);
    put_places(bytes, settings_places());
    bytes[0] = 0, bytes[4] = 3;  // the first copies, which disagree
    ASSERT_TRUE(write_file("resource/user.def", bytes.data(), bytes.size()));
    load_user_settings();
    expect_places(settings_places());
    EXPECT_EQ(workspace_damaged, 0) << log_text();
    ASSERT_TRUE(save_user_settings());
    bytes[0] = 1, bytes[4] = 12;
    Bytes again;
    ASSERT_TRUE(read_file("resource/user.def", SIZE_MAX, again));
    EXPECT_EQ(again, bytes);
}

TEST_F(WorkspaceTest, KeysThatNoKeyboardHasAreUnmapped) {
    for (const int key : {1, int{key_code_max}, key_code_max + 1, 0x7f})
        for (const int modifier : {0, int{key_ctrl}, key_alt | key_shift}) {
            hotkeys[HOTKEY_UNDO][KEY_ALTERNATE] = modifier | key;
            ASSERT_TRUE(save_user_settings());
            load_user_settings();
            EXPECT_EQ(hotkeys[HOTKEY_UNDO][KEY_ALTERNATE], key <= key_code_max ? modifier | key : 0);
        }
    EXPECT_EQ(workspace_damaged, 0);
}

struct OfferCase {
    int primary, alternate;  // of FLIP ACROSS in the file; by default H
    int other;               // GET's key in it
    int given, stored;       // its primary key from then on, the alternate that the file holds next
};

TEST_F(WorkspaceTest, NewKeysReachWhoHasSettingsOnceAndTakeNoKeyAway) {
    constexpr std::size_t get_at = 6, flip_at = 6 + 44 * 8;
    constexpr int offered = 0x10000;
    constexpr OfferCase cases[] = {{0, 0, 0, KEY_H, 0},     {0, 0, KEY_H, 0, offered}, {0, offered, 0, 0, offered},
                                   {KEY_J, 0, 0, KEY_J, 0}, {0, KEY_J, 0, 0, KEY_J},   {KEY_J, offered, 0, KEY_J, 0}};
    const auto stored_alternate = [] {
        Bytes bytes;
        EXPECT_TRUE(save_user_settings() && read_file("resource/user.def", SIZE_MAX, bytes));
        return bytes.at(flip_at + 4) << 24 | bytes[flip_at + 5] << 16 | bytes[flip_at + 6] << 8 | bytes[flip_at + 7];
    };
    hand_over_commands();
    load_user_settings();
    EXPECT_EQ(hotkeys[HOTKEY_CEL_FLIP_ACROSS][KEY_PRIMARY], 0) << "without a file no key is mapped";
    EXPECT_EQ(stored_alternate(), offered) << "nor at the next start";
    for (const OfferCase& one : cases) {
        Bytes bytes(614, 0);
        put_word(bytes, get_at, one.other);
        put_word(bytes, flip_at, one.primary);
        put_word(bytes, flip_at + 4, one.alternate);
        ASSERT_TRUE(write_file("resource/user.def", bytes.data(), bytes.size()));
        load_user_settings();
        EXPECT_EQ(hotkeys[HOTKEY_CEL_FLIP_ACROSS][KEY_PRIMARY], one.given) << &one - cases;
        EXPECT_EQ(hotkeys[HOTKEY_CEL_FLIP_ACROSS][KEY_ALTERNATE], one.stored & ~offered) << &one - cases;
        EXPECT_EQ(stored_alternate(), one.stored) << &one - cases;
    }
    hotkeys[HOTKEY_CEL_FLIP_DOWN][KEY_PRIMARY] = 0;  // V, which has come the same way
    ASSERT_TRUE(save_user_settings());
    load_user_settings();
    EXPECT_EQ(hotkeys[HOTKEY_CEL_FLIP_DOWN][KEY_PRIMARY], 0) << "taken away, it stays away";
    while (take_box()) {
    }
    opt_undo_depth = undo_depth_max;
    hotkey_offered[HOTKEY_HISTORY] = false;  // as before there was one
    hotkeys[HOTKEY_HISTORY][KEY_PRIMARY] = 0;
    for (const bool is_told : {true, false}) {
        ASSERT_TRUE(save_user_settings());
        load_user_settings();
        const auto box = take_box();
        EXPECT_EQ(box && box->first == LABEL_UNDO_REACHES_ALL, is_told);
    }
}

TEST_F(WorkspaceTest, SettingsThatCantBeReadAreKeptAsideAndTheDefaultsHold) {
    constexpr int delivered = key_ctrl | 26;
    hotkeys[HOTKEY_UNDO][KEY_PRIMARY] = delivered;
    std::filesystem::create_directory("resource/user.def");
    load_user_settings();
    EXPECT_TRUE(hotkeys[HOTKEY_UNDO][KEY_PRIMARY] == delivered && workspace_damaged != 0);
    ASSERT_TRUE(save_user_settings());
    EXPECT_TRUE(std::filesystem::is_directory("resource/unreadable.def"));
    ASSERT_TRUE(write_file("resource/user.def", "", 0));
    load_user_settings();
    EXPECT_EQ(hotkeys[HOTKEY_UNDO][KEY_PRIMARY], delivered);
}

TEST_F(WorkspaceTest, SettingsMissingCutOrTwisted) {
    mouse_reversed = opt_crosshair_strength = 77;  // nothing of before a first start is left
    frame_pacing = opt_crosshair_scaling = opt_crosshair_color = 0;
    sfx_volume = music_volume = 7;
    load_user_settings();
    EXPECT_TRUE(mouse_reversed == 0 && frame_pacing == 1 && sfx_volume == 255 && music_volume == 255);
    EXPECT_TRUE(opt_crosshair_strength == 18 && opt_crosshair_scaling == 1 && opt_crosshair_color == 0xfefefe);
    EXPECT_TRUE(logged("Couldn't locate the user settings file. Assuming default settings."));
    ASSERT_TRUE(save_user_settings());
    Bytes good, now;
    ASSERT_TRUE(read_file("resource/user.def", SIZE_MAX, good));
    ASSERT_EQ(good.size(), 614U);
    for (std::size_t at = 0; at < good.size(); ++at)
        for (const bool cut : {false, true}) {
            Bytes bad(good.begin(), good.begin() + static_cast<long>(cut ? at : good.size()));
            if (!cut) bad[at] ^= 0xff;
            ASSERT_TRUE(write_file("resource/user.def", bad.data(), bad.size()));
            load_user_settings();
            EXPECT_TRUE(!cut || workspace_damaged != 0);
            ASSERT_TRUE(save_user_settings());
            workspace_damaged = 0;
            load_user_settings();  // what was written is sound
            EXPECT_EQ(workspace_damaged, 0) << at << log_text();
        }
}

}  // namespace
}  // namespace nubo
