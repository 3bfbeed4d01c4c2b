// Writing a GIF: the bitmap brought to 256 colours, the few fixed blocks, the indexes encoded.
#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/gif.h"
#include "codecs/gif_lzw.h"
#include "codecs/reduce_colors.h"
#include "codecs/rgb_rows.h"

#include <climits>
#include <memory>
#include <new>

namespace nubo {
namespace {

constexpr int largest_side = 65535;  // the format's words
constexpr int palette_entries = 256;
constexpr std::uint8_t index_bits = 8;

// ---- To 256 colours ------------------------------------------------------------------------------------------------

/// Allegro's 6 bits of each channel spread over 8, so that white stays white.
ExactPalette widened(const RGB* palette) {
    const auto eight_bits = [](int component) { return component << 2 | component >> 4; };
    ExactPalette colors{};
    for (std::size_t i = 0; i < colors.size(); ++i)
        colors[i] = pack_color(eight_bits(palette[i].r), eight_bits(palette[i].g), eight_bits(palette[i].b));
    return colors;
}

/// Finds a palette's entry that is nearest to a colour, by the weights of Allegro's own lookup: the first of the
/// nearest, so the colour itself where the palette has it. A colour met before is found at once as a rule.
class NearestEntry {
public:
    explicit NearestEntry(const ExactPalette& palette) : palette_(palette) { colors_.fill(no_color); }

    std::uint8_t operator()(Color color) {
        const std::size_t at = color * 2654435761U >> (32 - hash_bits);  // Knuth's multiplicative hash
        if (colors_[at] != color) {
            colors_[at] = color;
            entries_[at] = search(color);
        }
        return entries_[at];
    }

private:
    static constexpr int hash_bits = 12;
    static constexpr Color no_color = ~Color{0};

    static int distance(Color a, Color b) {
        const int red = 30 * (red_of(a) - red_of(b)), green = 59 * (green_of(a) - green_of(b)),
                  blue = 11 * (blue_of(a) - blue_of(b));
        return red * red + green * green + blue * blue;
    }

    std::uint8_t search(Color color) const {
        std::size_t nearest = 0;
        int least = INT_MAX;
        for (std::size_t i = 0; i < palette_.size() && least > 0; ++i)
            if (const int away = distance(palette_[i], color); away < least) {
                least = away;
                nearest = i;
            }
        return static_cast<std::uint8_t>(nearest);
    }

    const ExactPalette& palette_;
    std::array<Color, 1 << hash_bits> colors_{};
    std::array<std::uint8_t, 1 << hash_bits> entries_{};
};

/// The 32-bit bitmap in 8 bits, null when it can't be had; `bitmap` itself is left as it is.
OwnedBitmap indexed_copy(BITMAP* bitmap, const ExactPalette& palette) {
    constexpr Color color_bits = 0xffffff;
    OwnedBitmap copy(create_bitmap_ex(8, bitmap->w, bitmap->h));
    NearestEntry nearest(palette);
    for (int y = 0; copy && y < bitmap->h; ++y) {
        const Color* const pixels = pixels_at(bitmap, 0, y);
        for (int x = 0; x < bitmap->w; ++x) copy->line[y][x] = nearest(pixels[x] & color_bits);
    }
    return copy;
}

/// The same of a bitmap of any depth and place.
OwnedBitmap indexed_copy(BITMAP* bitmap, const RGB* palette) {
    if (bitmap_color_depth(bitmap) == 32 && is_memory_bitmap(bitmap)) return indexed_copy(bitmap, widened(palette));
    const OwnedBitmap plain = make_uncleared_bitmap(bitmap->w, bitmap->h);
    if (!plain) return nullptr;
    select_palette(palette);
    blit(bitmap, plain.get(), 0, 0, 0, 0, bitmap->w, bitmap->h);
    unselect_palette();
    return indexed_copy(plain.get(), widened(palette));
}

/// Allegro's palette has 4 bits a channel, with 60 the brightest of 63: spread, so that white stays white.
ExactPalette fast_palette(BITMAP* bitmap) {
    constexpr std::array<signed char, palette_entries> none_reserved{};
    constexpr int kept_bits = 4;
    PALETTE palette;
    generate_optimized_palette(bitmap, palette, none_reserved.data());
    for (RGB& entry : palette)
        for (unsigned char* const channel : {&entry.r, &entry.g, &entry.b})
            *channel = static_cast<unsigned char>(*channel | *channel >> kept_bits);
    return widened(palette);
}

/// The picture's own colours where 256 hold them; else as `reduction` says.
ExactPalette palette_of(BITMAP* bitmap, GifReduction reduction) {
    constexpr int good_sample = 10, best_sample = 1;
    ExactPalette palette{};
    if (reduce_colors_exact(bitmap, palette) >= 0) return palette;
    switch (reduction) {
    case REDUCTION_GOOD: reduce_colors_neural(bitmap, good_sample, palette); break;
    case REDUCTION_BEST: reduce_colors_neural(bitmap, best_sample, palette); break;
    case REDUCTION_FAST:
    case REDUCTION_COUNT: return fast_palette(bitmap);
    }
    return palette;
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

/// The bytes of a colour table.
using ColorTable = std::array<std::uint8_t, 3 * palette_entries>;

ColorTable table_of(const RGB* palette) {
    ColorTable bytes{};
    for (std::size_t i = 0; i < palette_entries; ++i) {
        bytes[3 * i] = static_cast<std::uint8_t>(palette[i].r << 2);
        bytes[3 * i + 1] = static_cast<std::uint8_t>(palette[i].g << 2);
        bytes[3 * i + 2] = static_cast<std::uint8_t>(palette[i].b << 2);
    }
    return bytes;
}

ColorTable table_of(const ExactPalette& palette) {
    ColorTable bytes{};
    pack_row(palette.data(), bytes.data(), palette_entries, BYTES_RGB);
    return bytes;
}

bool write_pixels(PACKFILE* file, const BITMAP* indexed) {
    const std::unique_ptr<GifEncoder> encoder(new (std::nothrow) GifEncoder(file));
    if (!encoder) return false;
    for (int y = 0; y < indexed->h; ++y) encoder->add({indexed->line[y], static_cast<std::size_t>(indexed->w)});
    return encoder->finish();
}

bool write_image(PACKFILE* file, const BITMAP* indexed, const ColorTable& table) {
    return write_start(file, indexed->w, indexed->h) && write_bytes(file, table) &&
           pack_putc(index_bits, file) == index_bits && write_pixels(file, indexed) && pack_putc(';', file) == ';';
}

bool can_hold(const BITMAP* bitmap) { return bitmap->w <= largest_side && bitmap->h <= largest_side; }

}  // namespace

int save_gif_pf(PACKFILE* file, BITMAP* bitmap, const RGB* palette) {
    if (bitmap == nullptr || !can_hold(bitmap)) return -1;
    if (palette == nullptr) palette = default_palette;
    const bool plain = bitmap_color_depth(bitmap) == 8 && is_memory_bitmap(bitmap);
    const OwnedBitmap copy = plain ? nullptr : indexed_copy(bitmap, palette);
    if (!plain && !copy) return -1;
    return write_image(file, plain ? bitmap : copy.get(), table_of(palette)) ? 0 : -1;
}

bool write_gif(BITMAP* bitmap, GifReduction reduction, Bytes& bytes) {
    if (!can_hold(bitmap)) return false;
    const ExactPalette palette = palette_of(bitmap, reduction);
    const OwnedBitmap indexed = indexed_copy(bitmap, palette);
    const std::size_t size_before = bytes.size();
    PACKFILE* const file = indexed ? open_for_writing(bytes) : nullptr;
    const bool written = file != nullptr && write_image(file, indexed.get(), table_of(palette));
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
