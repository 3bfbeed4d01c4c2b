// Any bytes, read as an APNG.
#include "codecs/apng.h"
#include "fuzz/start.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing();
    nubo::read_apng({data, size}, nubo::take_some_pictures());
    return started;
}
