// Any bytes, read as a PCX.
#include "codecs/pcx.h"
#include "fuzz/start.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing();
    nubo::read_pcx({data, size});
    return started;
}
