#pragma once
// The commands that have a key. Their table stands in editor/commands.cpp, above all that they run.
#include "state/flow.h"
#include "state/hotkeys.h"
#include <span>
#include <string_view>

namespace nubo {

/// WAIT_AFTER: the picture goes on, but the command rests till the key is up. REPEATS: it acts again and again till
/// then, four times a second; REPEATS_QUICKLY: twelve times.
enum KeyWait : int { NO_WAIT, WAIT_AFTER, REPEATS, REPEATS_QUICKLY };
/// IS_FREE: the command runs even while a text field has the keyboard.
enum KeyField : int { GIVES_WAY, IS_FREE };

struct Command {
    Hotkey action;
    std::string_view name;   // of a literal; in the hotkey window
    int primary, alternate;  // key values by default, 0 none
    void (*run)();           // in the main flow; of HOTKEYS_PAN on the timer thread
    KeyWait wait = NO_WAIT;
    KeyField field = GIVES_WAY;
    HotkeyMode mode = HOTKEYS_MAIN;  // which scan runs it; QUICK PAN also that of the nodes
};

/// One for each `Hotkey`, in their order; none before `hand_over_commands`. Both flows read it.
inline constinit std::span<const Command> commands{};

}  // namespace nubo
