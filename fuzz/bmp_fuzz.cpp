// Any bytes, read as the BMP file of a Frame.
#include "codecs/bmp_file.h"
#include "fuzz/start.h"

#include <cstdint>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing();
    nubo::read_bmp(nubo::InputFile(nubo::put_in_file(data, size)));
    return started;
}
