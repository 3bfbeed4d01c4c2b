// Writing a GIF: the bitmap brought to 256 colours, the few fixed blocks, the indexes encoded.
#include "base/bitmap.h"
#include "codecs/clear_ground.h"
#include "codecs/gif.h"
#include "codecs/gif_lzw.h"
#include "codecs/gif_palette.h"

#include <memory>
#include <new>
#include <optional>

namespace nubo {
namespace {

constexpr int largest_side = 65535;  // the format's words
constexpr int palette_entries = 256;
constexpr std::uint8_t index_bits = 8;

// ---- To 256 colours ------------------------------------------------------------------------------------------------

/// The 32-bit bitmap in 8 bits, null when it can't be had; `bitmap` itself is left as it is. Pixels of `ground` get
/// `gif_clear_index`, which then is no other's.
OwnedBitmap indexed_copy(BITMAP* bitmap, const ExactPalette& palette, std::optional<Color> ground = std::nullopt) {
    constexpr Color color_bits = 0xffffff;
    OwnedBitmap copy(create_bitmap_ex(8, bitmap->w, bitmap->h));
    NearestEntry nearest({palette.data(), ground ? std::size_t{gif_clear_index} : palette.size()});
    const Color clear = ground ? *ground & color_bits : ~Color{0};
    for (int y = 0; copy && y < bitmap->h; ++y) {
        const Color* const pixels = pixels_at(bitmap, 0, y);
        for (int x = 0; x < bitmap->w; ++x) {
            const Color color = pixels[x] & color_bits;
            copy->line[y][x] = color == clear ? gif_clear_index : nearest(color);
        }
    }
    return copy;
}

/// The same of a bitmap of any depth and place.
OwnedBitmap indexed_copy(BITMAP* bitmap, const RGB* palette) {
    if (bitmap_color_depth(bitmap) == 32 && is_memory_bitmap(bitmap))
        return indexed_copy(bitmap, widened_palette(palette));
    const OwnedBitmap plain = make_uncleared_bitmap(bitmap->w, bitmap->h);
    if (!plain) return nullptr;
    select_palette(palette);
    blit(bitmap, plain.get(), 0, 0, 0, 0, bitmap->w, bitmap->h);
    unselect_palette();
    return indexed_copy(plain.get(), widened_palette(palette));
}

/// The picture's own colours where 256 hold them; else as `reduction` says.
ExactPalette palette_of(BITMAP* bitmap, GifReduction reduction) {
    ExactPalette palette{};
    return reduce_colors_exact(bitmap, palette) >= 0 ? palette : reduced_palette(bitmap, reduction);
}

/// The colours of a picture of which the ground is clear, the ground's last.
std::optional<ExactPalette> clear_palette_of(BITMAP* bitmap, Color ground, GifReduction reduction) {
    ExactPalette palette{};
    const OwnedBitmap rest = without_ground(bitmap, ground);
    if (!rest && count_ground(bitmap, ground) < bitmap->w * bitmap->h) return std::nullopt;
    const int colors = rest ? reduce_colors_exact(rest.get(), palette) : 0;
    if (colors < 0) palette = reduced_palette(rest.get(), reduction);
    if (colors < 0 || colors > gif_clear_index) free_last_entry(palette);
    palette[gif_clear_index] = ground;
    return palette;
}

// ---- Blocks --------------------------------------------------------------------------------------------------------

template <std::size_t count> bool write_bytes(PACKFILE* file, const std::array<std::uint8_t, count>& bytes) {
    return pack_fwrite(bytes.data(), static_cast<long>(count), file) == static_cast<long>(count);
}

constexpr std::uint8_t low(int word) { return static_cast<std::uint8_t>(word & 0xff); }
constexpr std::uint8_t high(int word) { return static_cast<std::uint8_t>(word >> 8); }

enum Transparency : std::uint8_t { NOTHING_CLEAR, LAST_INDEX_CLEAR };

bool write_start(PACKFILE* file, int w, int h, Transparency clear) {
    constexpr std::uint8_t screen_flags = 0x77;  // no global table, 8 bits of colour resolution
    constexpr std::uint8_t image_flags = 0x87;   // a local table of 256 entries, not interlaced
    const std::array<std::uint8_t, 13> screen{'G',     'I',    'F',     '8',          '9', 'a', low(w),
                                              high(w), low(h), high(h), screen_flags, 1,   0};
    const std::uint8_t index = clear == LAST_INDEX_CLEAR ? gif_clear_index : std::uint8_t{0};
    const std::array<std::uint8_t, 8> graphic_control{0x21, 0xf9, 4, clear, 0, 0, index, 0};  // its lowest flag
    const std::array<std::uint8_t, 10> image{',', 0, 0, 0, 0, low(w), high(w), low(h), high(h), image_flags};
    return write_bytes(file, screen) && write_bytes(file, graphic_control) && write_bytes(file, image);
}

GifColorTable table_of(const RGB* palette) {
    GifColorTable bytes{};
    for (std::size_t i = 0; i < palette_entries; ++i) {
        bytes[3 * i] = static_cast<std::uint8_t>(palette[i].r << 2);
        bytes[3 * i + 1] = static_cast<std::uint8_t>(palette[i].g << 2);
        bytes[3 * i + 2] = static_cast<std::uint8_t>(palette[i].b << 2);
    }
    return bytes;
}

bool write_pixels(PACKFILE* file, const BITMAP* indexed) {
    const std::unique_ptr<GifEncoder> encoder(new (std::nothrow) GifEncoder(file));
    if (!encoder) return false;
    for (int y = 0; y < indexed->h; ++y) encoder->add({indexed->line[y], static_cast<std::size_t>(indexed->w)});
    return encoder->finish();
}

bool write_image(PACKFILE* file, const BITMAP* indexed, const GifColorTable& table,
                 Transparency clear = NOTHING_CLEAR) {
    return write_start(file, indexed->w, indexed->h, clear) && write_bytes(file, table) &&
           pack_putc(index_bits, file) == index_bits && write_pixels(file, indexed) && pack_putc(';', file) == ';';
}

bool append_image(OwnedBitmap indexed, const ExactPalette& palette, Transparency clear, Bytes& bytes) {
    const std::size_t size_before = bytes.size();
    PACKFILE* const file = indexed ? open_for_writing(bytes) : nullptr;
    const bool written = file != nullptr && write_image(file, indexed.get(), gif_color_table(palette), clear);
    if (file != nullptr) pack_fclose(file);
    if (!written) bytes.resize(size_before);
    return written;
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
    return append_image(indexed_copy(bitmap, palette), palette, NOTHING_CLEAR, bytes);
}

bool write_clear_gif(BITMAP* bitmap, Color ground, GifReduction reduction, Bytes& bytes) {
    if (count_ground(bitmap, ground) == 0) return write_gif(bitmap, reduction, bytes);
    if (!can_hold(bitmap)) return false;
    const std::optional<ExactPalette> palette = clear_palette_of(bitmap, ground, reduction);
    return palette && append_image(indexed_copy(bitmap, *palette, ground), *palette, LAST_INDEX_CLEAR, bytes);
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
