#include "game/scripts.h"

#include "base/log.h"
#include "platform/input_file.h"
#include "platform/memory_packfile.h"
#include <algorithm>
#include <optional>
#include <span>

namespace nubo {
namespace {

bool is_script_slot(int slot) { return slot >= 0 && slot < script_slots; }

using Body = std::span<const std::uint8_t>;

/// The body of the first script of that number, up to the next script or the end; nothing if there is none.
std::optional<Body> find_script(Body bytes, int number) {
    constexpr std::size_t header = 3;
    constexpr int hundreds = 100;
    for (; bytes.size() >= header; bytes = bytes.subspan(1)) {
        if (bytes[0] != SCRIPT_START || bytes[1] * hundreds + bytes[2] != number) continue;
        const Body rest = bytes.subspan(header);
        const auto end = std::find(rest.begin(), rest.end(), SCRIPT_START);
        return rest.first(static_cast<std::size_t>(end - rest.begin()));
    }
    return std::nullopt;
}

/// The last cell is left for the end.
void fill_code(int slot, Body body) {
    constexpr std::size_t most = script_cells - 1;
    if (body.size() > most) {
        UA_log("[ WARNING ] : Script is too long and was cut! Slot = %d", slot);
        body = body.first(most);
    }
    auto& code = script::code[at(slot)];
    for (std::size_t i = 0; i < body.size(); ++i) code[i] = body[i];
    code[body.size()] = SCRIPT_END;
}

}  // namespace

void UA_reset_script(int slot) {
    if (!is_script_slot(slot)) return;
    const std::size_t s = at(slot);
    script::active[s] = 0;
    script::pc[s] = script::waiting[s] = script::wait_pending[s] = 0;
    script::pause[s] = script::owner[s] = 0;
    script::wait_who[s] = script::wait_slot[s] = object_unknown;
    script::last_job[s] = -1;
    for (auto& argument : script::args[s]) argument = 0;
    for (auto& cell : script::code[s]) cell = 0;
    for (auto& variable : script::vars[s]) variable = 0;
    for (auto& character : script::text[s]) character = '\0';
}

int UA_load_script(const Folder& folder, int slot, int number) {
    constexpr int not_there = -1;
    if (!is_script_slot(slot)) {
        UA_log("[ ERROR ] : Script slot out of range! Slot = %d", slot);
        return not_there;
    }
    UA_reset_script(slot);
    script::code[at(slot)][0] = SCRIPT_END;  // one that is started although its load failed ends at once
    Bytes bytes;
    if (!read_file(folder.file(scripts_file), scripts_size_max, bytes)) {
        UA_log("[ ERROR ] : Failed to find a script file. File = %s", scripts_file);
        return not_there;
    }
    const auto body = find_script(bytes, number);
    if (!body) {
        UA_log("[ ERROR ] : Failed to find a script. Script = %d", number);
        return not_there;
    }
    fill_code(slot, *body);
    return number;
}

int UA_script_cell(int slot, int offset) {
    if (!is_script_slot(slot) || offset < 0 || offset >= script_cells) return SCRIPT_END;
    return script::code[at(slot)][at(offset)];
}

void tell_script_of_last_object(int slot) {
    if (!is_script_slot(slot)) return;
    // The tick reads the slot first: it must not find that of one object with the number of another.
    script::wait_slot[at(slot)] = object_unknown;
    script::wait_who[at(slot)] = static_cast<std::int16_t>(Last_who);
    script::wait_slot[at(slot)].publish(static_cast<std::int16_t>(Last_slot));
}

void tell_script_of_no_object(int slot) {
    if (!is_script_slot(slot)) return;
    script::wait_who[at(slot)] = script::wait_slot[at(slot)] = object_none;
}

void UA_end_scripts(int owner) {
    for (int slot = 0; slot < script_slots; ++slot)
        if (script::owner[at(slot)] == owner && script::active[at(slot)].take() != 0)
            UA_log("[ INFO ] : A script ended with its owner. Slot = %d", slot);
}

}  // namespace nubo
