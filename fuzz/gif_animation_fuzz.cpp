// Any bytes, read as an animated GIF.
#include "codecs/gif_animation.h"
#include "fuzz/start.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing();
    nubo::read_gif_animation({data, size}, nubo::take_some_pictures());
    return started;
}
