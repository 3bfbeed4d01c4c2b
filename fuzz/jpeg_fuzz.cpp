// Any bytes, read as a JPEG.
#include "codecs/jpeg.h"
#include "fuzz/start.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing();
    nubo::read_jpeg({data, size});
    return started;
}
