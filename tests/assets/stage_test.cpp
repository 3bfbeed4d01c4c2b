// The companion that plays the framework: its words, its pictures.
#include "codecs/png.h"
#include "harness/harness.h"

namespace nubo {
namespace {

class Stage : public testing::Test {
protected:
    /// Runs it with the words of a shell line, and returns its exit code.
    static int run(const std::string& words) {
        return WEXITSTATUS(std::system((NUBO_FOLDER "/nubo-stage " + words + " >output 2>&1").c_str()));
    }
    static std::vector<std::string> scenes() {
        EXPECT_EQ(run("--list"), 0);
        std::istringstream lines(bytes_of("output"));
        return {std::istream_iterator<std::string>(lines), {}};
    }
    ScratchFolder folder_;
};

TEST_F(Stage, DrawsEachSceneItNamesTheSameWayEachTime) {
    const std::vector<std::string> names = scenes();
    EXPECT_GE(names.size(), 10U);
    EXPECT_EQ(std::set(names.begin(), names.end()).size(), names.size());
    EXPECT_EQ(run("--shots first"), 0);
    for (const char* const word : {"ERROR", "WARNING", "TRAP"})
        EXPECT_EQ(bytes_of("output").find(word), std::string::npos) << bytes_of("output");
    EXPECT_EQ(run("--shots deep/second"), 0);
    std::set<std::string> pictures;
    for (const std::string& name : names) {
        const std::string bytes = bytes_of("first/" + name + ".png");
        EXPECT_EQ(bytes, bytes_of("deep/second/" + name + ".png")) << name;
        const OwnedBitmap picture(load_png(("first/" + name + ".png").c_str(), nullptr));
        ASSERT_NE(picture, nullptr) << name;
        EXPECT_EQ(picture->w, 320);
        EXPECT_EQ(picture->h, 240);
        EXPECT_TRUE(pictures.insert(bytes).second) << name << " looks like another scene";
    }
}

TEST_F(Stage, TheFamiliesStandWhereTheirSceneHasPutThem) {
    ASSERT_EQ(run("--shots shots"), 0);
    const OwnedBitmap picture(load_png("shots/families.png", nullptr));
    ASSERT_NE(picture, nullptr);
    const auto pixel = [&](int x, int y) { return *pixels_at(picture.get(), x, y); };
    EXPECT_EQ(pixel(112, 106), 0xffff00U);  // within the filled disc, and on none of the two others
    EXPECT_EQ(pixel(165, 95), 0xe87090U);   // a solid rectangle
    // One at a strength of 110 on the backdrop, 202838: 32 + (232 - 32) * 110 >> 8 = 117; and so on.
    EXPECT_EQ(pixel(200, 115), 0x75465dU);
    EXPECT_EQ(pixel(260, 106), 0x70b0fcU);  // the left square of the middle row, and its right neighbour
    EXPECT_EQ(pixel(268, 106), 0xe87090U);
}

TEST_F(Stage, TellsHowItIsCalledWhenItIsCalledOtherwise) {
    EXPECT_EQ(run("--help"), 0);
    EXPECT_NE(bytes_of("output").find("--shots DIR"), std::string::npos);
    for (const char* const words : {"--shots", "no-such-scene", "--list more", "families poses"})
        EXPECT_EQ(run(words), 2) << words;
    std::ofstream("taken") << "a file";
    EXPECT_EQ(run("--shots taken"), 1);
    EXPECT_EQ(run("families"), 1);  // there is no display here
    EXPECT_NE(bytes_of("output").find("DISPLAY"), std::string::npos);
}

}  // namespace
}  // namespace nubo
