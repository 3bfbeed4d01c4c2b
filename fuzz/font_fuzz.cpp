// Any bytes, opened as a font, sized, measured and drawn in both forms.
#include "base/bitmap.h"
#include "framework/outline_font.h"
#include "fuzz/start.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing() + nubo::font_system_init();
    using namespace nubo;
    OutlineFont* const font = font_load_from_memory(data, static_cast<int>(size));
    if (font == nullptr) return started;
    font_set_convert(font, CONVERT_WIDE);
    const OwnedBitmap drawn = make_bitmap(200, 60);
    for (const int height : {12, 350}) {
        font_set_height(font, height);
        font_text_length(font, "A\xc3\xa4\xf0\x9f\x98\x80");
        font_textout(drawn.get(), font, "AB\xc3\xa4", 0, 0, 0xffffff);
        font_textout_aa(drawn.get(), font, "AB\xd0\x96", 0, 0, 0xffffff, 0);
    }
    font_destroy(font);
    return started;
}
