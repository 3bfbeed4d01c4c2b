// Any bytes, read as a PNG: from a packfile, and as a picture by each rule of alpha.
#include "base/bitmap.h"
#include "codecs/alpha.h"
#include "codecs/png.h"
#include "fuzz/start.h"
#include "platform/memory_packfile.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing();
    const nubo::Bytes bytes(data, data + size);
    PACKFILE* const file = nubo::open_for_reading(bytes);
    PALETTE palette;
    const nubo::OwnedBitmap picture(nubo::load_png_pf(file, palette));
    pack_fclose(file);
    for (const nubo::AlphaRule rule : {nubo::ALPHA_MASK, nubo::ALPHA_FLATTEN}) {
        nubo::ReadPicture read = nubo::read_png(bytes);
        nubo::settle_alpha(read, rule, 0, 0xff00ff);
    }
    return started;
}
