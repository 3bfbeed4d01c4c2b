// PNG as one of Allegro's own file types.
#include "codecs/png.h"

namespace nubo {
namespace {

void* load_datafile_png(PACKFILE* file, long) { return load_png_pf(file, nullptr); }

void destroy_datafile_png(void* bitmap) { destroy_bitmap(static_cast<BITMAP*>(bitmap)); }

}  // namespace

void register_png() {
    register_bitmap_file_type("png", load_png, save_png);
    register_datafile_object(DAT_ID('P', 'N', 'G', ' '), load_datafile_png, destroy_datafile_png);
}

}  // namespace nubo
