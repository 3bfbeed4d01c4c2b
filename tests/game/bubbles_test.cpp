#include "game/bubbles.h"

#include "game/actors.h"
#include "harness/harness.h"
#include "state/run.h"

namespace nubo {
namespace {

class BubblesTest : public testing::Test {
protected:
    BubblesTest() {
        UA_log_open();
        UA_initialize_actors();
        handlers_locked = 0;
    }
    ~BubblesTest() override { UA_log_close(); }

    /// A new bubble's row.
    static std::size_t spawned(std::string_view text, int hold = 0) {
        return static_cast<std::size_t>(UA_spawn_bubble(5, hold, text));
    }
    /// The printed lines of a row, each ended by a "/".
    static std::string lines(std::size_t row) {
        std::string all;
        for (int line = 0, letter = 0; line < bubble::line_count[row]; ++line) {
            int end = bubble::letter_count[row];
            if (line + 1 < bubble::line_count[row]) end = bubble::line_start[row][static_cast<std::size_t>(line) + 1];
            for (; letter < end; ++letter) all += bubble::letters[row][static_cast<std::size_t>(letter)];
            all += '/';
        }
        return all;
    }
    /// The ticks for which a row stays in its state, at most `most`.
    static int ticks_in_state(std::size_t row, int most = 100) {
        const int state = bubble::state[row];
        int ticks = 0;
        for (; bubble::state[row] == state && bubble::owner[row] != bubble_free && ticks < most; ++ticks)
            UA_bubble_tick();
        return ticks;
    }
    ScratchFolder folder_;
};

TEST_F(BubblesTest, LayoutTriesWidthsAndThenLines) {
    struct Case {
        std::string text, lines;
        int w, h;  // 4 times the longest line and 6; 6 times the lines and one, and 7
    };
    const std::string b25(25, 'B'), words5 = "AAAA AAAA AAAA AAAA AAAA";
    const Case cases[] = {
        {"", "/", 6, 19},
        {"HELLO", "HELLO/", 26, 19},
        {"A  B", "A  B/", 22, 19},
        {"ONE TWO   THREE FOUR", "ONE TWO/THREE FOUR/", 46, 25},
        // The first width that leaves two lines has room for three words and two blanks: 14.
        {words5, "AAAA AAAA AAAA/AAAA AAAA/", 62, 25},
        // 25 have room for five words; twelve take three lines.
        {words5 + " " + words5 + " CC DD", words5 + "/" + words5 + "/CC DD/", 102, 31},
        // 12 and 3 are room for the second word too.
        {"ABCDEFGHIJKL MN OP", "ABCDEFGHIJKL MN/OP/", 66, 25},
        {b25 + "BBBBB CCC", b25 + "BBBBB/CCC/", 126, 25},
        {"A " + b25 + "BB C", "A/" + b25 + "/BB C/", 106, 31},
        {"A^^ B^", "A// B/", 14, 31},
        {"`ONE TWO^A THREE", "ONE/TWO/A/THREE/", 26, 37},
        {"|x12 |c2|", "|x12 |c2|/", 42, 19},
    };
    for (const Case& c : cases) {
        const std::size_t row = spawned(c.text);
        EXPECT_EQ(lines(row), c.lines) << c.text;
        EXPECT_EQ(bubble::w[row], c.w) << c.text;
        EXPECT_EQ(bubble::h[row], c.h) << c.text;
    }
}

TEST_F(BubblesTest, CodesColorLettersAndTintTheirLine) {
    const std::size_t row = spawned("A|c24B^CCCC CCCC |h07|c05DDDD");
    EXPECT_EQ(lines(row), "AB/CCCC CCCC DDDD/");
    EXPECT_EQ(bubble::color_row[row][0], 0);
    EXPECT_EQ(bubble::color_row[row][1], 24);
    EXPECT_EQ(bubble::color_row[row][12], 5);  // behind "AB" and "CCCC CCCC "
    EXPECT_EQ(bubble::tint[row][0], 0);
    EXPECT_EQ(bubble::tint[row][1], 7);
    EXPECT_EQ(log_text(), "[BREAK] at 6\n");
    const std::size_t wrapped = spawned("|h03ONE TWO |h07THREE FOUR");
    EXPECT_EQ(bubble::tint[wrapped][0], 3);
    EXPECT_EQ(bubble::tint[wrapped][1], 7);
}

TEST_F(BubblesTest, TheTickOpensPrintsHoldsAndCloses) {
    const std::size_t row = spawned("AB", 4);
    handlers_locked = 1;
    UA_bubble_tick();
    EXPECT_EQ(bubble::shown_h[row], 0);
    handlers_locked = 0;
    EXPECT_EQ(ticks_in_state(row), 9);  // by 3 to 19 + 8
    EXPECT_EQ(bubble::shown_h[row], 27);
    EXPECT_EQ(bubble::shown[row], 1);
    EXPECT_EQ(bubble::brightness[row][0], 31);
    UA_bubble_tick();
    EXPECT_EQ(bubble::brightness[row][0], 59);
    EXPECT_EQ(bubble::shown[row], 1);
    UA_bubble_tick();
    EXPECT_EQ(bubble::brightness[row][0], 87);
    EXPECT_EQ(bubble::shown[row], 2);
    EXPECT_EQ(bubble::brightness[row][1], 31);
    EXPECT_EQ(ticks_in_state(row), 8);  // by 28 from 31 to 255
    EXPECT_EQ(bubble::brightness[row][0], 255);
    EXPECT_EQ(bubble::brightness[row][1], 255);
    EXPECT_EQ(bubble::state[row], BUBBLE_HOLDS);
    EXPECT_EQ(ticks_in_state(row), 4);
    EXPECT_EQ(bubble::state[row], BUBBLE_CLOSES);
    EXPECT_EQ(ticks_in_state(row), 9);
    EXPECT_EQ(bubble::owner[row], bubble_free);
    EXPECT_EQ(spawned(""), row);
}

TEST_F(BubblesTest, ThePoolAndEachRowHaveTheirLimits) {
    const std::size_t broken = spawned("`" + std::string(400, '^')), long_one = spawned(std::string(4000, 'A') + "B");
    EXPECT_EQ(bubble::line_count[broken], 255);
    EXPECT_EQ(bubble::letter_count[long_one], 1500);
    for (int row = 3; row <= 31; ++row) EXPECT_EQ(UA_spawn_bubble(49, 0, "A"), row);
    EXPECT_EQ(UA_spawn_bubble(49, 0, "A"), bubble_none);
    EXPECT_EQ(UA_spawn_bubble(50, 0, "A"), bubble_none);
    EXPECT_EQ(UA_spawn_bubble(-1, 0, "A"), bubble_none);
    EXPECT_EQ(bubble::owner[0], bubble_free);
    const std::string log = log_text();
    EXPECT_NE(log.find("[BREAK] at 400\n[ WARNING ] : Attempted to grab bubble, but none available!\n[ ERROR ]"),
              std::string::npos);
}

}  // namespace
}  // namespace nubo
