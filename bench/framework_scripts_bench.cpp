// A tick of the script interpreter: without a script, with 20 that sleep, wait or run a command each; and beside it
// what their lines in the log would take one by one.
#include "base/log.h"
#include "game/actors.h"
#include "game/script_tick.h"
#include "game/scripts.h"
#include "state/run.h"

#include <benchmark/benchmark.h>
#include <filesystem>

namespace nubo {
namespace {

/// The log leads nowhere, but by the same way.
void log_to_nowhere() {
    const std::filesystem::path before = std::filesystem::current_path();
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "nubo-bench-log";
    std::filesystem::create_directory(folder);
    std::filesystem::current_path(folder);
    UA_log_reset();
    UA_log_open();
    std::filesystem::current_path(before);
}

void start_scripts(int count, int command) {
    log_to_nowhere();
    UA_initialize_actors();
    handlers_locked = 0;
    for (int slot = 0; slot < count; ++slot) {
        UA_reset_script(slot);
        for (auto& cell : script::code[at(slot)]) cell = static_cast<std::int16_t>(command);
        script::active[at(slot)] = 1;
    }
}

void run_ticks(benchmark::State& state) {
    for (auto _ : state) {
        UA_script_tick();
        for (Shared<int>& pc : script::pc) pc = 0;
    }
    UA_log_close();
    for (Shared<int>& active : script::active) active = 0;
}

void BM_ScriptTickOfNone(benchmark::State& state) {
    start_scripts(0, 0);
    run_ticks(state);
}
BENCHMARK(BM_ScriptTickOfNone);

void BM_ScriptTickOf20Asleep(benchmark::State& state) {
    start_scripts(script_slots, SCRIPT_REMARK);
    for (auto& pause : script::pause) pause = 32'767;
    for (auto _ : state) {
        UA_script_tick();
        if (script::pause[0] == 0)
            for (auto& pause : script::pause) pause = 32'767;
    }
    for (Shared<int>& active : script::active) active = 0;
}
BENCHMARK(BM_ScriptTickOf20Asleep);

void BM_ScriptTickOf20Waiting(benchmark::State& state) {
    start_scripts(script_slots, SCRIPT_WAIT);
    actor::BEHAVIOR[7][0] = BEHAVIOR_PALETTE_CONTROL;
    for (int slot = 0; slot < script_slots; ++slot) {
        script::wait_who[at(slot)] = 7;
        script::wait_slot[at(slot)] = 0;
    }
    run_ticks(state);
    actor::BEHAVIOR[7][0] = BEHAVIOR_NONE;
}
BENCHMARK(BM_ScriptTickOf20Waiting);

/// Each is at a command of no arguments, which is one line of the log.
void BM_ScriptTickOf20Commands(benchmark::State& state) {
    start_scripts(script_slots, SCRIPT_REMARK);
    run_ticks(state);
}
BENCHMARK(BM_ScriptTickOf20Commands);

void BM_20LinesOfTheLog(benchmark::State& state) {
    log_to_nowhere();
    for (auto _ : state)
        for (int i = 0; i < script_slots; ++i) UA_log("scribe command = %d", i);
    UA_log_close();
}
BENCHMARK(BM_20LinesOfTheLog);

}  // namespace
}  // namespace nubo
