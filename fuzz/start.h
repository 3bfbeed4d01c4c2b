#pragma once

namespace nubo {

/// Starts Allegro without a display; returns 0. Once, before the first input.
int start_fuzzing();

}  // namespace nubo
