// Writing a GIF: the bitmap brought to 256 colours, the few fixed blocks, the indexes encoded.
#include "base/bitmap.h"
#include "codecs/gif.h"
#include "codecs/gif_lzw.h"
#include "codecs/reduce_colors.h"

#include <memory>
#include <new>

namespace nubo {
namespace {

constexpr int largest_side = 65535;  // the format's words
constexpr int palette_entries = 256;
constexpr std::uint8_t index_bits = 8;

// ---- To 256 colours ------------------------------------------------------------------------------------------------

/// The distance of two colours of 5 bits a channel, by the weights of Allegro's own lookup.
int color_distance(int red, int green, int blue) {
    constexpr int red_weight = 30 * 30, green_weight = 59 * 59, blue_weight = 11 * 11;
    return red_weight * red * red + green_weight * green * green + blue_weight * blue * blue;
}

/// Allegro keeps entry 0 for what is transparent and gives it to no other colour. In our files it is a colour like the
/// others, and often the picture's first: here it gets back the colours that it is nearest to.
void admit_entry_zero(RGB_MAP& map, const RGB* palette) {
    const auto distance_to = [&](const RGB& entry, int r, int g, int b) {
        return color_distance(entry.r / 2 - r, entry.g / 2 - g, entry.b / 2 - b);
    };
    for (int r = 0; r < 32; ++r)
        for (int g = 0; g < 32; ++g)
            for (int b = 0; b < 32; ++b) {
                unsigned char& chosen = map.data[r][g][b];
                if (distance_to(palette[0], r, g, b) < distance_to(palette[chosen], r, g, b)) chosen = 0;
            }
}

/// The bitmap in 8 bits and in memory, null when it can't be had; `bitmap` itself is left as it is.
OwnedBitmap indexed_copy(BITMAP* bitmap, const RGB* palette) {
    OwnedBitmap copy(create_bitmap_ex(8, bitmap->w, bitmap->h));
    const std::unique_ptr<RGB_MAP> map(new (std::nothrow) RGB_MAP);
    if (!copy || !map) return nullptr;
    create_rgb_table(map.get(), palette, nullptr);
    admit_entry_zero(*map, palette);
    RGB_MAP* const map_before = rgb_map;
    rgb_map = map.get();
    select_palette(palette);
    blit(bitmap, copy.get(), 0, 0, 0, 0, bitmap->w, bitmap->h);
    unselect_palette();
    rgb_map = map_before;
    return copy;
}

/// Allegro's palette has 4 bits a channel, with 60 the brightest of 63: spread, so that white stays white.
void generate_fast_palette(BITMAP* bitmap, RGB* palette) {
    constexpr std::array<signed char, palette_entries> none_reserved{};
    constexpr int kept_bits = 4;
    generate_optimized_palette(bitmap, palette, none_reserved.data());
    for (RGB* entry = palette; entry != palette + palette_entries; ++entry)
        for (unsigned char* const channel : {&entry->r, &entry->g, &entry->b})
            *channel = static_cast<unsigned char>(*channel | *channel >> kept_bits);
}

// ---- Blocks --------------------------------------------------------------------------------------------------------

template <std::size_t count> bool write_bytes(PACKFILE* file, const std::array<std::uint8_t, count>& bytes) {
    return pack_fwrite(bytes.data(), static_cast<long>(count), file) == static_cast<long>(count);
}

constexpr std::uint8_t low(int word) { return static_cast<std::uint8_t>(word & 0xff); }
constexpr std::uint8_t high(int word) { return static_cast<std::uint8_t>(word >> 8); }

bool write_start(PACKFILE* file, int w, int h) {
    constexpr std::uint8_t screen_flags = 0x77;  // no global table, 8 bits of colour resolution
    constexpr std::uint8_t image_flags = 0x87;   // a local table of 256 entries, not interlaced
    const std::array<std::uint8_t, 13> screen{'G',     'I',    'F',     '8',          '9', 'a', low(w),
                                              high(w), low(h), high(h), screen_flags, 1,   0};
    constexpr std::array<std::uint8_t, 8> graphic_control{0x21, 0xf9, 4, 0, 0, 0, 0, 0};  // nothing transparent
    const std::array<std::uint8_t, 10> image{',', 0, 0, 0, 0, low(w), high(w), low(h), high(h), image_flags};
    return write_bytes(file, screen) && write_bytes(file, graphic_control) && write_bytes(file, image);
}

bool write_palette(PACKFILE* file, const RGB* palette) {
    std::array<std::uint8_t, 3 * palette_entries> bytes{};
    for (std::size_t i = 0; i < palette_entries; ++i) {
        bytes[3 * i] = static_cast<std::uint8_t>(palette[i].r << 2);
        bytes[3 * i + 1] = static_cast<std::uint8_t>(palette[i].g << 2);
        bytes[3 * i + 2] = static_cast<std::uint8_t>(palette[i].b << 2);
    }
    return write_bytes(file, bytes);
}

bool write_pixels(PACKFILE* file, const BITMAP* indexed) {
    const std::unique_ptr<GifEncoder> encoder(new (std::nothrow) GifEncoder(file));
    if (!encoder) return false;
    for (int y = 0; y < indexed->h; ++y) encoder->add({indexed->line[y], static_cast<std::size_t>(indexed->w)});
    return encoder->finish();
}

}  // namespace

int save_gif_pf(PACKFILE* file, BITMAP* bitmap, const RGB* palette) {
    if (bitmap == nullptr || bitmap->w > largest_side || bitmap->h > largest_side) return -1;
    if (palette == nullptr) palette = default_palette;
    const bool plain = bitmap_color_depth(bitmap) == 8 && is_memory_bitmap(bitmap);
    const OwnedBitmap copy = plain ? nullptr : indexed_copy(bitmap, palette);
    if (!plain && !copy) return -1;
    const bool written = write_start(file, bitmap->w, bitmap->h) && write_palette(file, palette) &&
                         pack_putc(index_bits, file) == index_bits && write_pixels(file, plain ? bitmap : copy.get()) &&
                         pack_putc(';', file) == ';';
    return written ? 0 : -1;
}

bool write_gif(BITMAP* bitmap, GifReduction reduction, Bytes& bytes) {
    constexpr int good_sample = 10, best_sample = 1;
    PALETTE palette;
    switch (reduction) {
    case REDUCTION_GOOD: reduce_colors_neural(bitmap, good_sample, palette); break;
    case REDUCTION_BEST:
        if (reduce_colors_exact(bitmap, palette) < 0) reduce_colors_neural(bitmap, best_sample, palette);
        break;
    case REDUCTION_FAST:
    case REDUCTION_COUNT: generate_fast_palette(bitmap, palette);
    }
    const std::size_t size_before = bytes.size();
    PACKFILE* const file = open_for_writing(bytes);
    const bool written = file != nullptr && save_gif_pf(file, bitmap, palette) == 0;
    if (file != nullptr) pack_fclose(file);
    if (!written) bytes.resize(size_before);
    return written;
}

int save_gif(const char* path, BITMAP* bitmap, const RGB* palette) {
    if (bitmap == nullptr) return -1;  // before a file is made
    PACKFILE* const file = pack_fopen(path, "w");
    if (file == nullptr) return -1;
    const int result = save_gif_pf(file, bitmap, palette);
    return pack_fclose(file) == 0 ? result : -1;  // its last bytes may fail
}

void register_gif() { register_bitmap_file_type("gif", load_gif, save_gif); }

}  // namespace nubo
