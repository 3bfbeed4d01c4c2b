#include "game/script_commands.h"

#include "base/jobs.h"
#include "game/actors.h"
#include "game/bubbles.h"
#include "game/script_log.h"
#include "game/scripts.h"
#include "state/view.h"
#include <algorithm>
#include <string_view>

namespace nubo {
namespace {

int argument(int slot, int index) { return script::args[at(slot)][at(index)]; }

// ---- Reading -------------------------------------------------------------------------------------------------------

/// The arguments behind the command; `pc` goes on to the last cell of the last one.
void read_arguments(int slot) {
    constexpr int cells = 4, negative = 1;  // of an argument: its mark, the sign, high, low
    const std::size_t s = at(slot);
    for (auto& argument : script::args[s]) argument = 0;
    int count = 0;
    for (int from = script::pc[s] + 1; UA_script_cell(slot, from) == SCRIPT_ARGUMENT; from += cells) {
        if (count == script_args) {
            log_script_line("[ ERROR ] : MAXIMUM NUMBER OF SCRIPT ARGUMENTS EXCEEDED! Offset = %d", from);
            return;
        }
        const int size = UA_script_cell(slot, from + 2) * 256 + UA_script_cell(slot, from + 3);
        const auto value = static_cast<std::int16_t>(UA_script_cell(slot, from + 1) == negative ? -size : size);
        log_script_line("script arg found! value = %d", int{value});
        script::args[s][at(count++)] = value;
        script::pc[s] += cells;
    }
}

/// The first quote among the cells from `first` to `last`. -1, after a line in the log, when the code ends before it or
/// there is none.
int find_quote(int slot, int first, int last) {
    for (int cell = first; cell <= last; ++cell) {
        const int value = UA_script_cell(slot, cell);
        if (value == script_quote) return cell;
        if (value == SCRIPT_END) {
            log_script_line("[ ERROR ] : PROBLEMS PROCESSING SCRIPT STRING! offset = %d", cell);
            return -1;
        }
    }
    log_script_line("[ ERROR ] : PROBLEMS TRANSFERRING SCRIPT STRING! offset = %d", last);
    return -1;
}

/// The string behind the arguments becomes the slot's text, and `pc` goes on to its closing quote. False, with both as
/// they were, when there is none that fits.
bool read_string(int slot) {
    const std::size_t s = at(slot);
    const int open = find_quote(slot, script::pc[s] + 1, script_cells);
    if (open < 0) return false;
    log_script_line(">> found quote mark at offset = %d", open);
    const int close = find_quote(slot, open + 1, open + script_text_size);
    if (close < 0) return false;
    const int length = close - open - 1;
    for (int i = 0; i < length; ++i) script::text[s][at(i)] = static_cast<char>(UA_script_cell(slot, open + 1 + i));
    script::text[s][at(length)] = '\0';
    script::pc[s] = close;
    return true;
}

/// A variable by the number that a script gives; null, after a line in the log, when it has no such variable.
Shared<std::uint8_t>* find_variable(int slot, int number) {
    if (number >= 0 && number < script_vars) return &script::vars[at(slot)][at(number)];
    log_script_line("[ ERROR ] : Script variable out of range! Variable = %d", number);
    return nullptr;
}

// ---- Commands ------------------------------------------------------------------------------------------------------

ScriptTick go_on(int /*slot*/) { return TICK_GOES_ON; }

ScriptTick sleep_for_ticks(int slot) {
    script::pause[at(slot)] = static_cast<std::int16_t>(argument(slot, 0));
    return TICK_GOES_ON;
}

ScriptTick begin_to_wait(int slot) {
    wait_for_behavior(slot);
    return TICK_GOES_ON;
}

/// The first argument is dropped.
ScriptTick queue_job(int slot, JobType type) {
    const std::array<int, job_arguments> arguments{argument(slot, 1), argument(slot, 2), argument(slot, 3),
                                                   argument(slot, 4)};
    const int taken = fill_job_slot(type, arguments, slot, 0);
    if (taken < 0) {
        log_script_line("[ ERROR ] : Ran out of job queue slots inside script! Job = %d", int{type});
        return TICK_ENDS;
    }
    script::last_job[at(slot)] = taken;
    return TICK_GOES_ON;
}
ScriptTick queue_wait(int slot) { return queue_job(slot, JOB_SCRIPT_WAIT); }
ScriptTick queue_game(int slot) { return queue_job(slot, JOB_SCRIPT); }

ScriptTick turn_camera(int slot) {
    script_camera = argument(slot, 0) == actor_none ? actor_none : int{Controlled_actor};
    return TICK_GOES_ON;
}

ScriptTick scroll_view(int slot) {
    pan_x = argument(slot, 0);
    pan_y = argument(slot, 1);
    return TICK_GOES_ON;
}

ScriptTick open_bubble(int slot) {
    constexpr int hold = 1;
    if (!read_string(slot)) return TICK_GOES_ON;
    std::array<char, script_text_size> text{};
    std::copy(script::text[at(slot)].begin(), script::text[at(slot)].end(), text.begin());
    flush_script_lines();
    UA_spawn_bubble(script::owner[at(slot)], argument(slot, hold), text.data());
    return TICK_GOES_ON;
}

/// The actor that the command names; -1 after a line in the log when that is none.
int named_actor(int slot, int variable) {
    constexpr int owner = -1;
    const Shared<std::uint8_t>* const held = variable == owner ? nullptr : find_variable(slot, variable);
    if (variable != owner && held == nullptr) return actor_none;
    const int who = held == nullptr ? int{script::owner[at(slot)]} : int{*held};
    if (who >= 0 && who < actor_count) return who;
    log_script_line("[ ERROR ] : Script names an invalid object. Object = %d", who);
    return actor_none;
}

ScriptTick fade_actor(int slot) {
    constexpr int variable = 0, up = 1, delay = 2, step = 2;
    const int who = named_actor(slot, argument(slot, variable));
    flush_script_lines();
    const int behavior_slot =
        who == actor_none ? -1 : UA_fade_actor(who, argument(slot, up), step, argument(slot, delay));
    if (behavior_slot < 0) {  // the log has a line; a wait behind it would last for ever
        tell_script_of_no_object(slot);
        return TICK_GOES_ON;
    }
    Last_slot = object_unknown;
    Last_who = who;
    Last_slot.publish(behavior_slot);
    tell_script_of_last_object(slot);
    return TICK_GOES_ON;
}

ScriptTick keep_job(int slot, int variable) {
    if (variable == -1) return TICK_GOES_ON;
    if (Shared<std::uint8_t>* const kept = find_variable(slot, variable))
        *kept = static_cast<std::uint8_t>(script::last_job[at(slot)]);
    return TICK_GOES_ON;
}
ScriptTick keep_job_fifth(int slot) { return keep_job(slot, argument(slot, 4)); }
ScriptTick keep_job_seventh(int slot) { return keep_job(slot, argument(slot, 6)); }

ScriptTick stop_script(int slot) {
    script::active[at(slot)] = 0;
    return TICK_GOES_ON;
}

struct CommandRow {
    int number;  // a ScriptCommand, or the byte that ends a script
    bool has_arguments;
    ScriptTick (*run)(int slot);
};
constexpr std::array<CommandRow, 14> command_rows{{
    {SCRIPT_PAUSE, true, sleep_for_ticks},
    {SCRIPT_WAIT, false, begin_to_wait},
    {SCRIPT_QUEUE_WAIT, true, queue_wait},
    {SCRIPT_REMARK, true, go_on},
    {SCRIPT_QUEUE_GAME, true, queue_game},
    {SCRIPT_CAMERA, true, turn_camera},
    {SCRIPT_SCROLL, true, scroll_view},
    {SCRIPT_REMARK_2, true, go_on},
    {SCRIPT_BUBBLE, true, open_bubble},
    {SCRIPT_FADE, true, fade_actor},
    {SCRIPT_KEEP_JOB, true, keep_job_fifth},
    {SCRIPT_KEEP_JOB_2, true, keep_job_seventh},
    {SCRIPT_STOP, false, stop_script},
    {SCRIPT_END, false, stop_script},
}};

bool behavior_runs(int who, int slot) {
    const bool is_there = who >= 0 && who < actor_count && slot >= 0 && slot < behavior_slots;
    return is_there && actor::BEHAVIOR[at(who)][at(slot)] != BEHAVIOR_NONE;
}

}  // namespace

void wait_for_behavior(int slot) {
    const std::size_t s = at(slot);
    const int behavior_slot = script::wait_slot[s].acquire(), who = script::wait_who[s];
    const bool is_told = who != object_unknown && behavior_slot != object_unknown;
    const bool is_running = is_told && behavior_runs(who, behavior_slot);
    if (is_told && !is_running) script::wait_who[s] = script::wait_slot[s] = object_unknown;
    script::wait_pending[s] = is_told ? 0 : 1;
    script::waiting[s] = is_running ? 1 : 0;
}

ScriptTick run_script_command(int slot) {
    const int number = UA_script_cell(slot, script::pc[at(slot)]);
    log_script_line("scribe command = %d", number);
    const auto row = std::find_if(command_rows.begin(), command_rows.end(),
                                  [=](const CommandRow& one) { return one.number == number; });
    if (row == command_rows.end()) return TICK_GOES_ON;
    if (row->has_arguments) read_arguments(slot);
    return row->run(slot);
}

}  // namespace nubo
