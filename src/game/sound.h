#pragma once
// Playing samples. A program that wants to be heard calls Allegro's `install_sound` at its start, which the editor
// doesn't, and loads its samples by `UA_load_resource_sample` (framework/resources.h).
#include "state/sound.h"

namespace nubo {

/// Frequencies: 1000 is the sample's own pitch.
inline constexpr int pitch_own = 1000, pitch_random = -1;  // the latter somewhere from 800 to 1199
inline constexpr int volume_whole = -1;

/// Plays an effect at `sfx_volume` less the slot's gain, of which `volume` is a percentage or `volume_whole`. Nothing
/// is played of a slot that has sounded since the last sound tick; a slot out of range or empty is logged. Main flow.
void sfx_play(int slot, int frequency, int volume);

/// Plays an effect in `delay` framework ticks of 45 Hz. The job's slot, or -1 after a line in the log. Both flows.
int UA_queue_sfx(int slot, int frequency, int delay);

/// Plays a sample at `music_volume` and its own pitch. What `play_sample` returns: the voice, negative when there is
/// none; -1 after a line in the log when the slot is out of range or empty. Main flow.
int music_play(int slot);

/// The sound tick, 5 Hz: what has sounded may sound again. Timer handler.
void UA_sound_tick();

/// Takes the place of Allegro's `play_sample`; null goes back to it. For tests, which listen here.
using SamplePlayer = int (*)(const SAMPLE* sample, int volume, int pan, int frequency, int loop);
void set_sample_player(SamplePlayer player);

}  // namespace nubo
