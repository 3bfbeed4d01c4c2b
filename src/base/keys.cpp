#include "base/keys.h"

#include "base/log.h"
#include "state/commands.h"
#include <algorithm>
#include <allegro.h>

namespace nubo {
namespace {

constexpr int modifier_bits = key_ctrl | key_alt | key_shift;

bool is_mapped(int key) {
    return std::ranges::any_of(hotkeys,
                               [key](const auto& row) { return row[KEY_PRIMARY] == key || row[KEY_ALTERNATE] == key; });
}

void give_default_keys(const Command& row) {
    auto& keys = hotkeys[at(row.action)];
    if (keys[KEY_PRIMARY] != 0 || keys[KEY_ALTERNATE] != 0) return;
    if (!is_mapped(row.primary)) keys[KEY_PRIMARY] = row.primary;
    if (!is_mapped(row.alternate)) keys[KEY_ALTERNATE] = row.alternate;
}

}  // namespace

int modifiers_down() {
    const auto either = [](std::size_t a, std::size_t b) { return key_down[a] != 0 || key_down[b] != 0; };
    return (either(KEY_LCONTROL, KEY_RCONTROL) ? key_ctrl : 0) | (either(KEY_ALT, KEY_ALTGR) ? key_alt : 0) |
           (either(KEY_LSHIFT, KEY_RSHIFT) ? key_shift : 0);
}

KeyState key_state(int value, int modifiers) {
    if (value <= 0) return KEY_IS_UP;
    const int code = key_code_of(value);
    if (code < 1 || code > key_code_max) {
        UA_log("[ ERROR ] : Key value OOB in hotkey check. Key = %d", code);
        return KEY_IS_BAD;
    }
    return key_down[at(code)] != 0 && (value & modifier_bits) == modifiers ? KEY_IS_DOWN : KEY_IS_UP;
}

bool hotkey_held(Hotkey action) {
    const int modifiers = modifiers_down();
    for (const auto& value : hotkeys[at(action)]) {
        const KeyState state = key_state(value, modifiers);
        if (state != KEY_IS_UP) return state == KEY_IS_DOWN;
    }
    return false;
}

void default_hotkeys() {
    for (const Command& row : commands) {
        if (row.action == HOTKEY_RAPID_EXIT) continue;
        hotkeys[at(row.action)][KEY_PRIMARY] = row.primary;
        hotkeys[at(row.action)][KEY_ALTERNATE] = row.alternate;
    }
}

void offer_new_keys(bool only_noted) {
    for (const Command& row : commands) {
        if (row.action < first_new_hotkey || (row.primary == 0 && row.alternate == 0)) continue;
        if (!hotkey_offered[at(row.action)] && !only_noted) give_default_keys(row);
        hotkey_offered[at(row.action)] = true;
    }
}

}  // namespace nubo
