// The nearest pixel is found as by A. Meijster, J. Roerdink and W. Hesselink, "A General Algorithm for Computing
// Distance Transforms in Linear Time" (2000): first within each column, then along each row, where the parabola of each
// column's distance is the lowest over a stretch of the row.
#include "codecs/clear_ground.h"

#include <algorithm>
#include <vector>

namespace nubo {
namespace {

constexpr Color color_bits = 0xffffff, whole_alpha = 0xff000000;
constexpr int no_row = -1;

bool is_ground(Color pixel, Color ground) { return ((pixel ^ ground) & color_bits) == 0; }

int* row_numbers(BITMAP* rows, int y) { return reinterpret_cast<int*>(rows->line[y]); }

/// Each pixel of `rows` becomes the number of the nearest row in which its column isn't ground.
void find_rows(BITMAP* picture, Color ground, BITMAP* rows) {
    for (int y = 0; y < picture->h; ++y) {
        const Color* const pixels = pixels_at(picture, 0, y);
        const int* const above = y > 0 ? row_numbers(rows, y - 1) : nullptr;
        int* const here = row_numbers(rows, y);
        for (int x = 0; x < picture->w; ++x)
            here[x] = !is_ground(pixels[x], ground) ? y : above != nullptr ? above[x] : no_row;
    }
    for (int y = picture->h - 2; y >= 0; --y) {
        const int* const below = row_numbers(rows, y + 1);
        int* const here = row_numbers(rows, y);
        for (int x = 0; x < picture->w; ++x)
            if (below[x] != no_row && (here[x] == no_row || below[x] - y < y - here[x])) here[x] = below[x];
    }
}

/// Which column has the nearest pixel, for each place of a row: the stretches of the row and whose they are.
class NearestColumns {
public:
    explicit NearestColumns(int width) : rows_(at(width)), columns_(at(width)), starts_(at(width)) {}

    /// For the row `y`, whose columns have their nearest pixels in `rows`.
    void set(const int* rows, int y) {
        y_ = y;
        count_ = 0;
        std::copy_n(rows, rows_.size(), rows_.begin());
        for (int x = 0; x < static_cast<int>(rows_.size()); ++x)
            if (rows_[at(x)] != no_row) add(x);
    }
    bool is_empty() const { return count_ == 0; }
    /// To be asked from the last place to the first.
    int column_of(int x) {
        while (starts_[count_ - 1] > x) --count_;
        return columns_[count_ - 1];
    }
    int row_of(int column) const { return rows_[at(column)]; }

private:
    static std::size_t at(int i) { return static_cast<std::size_t>(i); }

    long long down(int column) const {
        const long long rows = rows_[at(column)] - y_;
        return rows * rows;
    }
    long long distance(int x, int column) const {
        const long long across = x - column;
        return across * across + down(column);
    }
    /// The first place that is nearer to `right` than to `left`.
    long long place_between(long long left, long long right) const {
        const long long more =
            right * right - left * left + down(static_cast<int>(right)) - down(static_cast<int>(left));
        return more / (2 * (right - left)) + 1;
    }
    void add(int column) {
        while (count_ > 0 &&
               distance(starts_[count_ - 1], columns_[count_ - 1]) > distance(starts_[count_ - 1], column))
            --count_;
        const long long start = count_ > 0 ? place_between(columns_[count_ - 1], column) : 0;
        if (start >= static_cast<long long>(rows_.size())) return;
        columns_[count_] = column;
        starts_[count_++] = static_cast<int>(start);
    }

    int y_ = 0;
    std::vector<int> rows_, columns_, starts_;
    std::size_t count_ = 0;
};

void color_row(BITMAP* picture, Color ground, int y, NearestColumns& nearest, Color* colors) {
    const Color* const pixels = pixels_at(picture, 0, y);
    for (int x = picture->w - 1; x >= 0; --x) {
        const Color color = pixels[x] & color_bits;
        if (!is_ground(color, ground)) {
            colors[x] = color | whole_alpha;
        } else if (nearest.is_empty()) {
            colors[x] = color;
        } else {
            const int column = nearest.column_of(x);
            colors[x] = *pixels_at(picture, column, nearest.row_of(column)) & color_bits;
        }
    }
}

}  // namespace

int count_ground(BITMAP* picture, Color ground) {
    int count = 0;
    for (int y = 0; y < picture->h; ++y) {
        const Color* const pixels = pixels_at(picture, 0, y);
        count += static_cast<int>(
            std::count_if(pixels, pixels + picture->w, [=](Color pixel) { return is_ground(pixel, ground); }));
    }
    return count;
}

int set_alpha_by_ground(BITMAP* picture, Color ground) {
    int count = 0;
    for (int y = 0; y < picture->h; ++y)
        for (int x = 0; x < picture->w; ++x) {
            Color& pixel = *pixels_at(picture, x, y);
            const bool is_clear = is_ground(pixel, ground);
            pixel = is_clear ? pixel & color_bits : pixel | whole_alpha;
            count += is_clear ? 1 : 0;
        }
    return count;
}

OwnedBitmap with_clear_ground(BITMAP* picture, Color ground) {
    OwnedBitmap copy = make_uncleared_bitmap(picture->w, picture->h);
    if (!copy) return nullptr;
    find_rows(picture, ground, copy.get());  // a row's numbers are there until its colours take their place
    NearestColumns nearest(picture->w);
    for (int y = 0; y < picture->h; ++y) {
        nearest.set(row_numbers(copy.get(), y), y);
        color_row(picture, ground, y, nearest, pixels_at(copy.get(), 0, y));
    }
    return copy;
}

OwnedBitmap without_ground(BITMAP* picture, Color ground) {
    const int left = picture->w * picture->h - count_ground(picture, ground);
    OwnedBitmap rest = left > 0 ? make_uncleared_bitmap(picture->w, (left + picture->w - 1) / picture->w) : nullptr;
    if (!rest) return nullptr;
    int put = 0;
    const auto put_pixel = [&](Color pixel) {
        *pixels_at(rest.get(), put % picture->w, put / picture->w) = pixel;
        ++put;
    };
    Color last = 0;
    for (int y = 0; y < picture->h; ++y)
        for (int x = 0; x < picture->w; ++x)
            if (const Color pixel = *pixels_at(picture, x, y); !is_ground(pixel, ground)) put_pixel(last = pixel);
    while (put < rest->w * rest->h) put_pixel(last);
    return rest;
}

}  // namespace nubo
