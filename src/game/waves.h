#pragma once
// Raster waves: the rows or columns of an actor's picture swing.

namespace nubo {

/// Gives an actor a wave of its rows (h) or columns (v) and, in the behaviour `slot`, -1 for a free one, a
/// `BE_modify_variable` that moves its phase by `rate` on every tick of 140 Hz after `delay` others. Row n is moved by
/// `amplitude` pixels times the cosine of `frequency` times n plus the phase, which starts at random; 256 make a
/// circle. Callable from both flows. With all four slots taken the actor is left as it is, after a line in the log.
void UA_set_wave_h(int who, int slot, int frequency, int amplitude, int rate, int delay);
void UA_set_wave_v(int who, int slot, int frequency, int amplitude, int rate, int delay);

}  // namespace nubo
