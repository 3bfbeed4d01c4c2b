#pragma once
// Speech bubbles over actors. Callable from both flows; the table stands in state/bubbles.h.
#include "state/bubbles.h"
#include <string_view>

namespace nubo {

/// Opens a bubble over the actor `owner`, which stays `hold` ticks of 45 Hz after its last letter, or for ever with
/// `bubble_forever`. The row, 1 to 31; `bubble_none` after a line in the log when all are taken or there is no such
/// actor.
///
/// A text that begins with a backquote has one word per line. Any other is wrapped to two lines of 10 to 25 characters,
/// the narrowest that do, else to as many lines of 25 as it takes. A first word longer than 10 makes it 3 wider than
/// the word from the start; a later one longer than the widest line is cut. "^" ends a line and is logged. "|c" and two
/// digits set the colour row of the letters that follow, 0 at first, "|h" and two digits the tint of the line. What a
/// row has no room for isn't printed.
int UA_spawn_bubble(int owner, int hold, std::string_view text);

/// Frees every bubble of an actor at once.
void UA_free_bubbles(int owner);

/// The bubble tick, 45 Hz: opens, prints, holds and closes. Timer handler; does nothing while `handlers_locked` is set.
void UA_bubble_tick();

}  // namespace nubo
