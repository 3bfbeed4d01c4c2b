#pragma once
// What the fuzzers share.
#include <cstddef>
#include <cstdint>

namespace nubo {

/// Starts Allegro without a display; returns 0. Once, before the first input.
int start_fuzzing();

}  // namespace nubo

/// Called by libFuzzer with each input; each fuzzer defines it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
