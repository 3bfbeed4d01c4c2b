#include "windows/help_window.h"

#include "gui/columns.h"
#include "harness/user.h"
#include "state/texts_help.h"

namespace nubo {
namespace {

TEST(HelpText, WordsCountTheirCharactersAndNotTheirColors) {
    struct Case {
        const char* word;
        int width;
    };
    for (const Case& at : {Case{"WORD", 4}, Case{"", 0}, Case{"||", -1}, Case{"|c21AB", 2}, Case{"A|c21|c32B", 2},
                           Case{"AB|c21", 2}, Case{"A||", -1}})
        EXPECT_EQ(help_word_width(at.word), at.width) << at.word;
}

TEST(HelpText, TheOpeningTextBreaksOnceAndWrapsByColumn) {
    // "||" ends an empty first line; "<- SELECT A TOPIC TO VIEW DETAILS" is 33 columns and fits in the second.
    EXPECT_EQ(help_line_count(help_start), 2);
}

class HelpWindowTest : public EditorTest {};

TEST_F(HelpWindowTest, ATopicShowsUntilExitAndTheStatusBarComesBack) {
    opt_status_bar = 1;
    mouse_reversed = 0;
    play_on(help_window, [](User& user) -> Script {
        co_await user.wait(4);
        EXPECT_EQ(opt_status_bar, 0);
        EXPECT_EQ(marked_entry_of(slot_content), -1);
        const int list = slot_content, text = list + 1;
        // The third row of the list: rows of 10 from y 2 + 12 + 1.
        co_await user.move_to(40, 2 + 12 + 1 + 25);
        co_await user.press_left(40, 2 + 12 + 1 + 25);
        co_await user.release_left();
        EXPECT_EQ(gui::label[at(text)], help_index(HELP_BRUSH_COLOR));
        EXPECT_EQ(marked_entry_of(list), 2) << "the third topic stands out";
        co_await user.press_right(200, 100);  // neither a right press nor a key leaves
        co_await user.release_right();
        EXPECT_EQ(menu_id, 20);
        co_await user.hold_key(KEY_RIGHT);
        co_await user.release_key(KEY_RIGHT);
        EXPECT_EQ(pan_x, 0) << "the Frame behind it stays";
        co_await user.move_to(40, 2 + 229);
        co_await user.press_left(40, 2 + 229);
        co_await user.release_left();
    });
    EXPECT_EQ(opt_status_bar, 1);
    EXPECT_EQ(menu_id, 0);
}

}  // namespace
}  // namespace nubo
