#pragma once
// What the fuzzers share.
#include "codecs/animation.h"
#include <cstddef>
#include <cstdint>
#include <string>

namespace nubo {

/// Starts Allegro without a display; returns 0. Once, before the first input.
int start_fuzzing();

/// Writes an input to a file, for readers that take a path, which it returns. No log is opened: its lines go to
/// standard error, which `-close_fd_mask=2` keeps quiet.
std::string put_in_file(const std::uint8_t* data, std::size_t size);

/// Takes pictures until they cost the fuzzer more than they find, and breaks on one that isn't whole.
TakePicture take_some_pictures();

}  // namespace nubo

/// Called by libFuzzer with each input; each fuzzer defines it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
