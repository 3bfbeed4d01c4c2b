#include "base/log.h"

#include "harness/harness.h"

#include <thread>

namespace nubo {
namespace {

TEST(Log, WritesEachConversionAndNothingForAnUnknownOne) {
    const ScratchFolder folder;
    UA_log_open();
    UA_log("%s|%S|%d|%D|%f|%F|%%", "text", "%d", -2147483647 - 1, 7, 0.5, -1e6 / 3);
    UA_log("%q");
    UA_log("%5d%x%s", "next");  // neither the width nor %x takes an argument
    UA_log("cut %");
    UA_log("");
    EXPECT_EQ(log_text(), "text|%d|-2147483648|7|0.500000|-333333.333333|%\n\ndnext\ncut \n\n");
}

TEST(Log, BeginsAnewEachRunAndGoesOnWhenOpenedAgain) {
    const ScratchFolder folder;
    std::ofstream("UA_log.txt") << "the run before\n";
    UA_log_reset();
    UA_log_open();
    UA_log("one");
    UA_log_close();
    UA_log_open();
    UA_log("two");
    EXPECT_EQ(log_text(), "one\ntwo\n");
    UA_log_close();
    UA_log_reset();
    EXPECT_FALSE(std::filesystem::exists("UA_log.txt"));
}

TEST(Log, FallsBackToTheProgramFolderAndThenToStandardError) {
    const ScratchFolder folder;
    std::filesystem::create_directories("UA_log.txt/in the way");  // not even root writes a file there
    std::filesystem::create_directory("program");
    std::ofstream("program/UA_log.txt") << "the run before\n";
    UA_log_open("program");
    UA_log("line");
    UA_log_close();
    std::stringstream text;
    text << std::ifstream("program/UA_log.txt").rdbuf();
    EXPECT_EQ(text.str(), "line\n");

    // A link that can't be taken away, as someone else's in a shared folder, isn't followed.
    std::filesystem::remove_all("UA_log.txt");
    std::filesystem::create_symlink("not ours", "UA_log.txt");
    UA_log_open("program");
    UA_log_close();
    EXPECT_FALSE(std::filesystem::exists("not ours"));
    EXPECT_TRUE(std::filesystem::is_symlink("UA_log.txt"));

    testing::internal::CaptureStderr();
    UA_log_open("no such folder");
    UA_log("line");
    UA_log_close();
    const std::string shown = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(shown.ends_with("\nline\n")) << shown;
}

TEST(Log, KeepsLinesOfTwoFlowsWhole) {
    const ScratchFolder folder;
    constexpr int lines = 500;
    const auto write_lines = [](const char* word) {
        for (int i = 0; i < lines; ++i) UA_log("%s%s%s", word, word, word);
    };
    UA_log_open();
    std::thread other(write_lines, "handler");
    write_lines("main");
    other.join();
    std::istringstream text(log_text());
    int seen = 0;
    for (std::string line; std::getline(text, line); ++seen)
        ASSERT_TRUE(line == "handlerhandlerhandler" || line == "mainmainmain") << line;
    EXPECT_EQ(seen, 2 * lines);
}

}  // namespace
}  // namespace nubo
