// Which font TEXT has after a load of a Workspace, wherever the one that it remembers has gone.
#include "workspace/preferred_font.h"

#include "framework/outline_font.h"
#include "harness/harness.h"
#include "state/boxes.h"
#include "workspace/defaults.h"
#include "workspace/state_fields.h"

namespace nubo {
namespace {

namespace fs = std::filesystem;

template <std::size_t N> void set_text(std::array<char, N>& to, const std::string& text) {
    to.fill('\0');
    std::copy(text.begin(), text.end(), to.begin());
}

class PreferredFontTest : public testing::Test {
protected:
    PreferredFontTest() {
        EXPECT_EQ(font_system_init(), 0);
        UA_log_open();
        set_text(program_dir, folder_.path());
        fs::create_directories("fonts");
        fs::create_directories("mine");
        for (const char* name : {"fonts/system.ttf", "fonts/other.ttf", "mine/good.ttf"})
            fs::copy_file(NUBO_FOLDER "/fonts/system.ttf", name);
        std::ofstream("mine/broken.ttf") << "no font at all";
        pending_box_count = 0;
        text_tool_size = 30;
    }
    ~PreferredFontTest() override { font_system_exit(); }
    PreferredFontTest(const PreferredFontTest&) = delete;
    PreferredFontTest& operator=(const PreferredFontTest&) = delete;

    ScratchFolder folder_;
};

TEST_F(PreferredFontTest, TheRememberedFontOrElseTheProgramsOwnIsTaken) {
    struct Case {
        const char *folder, *name, *taken;
        bool warns, fails;
    };
    for (const Case& one :
         {Case{"mine", "good.ttf", "good.ttf", false, false}, Case{"mine", "broken.ttf", "system.ttf", false, true},
          Case{"mine", "none.ttf", "system.ttf", false, false}, Case{"mine", "", "system.ttf", false, false},
          Case{"gone", "good.ttf", "system.ttf", true, false}, Case{"", "other.ttf", "other.ttf", false, false},
          Case{"", "", "system.ttf", false, false}}) {
        UA_log_reset();
        UA_log_open();
        set_text(font_dir, *one.folder == '\0' ? "" : folder_.path() + "/" + one.folder);
        set_text(font_name, one.name);
        const std::string folder = font_dir.data();
        EXPECT_TRUE(select_preferred_font());
        EXPECT_STREQ(font_name.data(), one.taken);
        EXPECT_EQ(font_dir.data(), one.warns ? folder_.path() : folder);
        ASSERT_NE(preferred_font, nullptr);
        EXPECT_EQ(font_text_height(preferred_font), 30);
        EXPECT_EQ(log_text().find("Preferred font path doesn't exist") != std::string::npos, one.warns) << one.name;
        EXPECT_EQ(log_text().find("Missing or corrupt font file") != std::string::npos, one.fails) << one.name;
        EXPECT_EQ(pending_box_count, one.fails ? 1 : 0);
        pending_box_count = 0;
    }
}

TEST_F(PreferredFontTest, WithoutAnyFontAStartHasNoneAndARunningEditorKeepsIts) {
    set_text(font_dir, folder_.path() + "/mine");
    set_text(font_name, "none.ttf");
    fs::remove("fonts/system.ttf");
    EXPECT_FALSE(select_preferred_font());
    EXPECT_EQ(preferred_font, nullptr);
    EXPECT_NE(log_text().find("Preferred font AND system font are missing"), std::string::npos);
    ASSERT_EQ(load_preferred_font("mine/good.ttf"), 1);
    const OutlineFont* const before = preferred_font;
    choose_preferred_font(folder_.path() + "/mine/broken.ttf");
    EXPECT_EQ(preferred_font, before);
    EXPECT_EQ(pending_box_count, 1);
}

TEST_F(PreferredFontTest, AFontOfTheProgramIsFoundWhereverTheProgramLies) {
    choose_preferred_font(folder_.path() + "/fonts/other.ttf");
    fs::create_directories("moved");
    fs::rename("fonts", "moved/fonts");
    set_text(program_dir, folder_.path() + "/moved");
    EXPECT_TRUE(select_preferred_font());
    EXPECT_STREQ(font_name.data(), "other.ttf");
}

TEST_F(PreferredFontTest, TextSizeAndFontComeBackWithTheWorkspace) {
    choose_preferred_font(folder_.path() + "/mine/good.ttf");
    set_text(text_tool_text, "H\xc3\xa4tte");
    text_tool_size = 300;
    text_tool_gap = 7;
    const std::vector<std::uint8_t> bytes = pack_state();
    for (auto* const text : {&font_dir, &program_dir}) text->fill('x');
    set_text(text_tool_text, "");
    font_name.fill('\0');
    set_text(program_dir, folder_.path());
    ASSERT_TRUE(unpack_state(bytes, "state"));
    EXPECT_TRUE(select_preferred_font());
    EXPECT_STREQ(font_name.data(), "good.ttf");
    EXPECT_STREQ(text_tool_text.data(), "H\xc3\xa4tte");
    EXPECT_EQ(text_tool_size, 300);
    EXPECT_EQ(text_tool_gap, 7);
    EXPECT_EQ(font_text_height(preferred_font), 300);
    text_tool_size = 0;
    EXPECT_TRUE(select_preferred_font());
    EXPECT_EQ(font_text_height(preferred_font), 8) << "no size of none";
}

}  // namespace
}  // namespace nubo
