// Archives, to the byte and back, and what becomes of bent ones, of full disks and of the Workspace that goes. A kill
// at each step stands in interruption_test.cpp.
#include "workspace/archive.h"
#include "workspace/previous.h"
#include "workspace/replace.h"

#include "gui/present.h"
#include "harness/user.h"
#include "platform/faults.h"
#include "state/flow.h"
#include "state/gui.h"
#include "state/messages.h"
#include "state/status.h"
#include "state/view.h"
#include "workspace/archive_file.h"
#include "workspace/notices.h"
#include "workspace/pack.h"
#include "workspace/rescue.h"
#include "workspace/state_fields.h"
#include "workspace/workspace_kit.h"

#include <atomic>
#include <sys/stat.h>

namespace nubo {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

void put(const char* name, const std::string& bytes) { std::ofstream(name, std::ios::binary) << bytes; }

std::string number(std::size_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift);
    return bytes;
}

std::string component(const std::string& bytes) { return number(bytes.size()) + bytes; }

/// A picture of one pixel, as another program would write it: 54 bytes of head, blue, green, red and one of padding.
std::string one_pixel(int blue, int green, int red) {
    std::string bytes("BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0\4\0\0\0", 38);
    bytes.resize(54);
    for (const int part : {blue, green, red, 0}) bytes += static_cast<char>(part);
    return bytes;
}

std::string packed_state() {
    const std::vector<std::uint8_t> bytes = pack_state();
    return {bytes.begin(), bytes.end()};
}

class ArchiveTest : public WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        make_screen();
    }

    static Files workspace_files() {
        Files files;
        for (const auto& entry : fs::directory_iterator("WORKSPACE"))
            files[entry.path().filename()] = bytes_of(entry.path());
        return files;
    }

    /// Two Frames of one pixel each, by hand.
    static std::string small_archive(const std::string& state) {
        return std::string("nWSP\5CITYX\0", 11) + number(2) + component(one_pixel(1, 2, 3)) +
               component(one_pixel(0, 0, 9)) + component(one_pixel(7, 7, 7)) + component(one_pixel(4, 4, 4)) +
               component(one_pixel(5, 5, 5)) + component(state);
    }
};

TEST_F(ArchiveTest, IsTheHeadAndTheFilesBehindOneAnother) {
    make_workspace({7, 8}, 1);
    std::strcpy(workspace_title.data(), "AB");
    workspace_notes[0] = '\0';
    ASSERT_TRUE(save_workspace_state(state_file, false));
    ASSERT_EQ(save_workspace_archive("a.wsp"), 0);
    std::string expected("nWSP\2AB\0\0\0\0\2", 12);
    for (const char* ending : {"000", "001", "cel", "nal", "tip", "spa"})
        expected += component(bytes_of(std::string("WORKSPACE/current.") + ending));
    const std::string bytes = bytes_of("a.wsp");
    EXPECT_EQ(bytes.substr(12, 4), std::string("\0\0\x1d\xe6", 4));  // 54 + 50 rows of 152 bytes
    EXPECT_TRUE(bytes == expected);
    EXPECT_EQ(browse_folder().path(), workspace_folder().path());
}

TEST_F(ArchiveTest, OneWrittenByHandIsReadAndItsCountOfFramesWins) {
    make_workspace({1, 2, 3}, 2);
    frame_count = 9;
    frame_index = 1;
    std::strcpy(workspace_title.data(), "OF THE STATE");
    std::strcpy(image_dir.data(), "/not/on/this/machine");
    put("a.wsp", small_archive(packed_state()));
    ASSERT_TRUE(open_workspace());
    paint(33);
    ASSERT_EQ(load_workspace_archive("a.wsp"), 0);
    EXPECT_EQ(frame_count, 2);
    EXPECT_EQ(frame_index, 1);
    EXPECT_EQ(id_in_memory(), 0x090000);
    EXPECT_EQ(ids_on_disk(), (Ids{0x030201, 0x090000}));
    EXPECT_STREQ(workspace_title.data(), "OF THE STATE");
    EXPECT_EQ(*pixels_at(cel_mask, 0, 0), 0x070707u);
    EXPECT_EQ(*pixels_at(tip_sheet, 0, custom_tip_y), 0x050505u);
    EXPECT_EQ(*pixels_at(original_frame, 0, 0), 0x090000u) << "what RESTORE leads to";
    EXPECT_EQ(take_box(), std::nullopt);
}

TEST_F(ArchiveTest, BringsEveryFileBackAndTheOneThatWentIsWhole) {
    make_workspace({1, 2, 3}, 1);
    ASSERT_TRUE(save_workspace_state(state_file, false));
    const Files three = workspace_files();
    ASSERT_EQ(save_workspace_archive("three.wsp"), 0);
    make_workspace({11, 12, 13, 14, 15, 16, 17, 18, 19, 20}, 4);
    paint(99);  // on no disk yet
    ASSERT_EQ(load_workspace_archive("three.wsp"), 0);
    fs::remove("WORKSPACE/arrived.sum");
    EXPECT_TRUE(workspace_files() == three);
    EXPECT_EQ(id_in_memory(), 2);
    EXPECT_EQ(frame_view[2].pan_x, 3);
    paint(77);
    ASSERT_EQ(load_workspace_archive(previous_workspace_file()), 0);
    EXPECT_EQ(ids_on_disk(), (Ids{11, 12, 13, 14, 99, 16, 17, 18, 19, 20}));
    EXPECT_EQ(frame_index, 4);
    ASSERT_EQ(load_workspace_archive(previous_workspace_file()), 0);
    EXPECT_EQ(ids_on_disk(), (Ids{1, 77, 3}));
    EXPECT_TRUE(open_workspace());
    EXPECT_EQ(id_in_memory(), 77);
}

TEST_F(ArchiveTest, EveryCutAndManyTwistsAreRefusedOrWhole) {
    make_workspace({1, 2, 3}, 1);
    replace_bitmap(nail_sheet, make_bitmap(nail_tile, nail_tile));  // little to write, two thousand times
    const std::string whole = small_archive(packed_state());
    ArchiveContents contents;
    for (std::size_t size = 0; size < whole.size(); ++size) {
        put("cut.wsp", whole.substr(0, size));
        ASSERT_NE(read_archive(InputFile("cut.wsp"), contents), nullptr) << size;
    }
    put("cut.wsp", whole + "x");
    const Files before = workspace_files();
    EXPECT_EQ(load_workspace_archive("cut.wsp"), -1);
    EXPECT_TRUE(logged("[ ERROR ] : Workspace packfile appears to be corrupt. Aborting load!"));
    EXPECT_TRUE(workspace_files() == before);
    EXPECT_EQ(id_in_memory(), 2);
    std::mt19937 random(1);
    const std::size_t frames_end = 200;  // half of the twists hit the lengths and the pictures
    for (int i = 0; i < 2000; ++i) {
        std::string twisted = whole;
        twisted[random() % (i % 2 ? frames_end : whole.size())] ^= static_cast<char>(1 + random() % 255);
        put("twisted.wsp", twisted);
        const Files old = workspace_files();
        const int old_id = id_in_memory();
        if (load_workspace_archive("twisted.wsp") == -1) {
            ASSERT_TRUE(workspace_files() == old) << i;
            ASSERT_EQ(id_in_memory(), old_id) << i;
        } else {
            ASSERT_EQ(count_frame_files(), frame_count) << i;
            ASSERT_EQ(bytes_of("WORKSPACE/current.001").size(), 58u) << i;
        }
    }
}

TEST_F(ArchiveTest, HoldsAFrameAtLeastAndAHundredAtMost) {
    for (const int count : {0, 1, frame_slots, frame_slots + 1}) {
        std::string bytes = std::string("nWSP\0\0", 6) + number(static_cast<std::size_t>(count));
        for (int i = 0; i < count + 4; ++i) bytes += component(one_pixel(1, 2, 3));
        put("a.wsp", bytes);
        ArchiveContents contents;
        const char* const refusal = read_archive(InputFile("a.wsp"), contents);
        EXPECT_EQ(refusal == nullptr, count == 1 || count == frame_slots) << count;
        EXPECT_TRUE(refusal == nullptr || std::string(refusal).find("frames is out of range") != std::string::npos);
    }
}

TEST_F(ArchiveTest, OnAFullDiskAllStaysAsItIs) {
    make_workspace({6, 7}, 0);
    ASSERT_EQ(save_workspace_archive("other.wsp"), 0);
    put("mine.wsp", "precious");
    int refused = 0;
    for (const auto call : {faults::CALL_OPEN, faults::CALL_WRITE, faults::CALL_FSYNC, faults::CALL_RENAME})
        for (int n = 0, struck = 1; struck != 0; ++n) {
            faults::arm(call, n, ENOSPC, true);
            const int saved = save_workspace_archive("mine.wsp");
            struck = faults::struck();
            faults::disarm();
            ASSERT_TRUE(saved == 0 || struck) << call << ' ' << n;
            ASSERT_EQ(bytes_of("mine.wsp") == "precious", saved == -1) << call << ' ' << n;
            put("mine.wsp", "precious");
        }
    for (const auto call : {faults::CALL_WRITE, faults::CALL_RENAME})
        for (int n = 0;; ++n) {
            make_workspace({1, 2, 3}, 1);
            put("previous.wsp", "older");
            paint(33 + n);
            faults::arm(call, n, ENOSPC, true);
            const int loaded = load_workspace_archive("other.wsp");
            faults::disarm();
            if (loaded == 0) break;
            ++refused;
            ASSERT_EQ(id_in_memory(), 33 + n) << call;
            ASSERT_TRUE(save_workspace_state(state_file, false));  // the disk is well again
            ASSERT_TRUE(bytes_of("previous.wsp") == "older") << call << ' ' << n;
            ASSERT_EQ(ids_on_disk(), (Ids{1, 33 + n, 3})) << call << ' ' << n;
        }
    EXPECT_GT(refused, 10);
}

// ---- What is put away ---------------------------------------------------------------------------------------------

/// The current Frame of each archive that is kept, the newest first.
Ids kept_ids() {
    Ids ids;
    for (const PreviousWorkspace& kept : list_previous_workspaces()) {
        ArchiveContents contents;
        const InputFile file(kept.path);
        EXPECT_EQ(read_archive(file, contents), nullptr);
        std::uint8_t blue = 0;  // behind a head of 54 bytes
        EXPECT_TRUE(file.read_at(contents.parts[0].at + 54, &blue, 1));
        ids.push_back(blue);
    }
    return ids;
}

TEST_F(ArchiveTest, TheLastFiveThatChangedAreKept) {
    make_workspace({1}, 0);
    for (int id = 1; id <= 7; ++id) {
        paint(id);
        ASSERT_TRUE(clear_workspace() && last_one_was_put_away());
        ASSERT_TRUE(clear_workspace() && !last_one_was_put_away()) << "a blank one";
    }
    EXPECT_EQ(kept_ids(), (Ids{7, 6, 5, 4, 3}));
    paint(8);
    std::strcpy(workspace_title.data(), "EIGHT");
    ASSERT_EQ(load_workspace_archive("previous-5.wsp"), 0);
    EXPECT_EQ(kept_ids(), (Ids{8, 7, 6, 5, 4}));
    EXPECT_EQ(list_previous_workspaces()[0].title, "EIGHT");
    ASSERT_EQ(load_workspace_archive("previous-3.wsp"), 0);
    EXPECT_EQ(kept_ids(), (Ids{3, 8, 7, 6, 5})) << "its archive has gone with the load, the only one that there was";
    ASSERT_EQ(load_workspace_archive("previous-2.wsp"), 0);
    EXPECT_EQ(kept_ids(), (Ids{3, 8, 7, 6, 5})) << "6 is still there, if under another name";
    EXPECT_EQ(id_in_memory(), 8);
}

TEST_F(ArchiveTest, WhatHasChangedSinceItCameIsPutAwayAndNothingElse) {
    constexpr void (*nothing[])() = {[] {}, [] { fetch_frame(0, 1); },
                                     [] { EXPECT_TRUE(close_workspace() == WORKSPACE_KEPT && open_workspace()); },
                                     [] {
                                         pan_x = 3;
                                         tool_slots[0] = TOOL_OVAL;
                                     }};
    constexpr void (*changes[])() = {
        [] { paint(9); },
        [] {
            EXPECT_TRUE(fetch_frame(0, 1));
            paint(9);
            EXPECT_TRUE(fetch_frame(1, 0));
        },
        [] { insert_frames(1, 1, true); },
        [] { clear_to_color(cel_mask, 5); },
        [] { putpixel(tip_sheet, 3, custom_tip_y + 3, 0xffffff); },
        [] { color_slots[9] ^= 1; },
        [] { favorites[200] ^= 1; },
        [] { spectrum_end ^= 1; },
        [] { std::strcpy(workspace_notes.data(), "MINE"); },
        [] { std::strcpy(text_tool_text.data(), "MINE"); },
        [] { fs::remove("a.wsp"); },  // it is all that there is of it now
    };
    const auto loads = [this](auto change) {
        make_workspace({1, 2}, 0);
        EXPECT_EQ(save_workspace_archive("a.wsp"), 0);
        EXPECT_EQ(load_workspace_archive("a.wsp"), 0);
        change();
        EXPECT_TRUE(clear_workspace());
        return last_one_was_put_away();
    };
    for (const auto& change : nothing) EXPECT_FALSE(loads(change)) << &change - nothing;
    for (const auto& change : changes) EXPECT_TRUE(loads(change)) << &change - changes;
}

TEST_F(ArchiveTest, TheOldestGoesWhereRoomLacks) {
    for (int n = 0;; ++n) {
        make_workspace({1, 2}, 0);
        for (const char* name : {"previous.wsp", "previous-2.wsp", "previous-3.wsp"}) put(name, name);
        fs::remove("previous-4.wsp");
        faults::arm(faults::CALL_OPEN, n, ENOSPC);
        const bool cleared = clear_workspace(), struck = faults::struck();
        faults::disarm();
        ASSERT_TRUE(struck) << "no call asks for room";
        if (!cleared || fs::exists("previous-4.wsp")) continue;
        EXPECT_EQ(bytes_of("previous-2.wsp") + bytes_of("previous-3.wsp"), "previous.wspprevious-2.wsp");
        break;
    }
}

TEST_F(ArchiveTest, AFrameThatHasVanishedIsReplacedAndNamed) {
    make_workspace({1, 2, 3}, 0);
    put("a.wsp", "precious");
    fs::remove("WORKSPACE/current.000");
    paint(11);
    EXPECT_TRUE(archive_workspace("b.wsp"));
    EXPECT_EQ(missing_frames_told(), "FRAME 00 WAS MISSING, WRITTEN ANEW");
    fs::remove("WORKSPACE/current.002");
    EXPECT_FALSE(archive_workspace("a.wsp"));
    EXPECT_STREQ(told_text.data(), "NOT SAVED: FRAME 02 WAS MISSING, NOW BLANK");
    EXPECT_EQ(bytes_of("a.wsp"), "precious");
    EXPECT_TRUE(archive_workspace("a.wsp"));
    EXPECT_EQ(ids_on_disk(), (Ids{11, 2, 0}));
    for (const bool loads : {true, false}) {
        fs::remove("WORKSPACE/current.001");
        EXPECT_TRUE(loads ? load_workspace_archive("b.wsp") == 0 : clear_workspace());
        EXPECT_EQ(missing_frames_told(), "FRAME 01 WAS MISSING, NOW BLANK");
    }
    make_workspace({1, 2, 3}, 0);
    fs::remove("WORKSPACE/current.001");
    fs::create_directory("WORKSPACE/current.001");
    EXPECT_FALSE(archive_workspace("a.wsp"));
    EXPECT_STREQ(told_text.data(), "THE WORKSPACE COULD NOT BE SAVED! FRAME 01 CAN'T BE READ");
    EXPECT_FALSE(clear_workspace());
    EXPECT_STREQ(told_text.data(), "NOTHING CLEARED: FRAME 01 CAN'T BE READ");
}

TEST_F(ArchiveTest, AStartWithADamagedRowTellsOfTheOneBefore) {
    for (const bool whole : {true, false}) {
        make_workspace({1, 2, 3}, 0);
        ASSERT_TRUE(clear_workspace());
        workspace_damaged = pending_box_count = 0;
        if (!whole) put("previous.wsp", "nWSP");
        fs::remove("WORKSPACE/current.000");
        fs::remove("WORKSPACE/current.cel");
        ASSERT_TRUE(open_workspace());
        const auto first = take_box(), second = take_box();
        ASSERT_TRUE(first.has_value());
        EXPECT_EQ(first->first, LABEL_WORKSPACE_DAMAGED);
        EXPECT_EQ(second.has_value() && second->first == LABEL_PREVIOUS_IS_WHOLE, whole);
    }
}

/// A disk that is ready only when a picture was shown meanwhile.
std::atomic<int> disk_waits, frozen_waits;
int wait_for_picture(int) {
    const int before = frames_shown;
    for (int tries = 0; tries < 2000 && frames_shown == before; ++tries) usleep(1000);
    ++disk_waits;
    if (frames_shown == before) ++frozen_waits;
    return 0;
}
int wait_with_large_file(int file) {
    struct stat status {};
    return fstat(file, &status) == 0 && status.st_size > 1'000'000 ? wait_for_picture(file) : 0;
}

TEST_F(ArchiveTest, ThePictureGoesOnWhileTheDiskIsWaitedFor) {
    make_workspace({1, 2}, 0);
    ASSERT_TRUE(take_as_changed(make_bitmap(800, 600)));
    system_calls.fsync = wait_with_large_file;
    ASSERT_TRUE(archive_workspace("a.wsp"));
    EXPECT_EQ(disk_waits, 2) << "for the Frame and for the archive";
    system_calls.syncfs = wait_for_picture;
    ASSERT_EQ(load_workspace_archive("a.wsp"), 0);
    EXPECT_EQ(frozen_waits, 0);
}

TEST_F(ArchiveTest, NoRescueOfTheFrameThatGoesOutlivesIt) {
    make_workspace({6, 7}, 0);
    ASSERT_EQ(save_workspace_archive("other.wsp"), 0);
    make_workspace({1, 2}, 0);
    fs::copy("WORKSPACE/current.000", "WORKSPACE/rescue.001");  // one that came from somewhere
    autosave_tick(false);
    set_present_hook([] {
        UA_clock_ticks += 500 * rescue_seconds;  // at each picture one is due
        paint(30 + static_cast<int>(UA_clock_ticks) % 7);
        EXPECT_FALSE(fs::exists("WORKSPACE/rescue.000"));
    });
    ASSERT_EQ(load_workspace_archive("other.wsp"), 0);
    EXPECT_EQ(ids_on_disk(), (Ids{6, 7}));
    settle_rescue();
    EXPECT_EQ(files_in_workspace("rescue"), 0);
    set_present_hook(nullptr);
    ASSERT_TRUE(open_workspace());
    EXPECT_EQ(id_in_memory(), 6);
}

TEST_F(ArchiveTest, WhatIsBentBesideTheFramesIsRepairedAndTold) {
    make_workspace({1}, 0);
    const std::string frames = std::string("nWSP\2AB\0\0\0\0\1", 12) + component(one_pixel(1, 2, 3));
    put("a.wsp", frames + component("") + component("no picture") + component(one_pixel(5, 5, 5)) + component("x"));
    ASSERT_EQ(load_workspace_archive("a.wsp"), 0);
    EXPECT_EQ(id_in_memory(), 0x030201);
    EXPECT_EQ(cel_mask->w, 16);
    EXPECT_STREQ(workspace_title.data(), "AB") << "the head's, where the state has none";
    EXPECT_TRUE(logged("[ INFO ] : Cel container repaired") && logged("[ INFO ] : Nail container repaired"));
    EXPECT_FALSE(logged("[ INFO ] : Custom tip container repaired"));
    const auto box = take_box();
    ASSERT_TRUE(box.has_value());
    EXPECT_EQ(box->first, LABEL_WORKSPACE_DAMAGED);
    EXPECT_EQ(load_workspace_archive("none.wsp"), -1);
    EXPECT_TRUE(logged("[ ERROR ] : Workspace archive is missing or corrupt! Aborting load!"));
    std::string vast("BM\0\0\0\0\0\0\0\0\x36\4\0\0\x28\0\0\0\x30\x75\0\0\x30\x75\0\0\1\0\x08\0\1\0\0\0", 34);
    vast.resize(1082);  // 30000 by 30000 pixels, packed in four bytes behind the palette
    for (const std::string& frame : {std::string("no picture"), vast}) {
        put("b.wsp", std::string("nWSP\0\0\0\0\0\1", 10) + component(frame) + component("") + component("") +
                         component("") + component(packed_state()));
        EXPECT_EQ(load_workspace_archive("b.wsp"), -1) << "a Frame that is none";
    }
    EXPECT_EQ(id_in_memory(), 0x030201);
}

}  // namespace
}  // namespace nubo
