// Reading a picture from a GIF: its blocks up to the first image, which is brought to the depth asked for.
#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/gif.h"
#include "codecs/gif_blocks.h"

#include <algorithm>
#include <allegro/internal/aintern.h>

namespace nubo {
namespace {

/// Makes index 0 the transparent one: it and the file's change places.
void move_transparency_to_zero(GifFile& gif, BITMAP* bitmap) {
    gif.palette[static_cast<std::size_t>(gif.transparent)] = gif.palette[0];
    const std::uint8_t transparent = static_cast<std::uint8_t>(gif.transparent);
    for (int y = 0; y < bitmap->h; ++y)
        for (int x = 0; x < bitmap->w; ++x) {
            std::uint8_t& index = bitmap->line[y][x];
            index = index == transparent ? 0 : index == 0 ? transparent : index;
        }
}

OwnedBitmap convert_bitmap(GifFile& gif, OwnedBitmap indexed) {
    const int depth = _color_load_depth(8, 0);
    if (depth == 8) return indexed;
    OwnedBitmap bitmap(create_bitmap_ex(depth, gif.shown_w, gif.shown_h));
    if (!bitmap) return nullptr;
    select_palette(gif.palette.data());
    if (gif.transparent != gif_no_transparency) {
        clear_to_color(bitmap.get(), makecol_depth(depth, 255, 0, 255));
        draw_sprite(bitmap.get(), indexed.get(), 0, 0);
    } else {
        blit(indexed.get(), bitmap.get(), 0, 0, 0, 0, gif.shown_w, gif.shown_h);
    }
    unselect_palette();
    return bitmap;
}

/// The image in its exact colours, and with its alpha if the file tells what is transparent.
OwnedBitmap colors_of_indexes(GifFile& gif, BITMAP* indexed) {
    constexpr Color color_bits = 0xffffff, whole_alpha = ~color_bits;
    if (gif.transparent != gif_no_transparency) {
        for (Color& color : gif.colors) color |= whole_alpha;
        gif.colors[static_cast<std::size_t>(gif.transparent)] &= color_bits;
    }
    OwnedBitmap bitmap = make_uncleared_bitmap(indexed->w, indexed->h);
    for (int y = 0; bitmap && y < bitmap->h; ++y)
        std::transform(indexed->line[y], indexed->line[y] + indexed->w, pixels_at(bitmap.get(), 0, y),
                       [&](std::uint8_t index) { return gif.colors[index]; });
    return bitmap;
}

OwnedBitmap read_image(GifFile& gif) {
    if (!read_gif_start(gif) || !find_gif_image(gif) || !read_gif_descriptor(gif)) return nullptr;
    if (gif.shown_w < 1 || gif.shown_h < 1) return nullptr;
    OwnedBitmap bitmap = read_gif_pixels(gif);
    if (!bitmap) return nullptr;
    if (gif.is_plain) return colors_of_indexes(gif, bitmap.get());
    if (gif.transparent > 0) move_transparency_to_zero(gif, bitmap.get());
    return convert_bitmap(gif, std::move(bitmap));
}

}  // namespace

BITMAP* load_gif_pf(PACKFILE* file, RGB* palette) {
    GifFile gif{file};
    if (palette != nullptr) std::copy_n(palette, gif_palette_entries, gif.palette.begin());
    OwnedBitmap bitmap = read_image(gif);
    if (bitmap && palette != nullptr) std::copy(gif.palette.begin(), gif.palette.end(), palette);
    return bitmap.release();
}

ReadPicture read_gif(FileBytes bytes) {
    PACKFILE* const file = open_for_reading(bytes);
    if (file == nullptr) return {nullptr, "there isn't memory enough"};
    GifFile gif{.file = file, .is_plain = true};
    OwnedBitmap bitmap = read_image(gif);
    const bool alpha = gif.transparent != gif_no_transparency;
    ReadPicture picture = plain_picture(std::move(bitmap), "it is no GIF file, or is damaged", alpha);
    while (picture.bitmap && find_gif_image(gif) && skip_gif_image(file)) ++picture.loss.images;
    pack_fclose(file);
    return picture;
}

BITMAP* load_gif(const char* path, RGB* palette) {
    PACKFILE* const file = pack_fopen(path, "r");
    if (file == nullptr) return nullptr;
    BITMAP* const bitmap = load_gif_pf(file, palette);
    pack_fclose(file);
    return bitmap;
}

}  // namespace nubo
