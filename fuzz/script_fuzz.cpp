// Any bytes: compiled as a text of scripts, loaded as a file of them, and run as the code of one.
#include "base/jobs.h"
#include "fuzz/start.h"
#include "game/actors.h"
#include "game/game_jobs.h"
#include "game/script_compiler.h"
#include "game/script_tick.h"
#include "game/scripts.h"
#include "state/run.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace nubo {
namespace {

constexpr int by_text = 0, by_bytes = 1;  // script slots

int start_scripts() {
    UA_initialize_actors();
    install_framework_jobs();
    handlers_locked = 0;
    return start_fuzzing();
}

void load_code(int slot, const std::uint8_t* bytes, std::size_t size) {
    UA_reset_script(slot);
    const std::size_t count = std::min<std::size_t>(size, script_cells - 1);
    for (std::size_t i = 0; i < count; ++i) script::code[at(slot)][i] = bytes[i];
    script::code[at(slot)][count] = SCRIPT_END;
    script::active[at(slot)] = 1;
}

/// Nobody sleeps for long, and jobs that have no handler make room again.
void run_scripts() {
    constexpr int ticks = 200;
    for (int tick = 0; tick < ticks; ++tick) {
        UA_script_tick();
        for (const int slot : {by_text, by_bytes}) {
            script::pause[at(slot)] = static_cast<std::int16_t>(std::min<int>(script::pause[at(slot)], 1));
            if (script::active[at(slot)] != 0 && script::pc[at(slot)] > 1000) std::abort();
        }
        UA_run_jobs();
    }
    for (int slot = 0; slot < job_slots; ++slot) UA_clear_job(slot);
    UA_initialize_actors();
}

}  // namespace
}  // namespace nubo

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace nubo;
    static const int started = start_scripts();
    const std::filesystem::path file = put_in_file(data, size);
    std::filesystem::rename(file, file.parent_path() / scripts_file);
    for (const int number : {0, 101}) UA_load_script(Folder(file.parent_path()), by_bytes, number);
    const Bytes code = compile_scripts({reinterpret_cast<const char*>(data), size});
    load_code(by_text, code.data(), code.size());
    load_code(by_bytes, data, size);
    run_scripts();
    return started;
}
