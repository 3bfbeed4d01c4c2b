// The staged program folder, and the companion that changes its display mode.
#include "codecs/png.h"
#include "harness/harness.h"

#include "base/color.h"
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace nubo {
namespace {

std::string text_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A copy of the companion in a folder of its own, which it takes for the program folder.
class Configure : public testing::Test {
protected:
    void SetUp() override { std::filesystem::copy(NUBO_FOLDER "/nubo-configure", "nubo-configure"); }

    /// Runs it with the words and the input of a shell line, and returns its exit code.
    static int run(const std::string& words) {
        return WEXITSTATUS(std::system(("./nubo-configure " + words + " >output 2>&1").c_str()));
    }

    ScratchFolder folder_;
};

TEST_F(Configure, WritesTheModeOfItsArgumentAndRefusesOthers) {
    EXPECT_EQ(run("4"), 0);
    EXPECT_EQ(text_of("config.def"), "4");
    for (const char* words : {"0", "5", "33", "''", "x", "1 2"}) {
        EXPECT_NE(run(words), 0) << words;
        EXPECT_EQ(text_of("config.def"), "4") << words;
    }
}

TEST_F(Configure, AsksUntilItGetsAModeOrNoAnswer) {
    EXPECT_EQ(run("< /dev/null"), 0);
    EXPECT_FALSE(std::filesystem::exists("config.def"));
    std::ofstream("answers") << "5\nwindow\n2\n4\n";
    EXPECT_EQ(run("< answers"), 0);
    EXPECT_EQ(text_of("config.def"), "2");
    std::ofstream("answers") << "\n4\n";
    EXPECT_EQ(run("< answers"), 0);
    EXPECT_EQ(text_of("config.def"), "2");
    EXPECT_NE(text_of("output").find("640x480  (now)"), std::string::npos);
}

TEST_F(Configure, SaysSoWhenItCannotWrite) {
    std::filesystem::create_directory("config.def");  // a folder stands in the way
    EXPECT_NE(run("3"), 0);
    EXPECT_TRUE(std::filesystem::is_directory("config.def"));
}

}  // namespace
}  // namespace nubo
