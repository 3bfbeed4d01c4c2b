// The staged program folder, and the companions in it.
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

/// The companion that looks into archives, on a copy of the first Workspace.
class WspCompanion : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directory("first");
        for (const char* ending : {"000", "001", "002", "cel", "nal", "tip", "spa"})
            std::filesystem::copy(NUBO_FOLDER "/WORKSPACE/alternate." + std::string(ending),
                                  "first/current." + std::string(ending));
    }
    static int run(const std::string& words) {
        return WEXITSTATUS(std::system((NUBO_FOLDER "/nubo-wsp " + words + " >output 2>&1").c_str()));
    }

    ScratchFolder folder_;
};

TEST_F(WspCompanion, PutsAFolderInAndTakesItOutAgain) {
    ASSERT_EQ(run("make a.wsp first"), 0) << text_of("output");
    EXPECT_EQ(run("check a.wsp"), 0);
    EXPECT_EQ(run("list a.wsp"), 0);
    EXPECT_NE(text_of("output").find("frames  3"), std::string::npos);
    EXPECT_EQ(run("extract a.wsp out"), 0);
    for (const auto& entry : std::filesystem::directory_iterator("first"))
        EXPECT_EQ(text_of(entry.path()), text_of("out" / entry.path().filename())) << entry.path();
    EXPECT_NE(run("extract a.wsp out"), 0) << "nothing is written over";
    EXPECT_EQ(run("extract --png a.wsp pictures"), 0) << text_of("output");
    const std::string picture = text_of("pictures/current.001.png");
    EXPECT_EQ(picture.substr(1, 3), "PNG");
    EXPECT_FALSE(std::filesystem::exists("pictures/current.001"));
}

TEST_F(WspCompanion, TellsWhatIsWrong) {
    ASSERT_EQ(run("make a.wsp first"), 0);
    const std::string whole = text_of("a.wsp");
    std::ofstream("cut.wsp", std::ios::binary) << whole.substr(0, whole.size() - 1);
    std::string bent = whole;
    bent[bent.find("BM")] = 'X';
    std::ofstream("bent.wsp", std::ios::binary) << bent;
    for (const char* words :
         {"check cut.wsp", "check bent.wsp", "check none.wsp", "extract cut.wsp out", "make b.wsp none"})
        EXPECT_EQ(run(words), 1) << words;
    EXPECT_EQ(run("extract bent.wsp out"), 0) << "what can be had of it";
    for (const char* words : {"", "list", "check a b", "extract --png a.wsp"}) EXPECT_EQ(run(words), 2) << words;
    for (const char* words : {"--help", "list --help", "make -h"}) EXPECT_EQ(run(words), 0) << words;
    std::filesystem::copy("bent.wsp", "first/current.003");
    EXPECT_EQ(run("make d.wsp first"), 1) << "what the program would refuse";
    std::filesystem::remove("first/current.003");
    std::filesystem::remove("first/current.cel");
    EXPECT_EQ(run("make c.wsp first"), 1);
    EXPECT_FALSE(std::filesystem::exists("c.wsp"));
}

}  // namespace
}  // namespace nubo
