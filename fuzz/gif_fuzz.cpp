// Any bytes, read as a GIF: from a packfile, and as a picture.
#include "base/bitmap.h"
#include "codecs/alpha.h"
#include "codecs/gif.h"
#include "fuzz/start.h"
#include "platform/memory_packfile.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing();
    const nubo::Bytes bytes(data, data + size);
    PACKFILE* const file = nubo::open_for_reading(bytes);
    PALETTE palette;
    const nubo::OwnedBitmap picture(nubo::load_gif_pf(file, palette));
    pack_fclose(file);
    nubo::ReadPicture read = nubo::read_gif(bytes);
    nubo::settle_alpha(read, nubo::ALPHA_MASK, 0, 0);
    return started;
}
