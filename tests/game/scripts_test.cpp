#include "game/script_tick.h"
#include "game/scripts.h"

#include "base/jobs.h"
#include "game/actors.h"
#include "game/bubbles.h"
#include "game/game_jobs.h"
#include "game/script_compiler.h"
#include "harness/harness.h"
#include "state/effects.h"
#include "state/run.h"
#include "state/view.h"

namespace nubo {
namespace {

using std::string_literals::operator""s;

std::string compiled(std::string_view text) {
    const Bytes bytes = compile_scripts(text);
    return {bytes.begin(), bytes.end()};
}

/// The bytes of an argument from 0 to 255.
std::string arg(int value) { return "\xF2\0\0"s + static_cast<char>(value); }
std::string string(std::string_view text) { return "\xF1\"" + std::string(text) + "\""; }

int times_logged(std::string_view line) {
    int times = 0;
    const std::string log = log_text();
    for (std::size_t at = log.find(line); at != std::string::npos; at = log.find(line, at + 1)) ++times;
    return times;
}

class ScriptsTest : public testing::Test {
protected:
    ScriptsTest() {
        UA_log_open();
        UA_initialize_actors();
        install_framework_jobs();
        handlers_locked = 0;
    }
    ~ScriptsTest() override { UA_log_close(); }

    /// Starts a script of these bytes over actor 5.
    static void start(int slot, const std::string& code) {
        UA_reset_script(slot);
        for (std::size_t i = 0; i < code.size(); ++i) script::code[at(slot)][i] = static_cast<unsigned char>(code[i]);
        script::code[at(slot)][code.size()] = SCRIPT_END;
        script::owner[at(slot)] = 5;
        script::active[at(slot)] = 1;
    }
    static void tick(int count = 1) {
        for (int i = 0; i < count; ++i) UA_script_tick();
    }
    /// The ticks until the view is scrolled to x, at most 100.
    static int ticks_to_scroll(int x) {
        int ticks = 0;
        for (; pan_x != x && ticks < 100; ++ticks) UA_script_tick();
        return ticks;
    }
    ScratchFolder folder_;
};

// ---- From the text to the bytes ------------------------------------------------------------------------------------

TEST_F(ScriptsTest, ATextIsCompiledToItsBytes) {
    struct Case {
        std::string text, bytes;
    };
    const Case cases[] = {
        {"", ""},
        {"0102 [02] 5;", "\xF0\x01\x02\x02" + arg(5)},
        {"9907[99]", "\xF0\x63\x07\x63"},  // behind a number the line goes on
        {"[42] 0, -1 \"H;I\" ; [99] 3", "\x2A" + arg(0) + "\xF2\x01\0\x01"s + string("H;I")},
        {"[22]12345", "\x16\xF2\0\x04\xD2"s + arg(5)},  // 1234 is 4D2, and a fifth digit a new number
        {"[02]9999", "\x02\xF2\0\x27\x0F"s},            // the largest there is
        {"[02]-256", "\x02\xF2\x01\x01\0"s},            //
        {"-7\n[03]", "\xF2\x01\0\x07\x03"s},            // no digit, no new script
        {"  7", arg(7)},                                // nor behind a blank
        {"[42]\"A\n1[02];\nB\"\n[99]", "\x2A" + string("A1[02];B") + "c"},  // a string goes on
        {"0001[03]\r\n\r\n0002\r\n", "\xF0\0\x01\x03\xF0\0\x02"s},
        {"[7] [", "\x07\0"s},
        {"[42]\"A\xEF\"", "\x2A" + string("A\xEF")},
        {"0001[60]1 2 3\n0002[12]\n0003", "\xF0\0\x01<"s + arg(1) + arg(2) + arg(3) + "\xF0\0\x02\x0C\xF0\0\x03"s},
    };
    for (const Case& c : cases) EXPECT_EQ(compiled(c.text), c.bytes) << c.text;
    EXPECT_EQ(log_text(), "");
    compiled("[02] 240");
    compiled("\"no end");
    EXPECT_EQ(log_text(), "[ WARNING ] : Argument of a script is read as its end! value = 240\n"
                          "[ WARNING ] : A string of the scripts has no end!\n");
}

TEST_F(ScriptsTest, WhatIsHardlyMeantIsWarnedOfWithItsLine) {
    struct Case {
        std::string text, bytes;
        int begins, foreign;  // the lines warned of as a script's beginning and for a string's bytes, 0 none
    };
    const Case cases[] = {
        {"\n01", "\xF0\x01\0"s, 2, 0},
        {"01025", "\xF0\x01\x02" + arg(5), 1, 0},
        {std::string(299, 'x') + "0102", "\xF0\x01\x02", 1, 0},  // what is too long goes on as the next line
        {std::string(299, 'x') + "\n0102", "\xF0\x01\x02", 0, 0},
        {"[22] 7,\n0102", "\x16" + arg(7) + "\xF0\x01\x02", 2, 0},  // the 22 lacks its second argument
        {"\n\n\"\xEF\n\xF0\"", string("\xEF\xF0"), 0, 4},
        {"\"\xFF\"", string("\xFF"), 0, 1},
    };
    std::string log;
    const auto warn = [&log](const char* words, int line) {
        if (line > 0) log += words + std::to_string(line) + "\n";
    };
    for (const Case& c : cases) {
        EXPECT_EQ(compiled(c.text), c.bytes) << c.text;
        warn("[ WARNING ] : A script begins where the one before seems to go on! Line = ", c.begins);
        warn("[ WARNING ] : A string holds a byte of 240 or above, which may end its script! Line = ", c.foreign);
        EXPECT_EQ(log_text(), log);
    }
}

TEST_F(ScriptsTest, AScriptIsFoundByItsNumberAndEndsWhereTheNextBegins) {
    std::ofstream("scripts.def") << "0102 [02] 5\n0203 [99]\n0102 [03]\n0300 [42] \"A\xF0\x01\x09"
                                    "B\"\n";
    ASSERT_TRUE(UA_compile_scripts(Folder(".")));
    script::vars[7][3] = 9;
    EXPECT_EQ(UA_load_script(Folder("."), 7, 102), 102);  // the first of two
    const std::vector<int> body{2, 0xF2, 0, 0, 5, SCRIPT_END, 0};
    for (std::size_t i = 0; i < body.size(); ++i) EXPECT_EQ(UA_script_cell(7, static_cast<int>(i)), body[i]) << i;
    EXPECT_EQ(script::active[7] + script::vars[7][3], 0);
    EXPECT_EQ(UA_load_script(Folder("."), 7, 109), 109);  // a string's start of a script is one, too
    EXPECT_EQ(UA_script_cell(7, 0), 'B');
    EXPECT_EQ(UA_load_script(Folder("."), 7, 203), 203);
    EXPECT_EQ(UA_script_cell(7, 1), SCRIPT_END);
    EXPECT_EQ(UA_load_script(Folder("."), 7, 104), -1);
    script::active[7] = 1;  // a game that doesn't look
    tick(2);
    EXPECT_EQ(script::active[7], 0);
    EXPECT_EQ(times_logged("scribe command"), 1);
    EXPECT_EQ(UA_load_script(Folder("."), script_slots, 102), -1);
    EXPECT_EQ(UA_script_cell(7, -1), SCRIPT_END);
    EXPECT_EQ(UA_script_cell(7, script_cells), SCRIPT_END);
}

TEST_F(ScriptsTest, ALongScriptIsCutAndEnds) {
    std::ofstream("mojo.def") << "\xF0\x01\x01" << std::string(9'999, 'x') << "\xF0\x01\x02"
                              << std::string(10'000, 'y');
    EXPECT_EQ(UA_load_script(Folder("."), 0, 101), 101);
    EXPECT_EQ(UA_script_cell(0, 9'998), 'x');
    EXPECT_EQ(UA_script_cell(0, 9'999), SCRIPT_END);
    EXPECT_EQ(log_text(), "");
    EXPECT_EQ(UA_load_script(Folder("."), 0, 102), 102);
    EXPECT_EQ(UA_script_cell(0, 9'999), SCRIPT_END);
    EXPECT_EQ(times_logged("[ WARNING ] : Script is too long and was cut! Slot = 0"), 1);
    EXPECT_FALSE(UA_compile_scripts(Folder(".")));  // there is no source
    EXPECT_EQ(UA_load_script(Folder("."), 0, 101), 101);
}

// ---- Commands ------------------------------------------------------------------------------------------------------

TEST_F(ScriptsTest, OneCommandATickAndAPauseBetween) {
    start(3, compiled("[22] 7 -9 [02] 3 [22] 1 2 [02] 0 [22] 4 4 [200] [12] 1 2 3 [41] [22] 8 8 [99] [22] 6 6"));
    EXPECT_EQ(ticks_to_scroll(7), 1);
    EXPECT_EQ(pan_y, -9);
    EXPECT_EQ(ticks_to_scroll(1), 5);  // the pause, three ticks of it, the command
    EXPECT_EQ(ticks_to_scroll(4), 2);  // a pause of 0 sleeps for none
    EXPECT_EQ(ticks_to_scroll(8), 4);
    tick();
    EXPECT_EQ(script::active[3], 0);
    EXPECT_EQ(ticks_to_scroll(6), 100);
    EXPECT_EQ(times_logged("scribe command = 22\nscript arg found! value = 7\nscript arg found! value = -9\n"), 1);
    handlers_locked = 1;
    start(3, compiled("[22] 6 6"));
    EXPECT_EQ(ticks_to_scroll(6), 100);
}

TEST_F(ScriptsTest, JobsTakeAllButTheFirstArgumentAndTheirSlotIsKept) {
    push_to_job(JOB_WAIT, 0, 0, 0, 0, 0, 0, 0, 0, 5);
    start(3,
          compiled("[70] 0 0 0 0 2 [10] 1 2 3 4 5 [20] 6 7 8 9 10 [70] 0 0 0 0 4 [71] 0 0 0 0 0 0 31 [70] 0 0 0 0 -1 "
                   "[71] 0 0 0 0 0 0 32"));
    tick(7);
    EXPECT_EQ(job::type[1], JOB_SCRIPT_WAIT);
    EXPECT_EQ(job::type[2], JOB_SCRIPT);
    EXPECT_EQ(job::script_slot[2], 3);
    for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(job::arg[1][i], i < 4 ? static_cast<int>(i) + 2 : 0) << i;
    EXPECT_EQ(script::vars[3][2], 255);  // there was no job yet
    EXPECT_EQ(script::vars[3][4], 2);
    EXPECT_EQ(script::vars[3][31], 2);
    EXPECT_EQ(times_logged("[ ERROR ] : Script variable out of range! Variable = 32"), 1);
}

TEST_F(ScriptsTest, AFullQueueDropsTheJobAndEndsTheTick) {
    while (fill_job_slot(JOB_WAIT, {}, 0, 9) >= 0) {
    }
    start(2, compiled("[20] 1 2 3 4 5 [22] 3 3"));
    start(3, compiled("[22] 8 8"));
    tick();
    EXPECT_EQ(log_text().find("Ran out of job queue slots in call"), std::string::npos);
    EXPECT_EQ(times_logged("[ ERROR ] : Ran out of job queue slots inside script! Job = 11"), 1);
    EXPECT_EQ(pan_x, 0);
    tick();
    EXPECT_EQ(pan_x, 8);  // the script goes on, and so does the one behind it
    EXPECT_EQ(script::pc[2], 21 + 9);
}

TEST_F(ScriptsTest, WaitsForTheObjectThatTheJobTellsOf) {
    start(4, compiled("[10] 0 0 0 0 0 [03] [22] 5 5"));
    Last_who = 9;
    Last_slot = 2;
    actor::BEHAVIOR[9][2] = BEHAVIOR_PALETTE_CONTROL;
    tick(10);
    EXPECT_EQ(script::wait_pending[4], 1);
    UA_run_jobs();
    EXPECT_EQ(script::wait_who[4], 9);
    EXPECT_EQ(script::wait_slot[4], 2);
    tick(10);
    EXPECT_EQ(script::wait_pending[4], 0);
    EXPECT_EQ(script::waiting[4], 1);
    EXPECT_EQ(pan_x, 0);
    EXPECT_EQ(times_logged("scribe command = 3"), 1);  // when it begins, not while it waits
    actor::BEHAVIOR[9][2] = BEHAVIOR_NONE;
    EXPECT_EQ(ticks_to_scroll(5), 2);
    EXPECT_EQ(script::wait_who[4], -1);
    EXPECT_EQ(script::wait_slot[4], -1);
}

TEST_F(ScriptsTest, FadesItsOwnerOrTheActorOfAVariableAndWaitsForIt) {
    for (const int who : {5, 6}) {
        actor::Type[at(who)] = ACTOR_SPRITE;
        actor::Mode[at(who)] = ACTOR_DRAWN;
    }
    start(1, compiled("[60] -1 1 0 [60] 8 0 7 [03] [22] 5 5 [60] 9 1 0 [60] 99 1 0"));
    script::vars[1][8] = 6;
    script::vars[1][9] = 50;
    tick(3);
    EXPECT_EQ(actor::BEHAVIOR[5][0], BEHAVIOR_TRUE_FADE);
    EXPECT_EQ(actor::Opacity[5], 1);
    EXPECT_EQ(actor::Behavior_param[5][0][0], 2);
    EXPECT_EQ(actor::Opacity[6], 254);
    EXPECT_EQ(actor::Behavior_delay[6][0], 7);
    EXPECT_EQ(actor::Behavior_param[6][0][0], -2);
    EXPECT_EQ(Last_who, 6);
    EXPECT_EQ(Last_slot, 0);
    EXPECT_EQ(script::waiting[1], 1);
    actor::BEHAVIOR[6][0] = BEHAVIOR_NONE;
    EXPECT_EQ(ticks_to_scroll(5), 2);
    tick(2);
    EXPECT_EQ(times_logged("[ ERROR ] : Script names an invalid object. Object = 50"), 1);
    EXPECT_EQ(times_logged("[ ERROR ] : Script variable out of range! Variable = 99"), 1);
}

TEST_F(ScriptsTest, AFadeThatDoesNotBeginIsNotWaitedFor) {
    for (auto& behavior : actor::BEHAVIOR[5]) behavior = BEHAVIOR_BLINK;
    const std::pair<const char*, const char*> cases[] = {
        {"[60] -1 1 0 [03] [22] 5 5", "[ ERROR ] : Couldn't locate free behavior when fading actor!"},
        {"[60] 8 1 0 [03] [22] 5 5", "[ ERROR ] : Script names an invalid object. Object = 50"},
        {"[60] 32 1 0 [03] [22] 5 5", "[ ERROR ] : Script variable out of range! Variable = 32"},
    };
    for (const auto& [text, line] : cases) {
        pan_x = 0;
        start(1, compiled(text));
        script::vars[1][8] = 50;
        EXPECT_LE(ticks_to_scroll(5), 4) << text;
        EXPECT_EQ(times_logged(line), 1) << text;
    }
}

TEST_F(ScriptsTest, AScriptEndsWithItsOwner) {
    for (const int slot : {1, 2}) start(slot, compiled("[02] 30 [22] 5 5"));
    script::owner[2] = 6;
    UA_destroy_actor(5, "test");
    EXPECT_EQ(script::active[1], 0);
    EXPECT_EQ(script::active[2], 1);
    UA_destroy_actor(5, "test");
    EXPECT_EQ(times_logged("[ INFO ] : A script ended with its owner. Slot = 1"), 1);
}

TEST_F(ScriptsTest, OpensABubbleOverItsOwner) {
    Controlled_actor = 12;
    start(1, "\x2A" + arg(1) + arg(30) + string("HELLO") + compiled("[21] 0 [21] -1"));
    tick();
    EXPECT_EQ(bubble::owner[1], 5);
    EXPECT_EQ(bubble::hold[1], 30);
    EXPECT_EQ(bubble::letter_count[1], 5);
    EXPECT_EQ(bubble::letters[1][4], 'O');
    EXPECT_EQ(times_logged(">> found quote mark at offset = 10"), 1);
    tick();
    EXPECT_EQ(script_camera, 12);
    tick();
    EXPECT_EQ(script_camera, -1);
}

TEST_F(ScriptsTest, AStringThatIsNoneOpensNoBubbleAndIsSteppedOver) {
    struct Case {
        std::string code, line;
    };
    const Case cases[] = {
        {"\x2A" + arg(1), "[ ERROR ] : PROBLEMS PROCESSING SCRIPT STRING! offset = 5"},
        {"\x2A\xF1\"AB", "[ ERROR ] : PROBLEMS PROCESSING SCRIPT STRING! offset = 5"},
        {"\x2A" + string(std::string(300, 'A')), "[ ERROR ] : PROBLEMS TRANSFERRING SCRIPT STRING! offset = 302"},
    };
    for (const Case& c : cases) {
        start(1, c.code);
        tick();
        EXPECT_EQ(times_logged(c.line), 1 + (&c == &cases[1] ? 1 : 0)) << c.line;
        EXPECT_EQ(script::pc[1], c.code.size() == 5 && c.code[1] == '\xF2' ? 5 : 1);
    }
    EXPECT_EQ(bubble::owner[1], bubble_free);
    start(1, "\x2A" + string(std::string(299, 'A')));
    tick();
    EXPECT_EQ(bubble::letter_count[1], 299);
}

TEST_F(ScriptsTest, TenArgumentsStandAndTheRestAreCommands) {
    std::string code = "\x0C";
    for (int i = 1; i <= 11; ++i) code += arg(i);
    start(1, code);
    tick();
    EXPECT_EQ(script::args[1][9], 10);
    EXPECT_EQ(times_logged("[ ERROR ] : MAXIMUM NUMBER OF SCRIPT ARGUMENTS EXCEEDED! Offset = 41"), 1);
    EXPECT_EQ(script::pc[1], 41);
}

TEST_F(ScriptsTest, TheGuardStopsTheSlotAndEndsTheTick) {
    start(1, std::string(5000, '\xC8'));
    tick(1000);
    EXPECT_EQ(script::active[1], 1);
    start(2, compiled("[22] 5 5"));
    ripple::active[0] = 1;
    tick();
    EXPECT_EQ(script::active[1], 0);
    EXPECT_EQ(pan_x, 0);
    EXPECT_EQ(ripple::counter[0], 0);
    tick(50);
    EXPECT_EQ(pan_x, 5);
    EXPECT_EQ(times_logged("[ ERROR ] : Infinite loop encountered in script slot 1"), 1);
}

TEST_F(ScriptsTest, RipplesAreReadyWhenTheirTimeIsOver) {
    ripple::active[1] = 1;
    ripple::limit[1] = 3;
    tick(3);
    EXPECT_EQ(ripple::ready[1], 0);
    tick();
    EXPECT_EQ(ripple::ready[1], 1);
    EXPECT_EQ(ripple::counter[0], 0);
}

/// Bytes that are likely to mean something, in any order.
std::string hostile_code() {
    constexpr std::string_view bytes =
        "\x02\x03\x0a\x0c\x14\x15\x16\x29\x2a\x3c\x46\x47\xf1\xf2\xf2\xf2\"\"\x01\x7f\xef";
    std::string code;
    const int size = 1 + UA_random(3000);
    for (int i = 0; i < size; ++i) {
        const bool any = UA_random(3) == 0;
        code += any ? static_cast<char>(UA_random(256)) : bytes[static_cast<std::size_t>(UA_random(21))];
    }
    return code;
}

TEST_F(ScriptsTest, HostileBytesStayInTheirSlot) {
    for (int round = 0; round < 20; ++round) {
        for (int slot = 0; slot < script_slots; slot += 2) start(slot, hostile_code());
        for (int i = 0; i < 300; ++i) {
            tick();
            if (i % 20 == 0) UA_run_jobs();
            for (auto& pause : script::pause) pause = static_cast<std::int16_t>(std::min<int>(pause, 3));
        }
        for (int slot = 0; slot < script_slots; ++slot) {
            EXPECT_EQ(script::active[at(slot)] != 0 && (slot % 2 != 0 || script::pc[at(slot)] > 1000), false) << slot;
            EXPECT_EQ(slot % 2 != 0 && script::code[at(slot)][0] != 0, false) << slot;
        }
        for (int slot = 0; slot < job_slots; ++slot) UA_clear_job(slot);
        for (int who = 1; who < actor_last; ++who) UA_destroy_actor(who, "test");
    }
}

}  // namespace
}  // namespace nubo
