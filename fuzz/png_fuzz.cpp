// Any bytes, read as a PNG: from a packfile, as a picture and as a cut-out.
#include "base/bitmap.h"
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
    nubo::read_png(bytes);
    nubo::read_cut_out_png(bytes);
    return started;
}
