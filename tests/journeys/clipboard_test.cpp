// The clipboard between the program and others on its desktop: a common tool, and peers that stall, die and ask too
// much.
#include "journeys/peer.h"
#include "journeys/program.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace nubo {

namespace {

namespace fs = std::filesystem;
constexpr std::uint32_t black = 0x000000, white = 0xffffff, orange = 0xff8000;
constexpr int wide = 2400, high = 1800;  // a picture that no program gives in one piece

class Clipboard : public testing::Test {
protected:
    void begin_with(int width, int height, std::uint32_t color) {
        fs::create_directories(journey.path("WORKSPACE"));
        write_bmp(journey.path("WORKSPACE/current.000"), width, height, color);
        ASSERT_TRUE(journey.start());
    }
    void tap_with_ctrl(const char* key) {
        for (const char* down : {"Control_L", key}) desktop.press_key(down);
        for (const char* up : {key, "Control_L"}) desktop.release_key(up);
    }
    Process tool(const std::vector<std::string>& words, const std::string& output) const {
        std::vector<std::string> command{"xclip", "-selection", "clipboard"};
        command.insert(command.end(), words.begin(), words.end());
        return Process({command, journey.folder(), output, {{"DISPLAY", desktop.name()}}});
    }
    template <typename Act> bool another_owns_after(Act act) {
        const Peer peer(desktop.name());
        const auto before = peer.owner_of("CLIPBOARD");
        act();
        return wait_until([&] {
            const auto now = peer.owner_of("CLIPBOARD");
            return now != before && now != XCB_NONE;
        });
    }
    void there_is(const std::string& kind, const std::string& path) {
        // The tool goes on in the background, and may take the clipboard only then.
        EXPECT_TRUE(another_owns_after([&] { tool({"-t", kind, "-i", path}, "/dev/null").wait_for_exit(); }));
    }
    /// What the tool gets out of the clipboard, as a file.
    std::string fetch_by_tool(const std::string& kind) {
        const std::string path = journey.path("fetched");
        fs::remove(path);
        EXPECT_EQ(tool({"-t", kind, "-o"}, path).wait_for_exit(), 0);
        return path;
    }
    void copy_in_program() {
        ASSERT_TRUE(another_owns_after([this] { tap_with_ctrl("c"); }));
    }
    /// Closes the program and gives what the Frame has become.
    Photo close_and_look() {
        EXPECT_EQ(journey.close(), 0);
        EXPECT_EQ(journey.said(), "");
        return read_bmp(journey.path("WORKSPACE/current.000"));
    }

    Journey journey;
    Desktop& desktop = journey.desktop();
};

bool is_all(const Photo& photo, int width, int height, std::uint32_t color) {
    const bool fits = photo.width == width && photo.height == height;
    return fits && std::ranges::all_of(photo.pixels, [&](std::uint32_t pixel) { return pixel == color; });
}

}  // namespace

TEST_F(Clipboard, PicturesComeInFromAnotherProgram) {
    begin_with(logical_width, logical_height, black);
    const std::string small = journey.path("small.bmp"), large = journey.path("large.bmp");
    write_bmp(small, logical_width, logical_height, orange);
    write_bmp(large, wide, high, white);
    there_is("image/bmp", small);
    tap_with_ctrl("v");
    EXPECT_TRUE(journey.comes_to_show(50, 50, orange));
    there_is("image/bmp", large);
    tap_with_ctrl("v");
    const Spot okay{91, 134};  // of the question whether the Frame shall grow
    EXPECT_TRUE(wait_until([&] { return journey.pixel(okay.x, okay.y) != orange; }));
    journey.move_to(okay.x, okay.y);
    desktop.click(MOUSE_LEFT);
    EXPECT_TRUE(journey.comes_to_show(50, 50, white));
    EXPECT_TRUE(is_all(close_and_look(), wide, high, white));
}

TEST_F(Clipboard, PicturesGoOutSmallAndLargeToSeveralAtOnce) {
    begin_with(wide, high, orange);
    copy_in_program();
    const std::string kinds = fetch_by_tool("TARGETS");
    std::ifstream list(kinds);
    const std::string text{std::istreambuf_iterator<char>(list), {}};
    for (const char* kind : {"TARGETS", "MULTIPLE", "TIMESTAMP", "SAVE_TARGETS", "image/png", "image/bmp"})
        EXPECT_NE(text.find(kind), std::string::npos) << kind;

    Peer dying(desktop.name()), silent(desktop.name());
    ASSERT_TRUE(dying.begin_to_fetch("image/bmp"));
    dying.die();
    ASSERT_TRUE(silent.begin_to_fetch("image/bmp"));
    const std::string first = journey.path("first"), second = journey.path("second");
    Process one = tool({"-t", "image/bmp", "-o"}, first), other = tool({"-t", "image/bmp", "-o"}, second);
    EXPECT_EQ(one.wait_for_exit(), 0);
    EXPECT_EQ(other.wait_for_exit(), 0);
    for (const std::string& path : {first, second}) EXPECT_TRUE(is_all(read_bmp(path), wide, high, orange)) << path;
    const std::string png = fetch_by_tool("image/png");
    EXPECT_GT(fs::file_size(png), 100U);

    // What another program takes over is gone here, and refused to whoever still asks.
    write_bmp(journey.path("small.bmp"), 3, 2, white);
    there_is("image/bmp", journey.path("small.bmp"));
    EXPECT_TRUE(is_all(read_bmp(fetch_by_tool("image/bmp")), 3, 2, white));
    EXPECT_TRUE(is_all(close_and_look(), wide, high, orange));
}

TEST_F(Clipboard, OwnersThatStallOrDieLeaveTheProgramAsItWas) {
    begin_with(logical_width, logical_height, black);
    enum Fault {
        SAYS_NOTHING,
        DIES_WHEN_ASKED,
        STOPS_BETWEEN_PIECES,
        DIES_BETWEEN_PIECES,
        GIVES_RUBBISH,
        IS_TOO_LARGE
    };
    for (const Fault fault :
         {SAYS_NOTHING, DIES_WHEN_ASKED, STOPS_BETWEEN_PIECES, DIES_BETWEEN_PIECES, GIVES_RUBBISH, IS_TOO_LARGE}) {
        Peer owner(desktop.name());
        bool asked = false, dies = false;
        owner.on_request = [&](const Peer::Request& request) {
            asked = true;
            if (fault == SAYS_NOTHING) return;
            if (request.target == owner.atom("TARGETS")) return owner.give_kinds(request, {"image/png"});
            dies = dies || fault == DIES_WHEN_ASKED;
            if (fault == GIVES_RUBBISH) owner.give(request, "image/png", "This is no picture.");
            if (fault == IS_TOO_LARGE) owner.begin_pieces(request, 0x7fffffff);
            if (fault == STOPS_BETWEEN_PIECES || fault == DIES_BETWEEN_PIECES) owner.begin_pieces(request, 2'000'000);
        };
        bool gave = false;
        owner.on_read = [&](xcb_window_t asker, xcb_atom_t property) {
            if (!gave) owner.put(asker, property, "image/png", std::string(100'000, 'x'));
            gave = true;
        };
        owner.own("CLIPBOARD");
        std::size_t log_before = 0;
        EXPECT_TRUE(wait_until([&, quiet = 0]() mutable {  // the paste before may have more than one line to say
            constexpr int looks = 25;
            const std::size_t now = journey.log().size();
            quiet = now == log_before ? quiet + 1 : 0;
            log_before = now;
            return quiet > looks;
        }));
        tap_with_ctrl("v");
        const bool told = wait_until([&] {
            owner.serve();
            if (dies || (gave && fault == DIES_BETWEEN_PIECES)) owner.die();
            return journey.log().find("clipboard", log_before) != std::string::npos;
        });
        EXPECT_TRUE(asked) << fault;
        EXPECT_TRUE(told) << fault;
        if (fault == STOPS_BETWEEN_PIECES || fault == DIES_BETWEEN_PIECES) {
            EXPECT_TRUE(gave) << fault;
        }
    }
    ASSERT_TRUE(journey.draw_line({60, 50}, {150, 140}, white));
    const Photo frame = close_and_look();
    EXPECT_EQ(frame.at(64, 54), white);
    EXPECT_EQ(frame.at(200, 54), black);
}

TEST_F(Clipboard, AnOwnerThatTakesItsTimeIsWaitedForUntilTheUserLeaves) {
    begin_with(logical_width, logical_height, black);
    write_bmp(journey.path("late.bmp"), logical_width, logical_height, orange);
    std::ifstream file(journey.path("late.bmp"), std::ios::binary);
    const std::string picture{std::istreambuf_iterator<char>(file), {}};
    Peer owner(desktop.name());
    std::optional<Peer::Request> asked;
    owner.on_request = [&](const Peer::Request& request) {
        if (request.target == owner.atom("TARGETS"))
            owner.give_kinds(request, {"image/bmp"});
        else
            asked = request;
    };
    owner.own("CLIPBOARD");
    const auto is_asked_for = [&] {
        asked.reset();
        tap_with_ctrl("v");
        return wait_until([&] { return owner.serve(), asked.has_value(); });
    };
    ASSERT_TRUE(is_asked_for());
    desktop.press_key("Escape");
    desktop.release_key("Escape");
    ASSERT_TRUE(journey.draw_line({60, 50}, {150, 140}, white)) << "the user has left";
    ASSERT_TRUE(is_asked_for());
    constexpr Milliseconds making_a_large_picture(3000);
    EXPECT_FALSE(
        wait_until([&] { return journey.log().find("[ WARNING ]") != std::string::npos; }, making_a_large_picture));
    owner.give(*asked, "image/bmp", picture);
    EXPECT_TRUE(journey.comes_to_show(64, 54, orange));
}

TEST_F(Clipboard, APictureOutlivesTheProgramWithAManager) {
    begin_with(logical_width, logical_height, orange);
    copy_in_program();
    Peer manager(desktop.name());
    std::string kept;
    manager.on_request = [&](const Peer::Request& request) {
        if (request.selection == manager.atom("CLIPBOARD_MANAGER")) {
            kept = manager.fetch("image/png").value_or("");
            manager.own("CLIPBOARD");
            manager.give(request, "NULL", "");
        } else if (request.target == manager.atom("TARGETS")) {
            manager.give_kinds(request, {"image/png"});
        } else {
            manager.give(request, "image/png", kept);
        }
    };
    manager.own("CLIPBOARD_MANAGER");
    desktop.close_window(journey.window());
    EXPECT_TRUE(wait_until([&] { return manager.serve(), !journey.program().is_running(); }));
    EXPECT_EQ(journey.program().wait_for_exit(), 0);
    ASSERT_NE(kept, "");

    begin_with(logical_width, logical_height, black);
    tap_with_ctrl("v");
    EXPECT_TRUE(wait_until([&] { return manager.serve(), journey.pixel(50, 50) == orange; }));

    // A manager that never answers holds up the end for a few seconds at most.
    copy_in_program();
    manager.on_request = [](const Peer::Request&) {};
    EXPECT_TRUE(is_all(close_and_look(), logical_width, logical_height, orange));
}

TEST_F(Clipboard, ThousandsOfAsksLeaveNothingBehind) {
    begin_with(logical_width, logical_height, orange);
    const auto pages = [this] {
        std::ifstream status("/proc/" + std::to_string(journey.program().id()) + "/statm");
        long whole = 0, resident = 0;
        status >> whole >> resident;
        return resident;
    };
    copy_in_program();
    Peer peer(desktop.name());
    const auto ask = [&](int times) {
        for (int i = 0; i < times; ++i) EXPECT_GT(peer.fetch("image/bmp").value_or("").size(), 200'000U);
    };
    ask(50);
    const long before = pages();
    ask(1000);
    constexpr long pages_of_a_mebibyte = 256;
    EXPECT_LT(pages() - before, pages_of_a_mebibyte);
    desktop.kill_server();
    peer.die();
    constexpr int exit_display_lost = 4;
    EXPECT_EQ(journey.program().wait_for_exit(), exit_display_lost);
    EXPECT_TRUE(is_all(read_bmp(journey.path("WORKSPACE/current.000")), logical_width, logical_height, orange));
}

}  // namespace nubo
