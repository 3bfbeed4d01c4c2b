// The staged program folder, and the companions in it.
#include "codecs/png.h"
#include "harness/harness.h"

namespace nubo {
namespace {

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
    EXPECT_EQ(bytes_of("config.def"), "4");
    for (const char* words : {"0", "5", "33", "''", "x", "1 2"}) {
        EXPECT_NE(run(words), 0) << words;
        EXPECT_EQ(bytes_of("config.def"), "4") << words;
    }
}

TEST_F(Configure, AsksUntilItGetsAModeOrNoAnswer) {
    EXPECT_EQ(run("< /dev/null"), 0);
    EXPECT_FALSE(std::filesystem::exists("config.def"));
    std::ofstream("answers") << "5\nwindow\n2\n4\n";
    EXPECT_EQ(run("< answers"), 0);
    EXPECT_EQ(bytes_of("config.def"), "2");
    std::ofstream("answers") << "\n4\n";
    EXPECT_EQ(run("< answers"), 0);
    EXPECT_EQ(bytes_of("config.def"), "2");
    EXPECT_NE(bytes_of("output").find("640x480  (now)"), std::string::npos);
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
    ASSERT_EQ(run("make a.wsp first"), 0) << bytes_of("output");
    EXPECT_EQ(run("check a.wsp"), 0);
    EXPECT_EQ(run("list a.wsp"), 0);
    EXPECT_NE(bytes_of("output").find("frames  3"), std::string::npos);
    EXPECT_EQ(run("extract a.wsp out"), 0);
    for (const auto& entry : std::filesystem::directory_iterator("first"))
        EXPECT_EQ(bytes_of(entry.path()), bytes_of("out" / entry.path().filename())) << entry.path();
    EXPECT_NE(run("extract a.wsp out"), 0) << "nothing is written over";
    EXPECT_EQ(run("extract --png a.wsp pictures"), 0) << bytes_of("output");
    const std::string picture = bytes_of("pictures/current.001.png");
    EXPECT_EQ(picture.substr(1, 3), "PNG");
    EXPECT_FALSE(std::filesystem::exists("pictures/current.001"));
    constexpr std::size_t color_type_at = 25;
    EXPECT_EQ(picture[color_type_at], 2) << "RGB";
    std::fstream state("first/current.spa", std::ios::in | std::ios::out | std::ios::binary);
    state.seekp(1156).put(32);
    state.seekp(1169).put(12);
    state.seekp(1291).put(1);
    state.close();
    ASSERT_EQ(run("make a.wsp first"), 0) << bytes_of("output");
    EXPECT_EQ(run("extract --png a.wsp clear"), 0) << bytes_of("output");
    EXPECT_EQ(bytes_of("clear/current.001.png")[color_type_at], 6) << "RGBA";
    EXPECT_EQ(bytes_of("clear/current.cel.png")[color_type_at], 2);
}

TEST_F(WspCompanion, TellsWhatIsWrong) {
    ASSERT_EQ(run("make a.wsp first"), 0);
    const std::string whole = bytes_of("a.wsp");
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
    const auto is_untouched = [&] { return bytes_of("a.wsp") == whole; };
    for (const char* name : {"current.003", "current.005", "current.cel"}) {  // no picture, behind a gap, no picture
        std::filesystem::rename("first", "kept");
        std::filesystem::copy("kept", "first");
        std::filesystem::copy("bent.wsp", std::string("first/") + name,
                              std::filesystem::copy_options::overwrite_existing);
        EXPECT_TRUE(run("make a.wsp first") == 1 && is_untouched()) << name << bytes_of("output");
        std::filesystem::remove_all("first");
        std::filesystem::rename("kept", "first");
    }
    std::filesystem::remove("first/current.cel");
    EXPECT_TRUE(run("make a.wsp first") == 1 && is_untouched()) << bytes_of("output");
}

/// A picture of 30000 by 30000, packed, and nothing behind its palette of 256 colours but the end of four bytes.
std::string vast_picture() {
    std::string bytes("BM\x3a\4\0\0\0\0\0\0\x36\4\0\0\x28\0\0\0\x30\x75\0\0\x30\x75\0\0\1\0\x08\0\1\0\0\0\4\0\0\0", 38);
    bytes.resize(1082);
    return bytes;
}

TEST_F(WspCompanion, ReadsAllThatTheEditorReadsAndPrintsNoControlBytes) {
    const auto number = [](std::size_t value) {
        return std::string{static_cast<char>(value >> 24), static_cast<char>(value >> 16),
                           static_cast<char>(value >> 8), static_cast<char>(value)};
    };
    const auto archive = [&](const std::string& title, const std::string& frame, const std::string& state) {
        std::string bytes = "nWSP" + std::string(1, static_cast<char>(title.size())) + title + '\0' + number(1);
        for (const std::string& part : {frame, bytes_of("first/current.cel"), bytes_of("first/current.nal"),
                                        bytes_of("first/current.tip"), state})
            bytes += number(part.size()) + part;
        std::ofstream("a.wsp", std::ios::binary) << bytes;
    };
    const std::string frame = bytes_of("first/current.000"), state = bytes_of("first/current.spa");
    archive("a\x1b[2Jb\xc3\xa9\xc2\x9b\xff", frame, state);
    EXPECT_EQ(run("check a.wsp"), 0) << bytes_of("output");
    EXPECT_EQ(run("list a.wsp"), 0);
    EXPECT_NE(bytes_of("output").find("title   a?[2Jb\xc3\xa9??\n"), std::string::npos) << bytes_of("output");
    archive("", frame, std::string(state.size(), '\0'));
    EXPECT_EQ(run("check a.wsp"), 1);
    EXPECT_NE(bytes_of("output").find("a tool slot"), std::string::npos) << bytes_of("output");
    archive("", vast_picture(), state);
    EXPECT_EQ(run("check a.wsp"), 1);
    EXPECT_NE(bytes_of("output").find("current.000"), std::string::npos) << bytes_of("output");
}

/// Gives the folder's state a speed of 10, a range of slots 1 and 2, ONCE, and half a second to slot 2.
void animate_first() {
    std::fstream state("first/current.spa", std::ios::in | std::ios::out | std::ios::binary);
    for (const auto& [at, byte] : {std::pair{1169, 10}, {1170, 1}, {1171, 3}, {1172, 1}, {1190, 50}, {1291, 1}})
        state.seekp(at).put(static_cast<char>(byte));
}

TEST_F(WspCompanion, ExportsWhatTheStateTellsTheSameBytesEachTime) {
    animate_first();
    ASSERT_EQ(run("make a.wsp first"), 0) << bytes_of("output");
    ASSERT_EQ(run("export --gif one a.wsp"), 0) << bytes_of("output");
    EXPECT_EQ(bytes_of("output"), "one.gif\n");
    ASSERT_EQ(std::system("gifsicle --info one.gif >told"), 0);
    const std::string told = bytes_of("told");
    for (const char* part : {"2 images", "logical screen 640x480", "delay 0.10s", "delay 0.50s"})
        EXPECT_NE(told.find(part), std::string::npos) << part << " in " << told;
    EXPECT_EQ(told.find("loop"), std::string::npos) << told;
    EXPECT_EQ(run("export first --gif two"), 0);
    EXPECT_EQ(bytes_of("one.gif"), bytes_of("two.gif"));
    ASSERT_EQ(run("export --from 0 --to 2 --ping-pong --scale 2 --apng way.gif first"), 0);
    ASSERT_EQ(std::system("apngdis way.png way_ >told"), 0);
    EXPECT_TRUE(std::filesystem::exists("way_4.png") && !std::filesystem::exists("way_5.png")) << "and the way back";
    EXPECT_NE(bytes_of("way_3.txt").find("50/100"), std::string::npos) << bytes_of("way_3.txt");
    ASSERT_EQ(run("export --json --square --gap 2 --border 1 --from 0 --sheet deep/all first"), 1);
    ASSERT_EQ(run("export --json --square --gap 2 --border 1 --from 0 --sheet all first"), 0);
    EXPECT_EQ(bytes_of("output"), "all.png\nall.json\n");
    EXPECT_NE(bytes_of("all.json").find("\"x\": 1, \"y\": 483, \"w\": 640"), std::string::npos) << bytes_of("all.json");
    EXPECT_NE(bytes_of("all.json").find("\"duration\": 500"), std::string::npos);
    EXPECT_EQ(run("export --png hero#.PNG first"), 0);
    EXPECT_EQ(bytes_of("output"), "hero00.PNG\nhero01.PNG\n");
}

TEST_F(WspCompanion, ExportsAllFilesOrNone) {
    for (const char* words :
         {"export --gif a.gif", "export first", "export --gif a --apng b first", "export --gif a --rows first",
          "export --gif a --scale 9 first", "export --gif a --nothing first", "export --gif a first first"})
        EXPECT_EQ(run(words), 2) << words;
    for (const char* words :
         {"export --gif a --from 2 --to 1 first", "export --gif a --to 3 first", "export --gif a none"})
        EXPECT_EQ(run(words), 1) << words;
    // The second picture is larger than a file may be.
    EXPECT_NE(std::system("trap '' XFSZ; ulimit -f 28; " NUBO_FOLDER "/nubo-wsp export --png full first >output 2>&1"),
              0);
    EXPECT_NE(std::system("trap '' XFSZ; ulimit -f 28; " NUBO_FOLDER
                          "/nubo-wsp export --sheet full --json first >output 2>&1"),
              0);
    for (const auto& entry : std::filesystem::directory_iterator("."))
        EXPECT_TRUE(entry.path() == "./first" || entry.path() == "./output") << entry.path();
}

}  // namespace
}  // namespace nubo
