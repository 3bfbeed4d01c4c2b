// Any bytes, unpacked as a container; and packed, which must come back.
#include "framework/packer.h"
#include "fuzz/start.h"

#include <cstdlib>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::uint8_t> bytes(data, data + size);
    nubo::unpack_bytes(bytes);
    const auto packed = nubo::pack_bytes(bytes);
    if (packed && nubo::unpack_bytes(*packed) != bytes) std::abort();
    return 0;
}
