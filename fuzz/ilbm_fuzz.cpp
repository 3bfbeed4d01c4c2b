// Any bytes, read as an ILBM.
#include "codecs/ilbm.h"
#include "fuzz/start.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing();
    nubo::read_ilbm({data, size});
    return started;
}
