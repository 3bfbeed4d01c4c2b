// The program as its user meets it: started, drawn with, closed, started again.
#include "journeys/program.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace nubo {

namespace {

constexpr std::uint32_t black = 0x000000, white = 0xffffff;

/// The log must hold these lines in this order; others may stand between them.
void expect_in_order(const std::vector<std::string>& log, std::initializer_list<std::string> lines) {
    auto from = log.begin();
    for (const std::string& line : lines) {
        const auto found = std::find(from, log.end(), line);
        if (found == log.end()) {
            ADD_FAILURE() << "Missing, or too early: " << line;
            continue;
        }
        from = found + 1;
    }
}

}  // namespace

TEST(Start, StrokeSurvivesTheCloseButton) {
    Journey journey('3');
    std::filesystem::create_directories(journey.path("WORKSPACE"));
    write_bmp(journey.path("WORKSPACE/current.000"), 320, 240, black);
    ASSERT_TRUE(journey.start());
    EXPECT_EQ(journey.window().width, 960);
    EXPECT_EQ(journey.window().height, 720);

    ASSERT_TRUE(journey.draw_line({60, 50}, {150, 140}, white));
    EXPECT_EQ(journey.close(), 0);
    const Photo kept = read_bmp(journey.path("WORKSPACE/current.000"));
    ASSERT_EQ(kept.width, 320);
    ASSERT_EQ(kept.height, 240);
    EXPECT_EQ(kept.at(64, 54), white);
    EXPECT_EQ(kept.at(80, 70), white);
    EXPECT_EQ(kept.at(95, 140), black);
    expect_in_order(journey.log_lines(),
                    {"[ INIT ] : Old resources swept up", "[ INIT ] : Nubo v1.3 now loading",
                     "[ INIT ] : DEFCON 1 - Standard logging", "[ INIT ] : Initialized Allegro",
                     "[ INIT ] : Requesting 960x720 windowed resolution", "[ INIT ] : Resolution accepted",
                     "[ INIT ] : Internal assets initialized", "[ INIT ] : System control hooks installed",
                     "[ INIT ] : Framework initialized", "[ INIT ] : Loaded application video resources",
                     "[ INIT ] : Interrupts installed", "[ INIT ] : All preparations complete. Entering program loop",
                     " ", "[ END ] : User has opted to exit the program.",
                     "[ END ] : Switching off handlers and locking processes.", "[ END ] : Writing workspace to file.",
                     "[ END ] : Closing log."});
    EXPECT_EQ(journey.log_lines().back(), "[ END ] : Closing log.");
    EXPECT_EQ(journey.said(), "");  // a sanitizer that met something would have spoken

    ASSERT_TRUE(journey.start());
    journey.move_to(250, 120);
    EXPECT_TRUE(journey.comes_to_show(64, 54, white));
    EXPECT_TRUE(journey.comes_to_show(80, 70, white));
    EXPECT_EQ(journey.pixel(95, 140), black);
    EXPECT_EQ(journey.close(), 0);
}

TEST(Start, SignalsOfTheSystemSaveTheWork) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        Journey journey;
        std::filesystem::create_directories(journey.path("WORKSPACE"));
        write_bmp(journey.path("WORKSPACE/current.000"), 320, 240, black);
        ASSERT_TRUE(journey.start());
        ASSERT_TRUE(journey.draw_line({60, 50}, {150, 140}, white));
        journey.program().send_signal(signal);
        EXPECT_EQ(journey.program().wait_for_exit(), 0) << "signal " << signal;
        const Photo kept = read_bmp(journey.path("WORKSPACE/current.000"));
        ASSERT_EQ(kept.width, 320) << "signal " << signal;
        EXPECT_EQ(kept.at(64, 54), white) << "signal " << signal;
    }
}

/// Starts a program that can't run: it has a window for its last words, ends when that is closed, and says the same on
/// its standard error.
void expect_last_words(Journey& journey, const std::string& words) {
    journey.launch();
    std::optional<Pane> box;
    const auto box_is_there = [&] {  // the editor's own window, of the same title, may have come before
        box = journey.desktop().find_window("Nubo v1.3");
        return box && box->width != 2 * logical_width;
    };
    ASSERT_TRUE(wait_until(box_is_there)) << words;
    EXPECT_TRUE(journey.program().is_running());
    journey.desktop().close_window(*box);
    EXPECT_EQ(journey.program().wait_for_exit(), 255) << words;
    EXPECT_NE(journey.said().find(words), std::string::npos) << journey.said();
    EXPECT_EQ(journey.log().find("Entering program loop"), std::string::npos);
}

TEST(Start, WhatItCantRunWithoutIsToldInAWindow) {
    namespace fs = std::filesystem;
    Journey journey;
    const std::string config = journey.path("config.def"), logo = journey.path("resource/N_HD_1X.RES");
    for (const std::string& file : {config, logo}) {  // a pipe in a file's place must not be waited for
        fs::rename(file, file + ".kept");
        ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
        expect_last_words(journey, file == config
                                       ? "The file CONFIG.DEF is missing."
                                       : "A critical resource file is missing. Please reinstall the program.");
        fs::rename(file + ".kept", file);
    }
    fs::rename(journey.path("resource"), journey.path("elsewhere"));
    expect_last_words(journey, "The folder \"resource\" can't be entered");
    fs::remove(config);
    expect_last_words(journey,
                      "The file CONFIG.DEF is missing. Rerun the configuration program, or reinstall the game.");
    expect_in_order(journey.log_lines(),
                    {"[ FATAL ] : Cannot locate CONFIG.DEF. Rerun configuration program, or reinstall the game!"});
}

TEST(Start, AFolderThatTakesNoFilesIsToldOfAtOnce) {
    Journey journey;
    std::filesystem::create_directories(journey.path("WORKSPACE"));
    write_bmp(journey.path("WORKSPACE/current.000"), 320, 240, black);
    rlimit own{};
    getrlimit(RLIMIT_FSIZE, &own);
    const rlimit less_than_a_frame{64 << 10, own.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);  // the program inherits both: to it the disk is full
    setrlimit(RLIMIT_FSIZE, &less_than_a_frame);
    ASSERT_TRUE(journey.start());
    setrlimit(RLIMIT_FSIZE, &own);
    EXPECT_NE(journey.log().find("can't be given room"), std::string::npos);

    journey.move_to(20, 30);
    const auto box_is_up = [&] {
        const Spot corner = journey.spot(100, 90), end = journey.spot(220, 130);
        const Photo middle = journey.desktop().photo({0, corner.x, corner.y, end.x - corner.x, end.y - corner.y});
        return std::ranges::any_of(middle.pixels, [](std::uint32_t pixel) { return pixel != black; });
    };
    EXPECT_TRUE(wait_until(box_is_up));
    journey.desktop().press_key("Escape");
    journey.desktop().release_key("Escape");
    EXPECT_TRUE(wait_until([&] { return !box_is_up(); }));
    EXPECT_TRUE(journey.draw_line({60, 50}, {150, 140}, white)) << "painting goes on";
    journey.desktop().close_window(journey.window());
    EXPECT_TRUE(wait_until([&] { return journey.said().find("couldn't be written anywhere") != std::string::npos; }));
    EXPECT_TRUE(wait_until(box_is_up)) << "by hand the program doesn't end without a second choice";
    journey.program().send_signal(SIGTERM);
    EXPECT_EQ(journey.program().wait_for_exit(), 5) << "what could not be saved is told by the exit";
    EXPECT_EQ(read_bmp(journey.path("WORKSPACE/current.000")).at(64, 54), black) << "the old file is whole";
}

TEST(Start, TheWorkIsSavedWhenTheDisplayGoes) {
    constexpr int exit_display_lost = 4;
    Journey journey;
    std::filesystem::create_directories(journey.path("WORKSPACE"));
    write_bmp(journey.path("WORKSPACE/current.000"), 320, 240, black);
    ASSERT_TRUE(journey.start());
    ASSERT_TRUE(journey.draw_line({60, 50}, {150, 140}, white));
    journey.desktop().kill_server();
    EXPECT_EQ(journey.program().wait_for_exit(), exit_display_lost);
    const Photo kept = read_bmp(journey.path("WORKSPACE/current.000"));
    ASSERT_EQ(kept.width, 320);
    EXPECT_EQ(kept.at(64, 54), white);
    EXPECT_EQ(journey.log_lines().back(), "[ END ] : Closing log.");
}

TEST(Start, AnotherStartHandsItsFilesToTheWindowThatIsOpen) {
    Journey journey;
    std::filesystem::create_directories(journey.path("WORKSPACE"));
    std::filesystem::create_directories(journey.path("pictures"));
    write_bmp(journey.path("WORKSPACE/current.000"), 320, 240, black);
    write_bmp(journey.path("pictures/white.bmp"), 320, 240, white);
    ASSERT_TRUE(journey.start());
    Process second({{journey.path("nubo"), "white.bmp"}, journey.path("pictures"), journey.path("second.txt"), {}});
    EXPECT_EQ(second.wait_for_exit(), 0);
    EXPECT_TRUE(journey.comes_to_show(64, 54, white));
    EXPECT_EQ(journey.close(), 0);
    EXPECT_EQ(read_bmp(journey.path("WORKSPACE/current.001")).at(64, 54), white);
    EXPECT_FALSE(std::filesystem::exists(journey.path("pictures/UA_log.txt")));
}

TEST(Start, FilesThatAStuckProgramDoesntTakeAreNamed) {
    Journey journey;
    ASSERT_TRUE(journey.start());
    journey.program().send_signal(SIGSTOP);
    std::vector<std::string> command{journey.path("nubo")};
    for (int i = 0; i < 12; ++i) {  // more than the system keeps for it
        command.emplace_back();
        for (int part = 0; part < 250; ++part) command.back() += "/" + std::string(200, 'd');
        command.back() += "/last" + std::to_string(i) + ".png";
    }
    const std::string said = journey.path("second.txt");
    Process second({command, journey.folder(), said, {{"DISPLAY", journey.desktop().name()}}});
    const auto names_it = [&] {
        std::ifstream file(said);
        const std::string words{std::istreambuf_iterator<char>(file), {}};
        return words.find(".png") != std::string::npos && words.find("not opened") != std::string::npos;
    };
    EXPECT_TRUE(wait_until(names_it));
    journey.program().send_signal(SIGCONT);
}

TEST(Start, TheWindowIsAsLargeAsConfiguredOrAsTheDesktopAllows) {
    struct Case {
        char mode;
        int screen_width, screen_height, width;
    };
    // 1280x960 falls back to 960x720 and that to 640x480, by what fits; a byte that is no mode is a 640x480 window.
    for (const Case& one : {Case{'2', 1400, 1050, 640}, Case{'4', 1400, 1050, 1280}, Case{'4', 1024, 768, 960},
                            Case{'4', 800, 600, 640}, Case{'x', 1400, 1050, 640}}) {
        Journey journey(one.mode, one.screen_width, one.screen_height);
        ASSERT_TRUE(journey.start()) << one.mode << " on " << one.screen_width;
        EXPECT_EQ(journey.window().width, one.width) << one.mode << " on " << one.screen_width;
        EXPECT_EQ(journey.window().height, one.width * 3 / 4) << one.mode << " on " << one.screen_width;
        EXPECT_EQ(journey.desktop().class_of(journey.window()), "nubo Nubo") << "as nubo.desktop names it";
        EXPECT_EQ(journey.desktop().icon_sides(journey.window()),
                  (std::vector<unsigned long>{16, 24, 32, 48, 64, 128}));
        EXPECT_EQ(journey.close(), 0);
    }
}

}  // namespace nubo
