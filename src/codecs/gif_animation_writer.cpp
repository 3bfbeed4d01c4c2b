// Writing an animated GIF: one look over all pictures for their colours, then each as the part of it that has changed.
#include "base/color.h"
#include "codecs/animation_canvas.h"
#include "codecs/gif_animation.h"
#include "codecs/gif_blocks.h"
#include "codecs/gif_lzw.h"
#include "codecs/gif_palette.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

namespace nubo {
namespace {

constexpr Color color_bits = 0xffffff, no_color = ~Color{0};
constexpr int largest_word = 65535;

/// The pixels of the picture that aren't clear, in their order.
template <typename Take> void for_each_solid(BITMAP* picture, Color clear, bool& has_clear, Take take) {
    for (int y = 0; y < picture->h; ++y) {
        const Color* const pixels = pixels_at(picture, 0, y);
        for (int x = 0; x < picture->w; ++x) {
            const Color color = pixels[x] & color_bits;
            if (color == clear)
                has_clear = true;
            else
                take(color);
        }
    }
}

// ---- One palette for all -------------------------------------------------------------------------------------------

struct JointPalette {
    ExactPalette colors{};
    bool has_clear = false;  // then the last index is the clear one, and no solid pixel's
};

/// Looks at all pictures: for their colours, and for pixels of all of them that stand for the rest where they are too
/// many to be kept.
class JointColors {
public:
    explicit JointColors(const WrittenAnimation& animation) : animation_(animation) {
        const double pixels =
            static_cast<double>(animation.width) * animation.height * static_cast<double>(animation.times.size());
        step_ = static_cast<std::size_t>(std::ceil(pixels / samples_max));
    }

    /// False when a picture can't be had, or the memory.
    bool look(JointPalette& palette, GifReduction reduction) {
        const Color clear = animation_.clear.value_or(no_color);
        for (int i = 0; i < static_cast<int>(animation_.times.size()); ++i) {
            BITMAP* const picture = animation_.picture(i);
            if (picture == nullptr) return false;
            for_each_solid(picture, clear, palette.has_clear, [&](Color color) { add(color); });
        }
        palette.colors = list_.palette();
        if (!is_exact_ && !reduce(palette.colors, reduction)) return false;
        const std::size_t kept = palette.colors.size() - (palette.has_clear ? 1 : 0);
        if (!is_exact_ || list_.count() > kept)
            if (palette.has_clear) free_last_entry(palette.colors);
        if (palette.has_clear) palette.colors[gif_clear_index] = clear;
        return true;
    }

private:
    static constexpr double samples_max = 4'000'000;

    void add(Color color) {
        is_exact_ = is_exact_ && list_.add(color);
        if (solid_++ % step_ == 0) samples_.push_back(color);
    }

    bool reduce(ExactPalette& colors, GifReduction reduction) {
        constexpr int width = 1024;
        const int rows = static_cast<int>((samples_.size() + width - 1) / width);
        const OwnedBitmap sample = make_uncleared_bitmap(width, rows);
        if (!sample) return false;
        samples_.resize(static_cast<std::size_t>(width * rows), samples_.back());
        for (int y = 0; y < rows; ++y)
            std::copy_n(samples_.begin() + static_cast<std::ptrdiff_t>(y) * width, width,
                        pixels_at(sample.get(), 0, y));
        colors = reduced_palette(sample.get(), reduction);
        return true;
    }

    const WrittenAnimation& animation_;
    ColorList list_;
    bool is_exact_ = true;
    std::vector<Color> samples_;
    std::size_t step_ = 1, solid_ = 0;
};

// ---- Times ---------------------------------------------------------------------------------------------------------

/// Whole hundredths for times that aren't: what one falls short of or goes beyond the next makes up for.
class GifDelays {
public:
    int next(double hundredths) {
        const double due = hundredths + owed_;
        int delay = static_cast<int>(std::floor(due + 0.5));
        owed_ = due - delay;
        if (delay >= gif_shortest) return std::min(delay, largest_word);
        owed_ = 0;  // an animation that can't be that fast would else never be done with it
        return gif_shortest;
    }

private:
    double owed_ = 0;
};

double hundredths_of(FrameTime time) {
    return 100.0 * static_cast<double>(time.numerator) / static_cast<double>(time.denominator);
}

// ---- Blocks --------------------------------------------------------------------------------------------------------

class GifAnimationWriter {
public:
    GifAnimationWriter(const WrittenAnimation& animation, const JointPalette& palette, PACKFILE* file)
        : animation_(animation), palette_(palette), file_(file),
          nearest_(std::span(palette.colors).first(palette.has_clear ? gif_clear_index : palette.colors.size())) {}

    bool write() {
        write_start();
        if (animation_.plays != 1) write_loop();
        for (std::size_t i = 0; i < animation_.times.size() && is_good_; ++i) take(static_cast<int>(i));
        if (is_good_) write_held();
        put({';'});
        return is_good_;
    }

private:
    void put(std::span<const std::uint8_t> bytes) {
        const auto size = static_cast<long>(bytes.size());
        is_good_ = is_good_ && pack_fwrite(bytes.data(), size, file_) == size;
    }
    void put(std::initializer_list<std::uint8_t> bytes) { put(std::span(bytes.begin(), bytes.size())); }
    static std::uint8_t low(int word) { return static_cast<std::uint8_t>(word & 0xff); }
    static std::uint8_t high(int word) { return static_cast<std::uint8_t>(word >> 8); }

    void write_start() {
        constexpr std::uint8_t screen_flags = 0xf7;  // a table of 256 entries, 8 bits of colour resolution
        const int w = animation_.width, h = animation_.height;
        put({'G', 'I', 'F', '8', '9', 'a', low(w), high(w), low(h), high(h), screen_flags});
        put({palette_.has_clear ? gif_clear_index : std::uint8_t{0}, 0});
        put(gif_color_table(palette_.colors));
    }

    void write_loop() {
        const int again =
            animation_.plays == 0 ? 0 : static_cast<int>(std::min<std::uint32_t>(animation_.plays - 1, largest_word));
        put({0x21, 0xff, 11, 'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0', 3, 1, low(again), high(again), 0});
    }

    /// Holds the picture back until the next one differs: those that are equal add their times.
    void take(int number) {
        BITMAP* const picture = animation_.picture(number);
        is_good_ = picture != nullptr;
        if (!is_good_) return;
        next_ = indexes_of(picture);
        const double time = hundredths_of(animation_.times[static_cast<std::size_t>(number)]);
        if (number > 0 && next_ == held_ && held_time_ + time < largest_word) {
            held_time_ += time;
            return;
        }
        if (number > 0) write_held();
        held_place_ = number > 0 && !palette_.has_clear ? changed_place() : whole_place();
        held_time_ = time;
        held_.swap(next_);
    }

    std::vector<std::uint8_t> indexes_of(BITMAP* picture) {
        std::vector<std::uint8_t> indexes;
        indexes.reserve(static_cast<std::size_t>(picture->w) * static_cast<std::size_t>(picture->h));
        const Color clear = animation_.clear.value_or(no_color);
        for (int y = 0; y < picture->h; ++y) {
            const Color* const pixels = pixels_at(picture, 0, y);
            for (int x = 0; x < picture->w; ++x) {
                const Color color = pixels[x] & color_bits;
                indexes.push_back(color == clear ? gif_clear_index : nearest_(color));
            }
        }
        return indexes;
    }

    ImagePlace whole_place() const { return {0, 0, animation_.width, animation_.height}; }

    const std::uint8_t* row_of(const std::vector<std::uint8_t>& indexes, int y) const {
        return indexes.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(animation_.width);
    }

    /// Where the next picture differs from the one held; one pixel where it doesn't.
    ImagePlace changed_place() const {
        int left = animation_.width, right = 0, top = animation_.height, bottom = 0;
        for (int y = 0; y < animation_.height; ++y) {
            const std::uint8_t *const a = row_of(held_, y), *const b = row_of(next_, y),
                                      *const end = a + animation_.width;
            const auto first = static_cast<int>(std::mismatch(a, end, b).first - a);
            if (first == animation_.width) continue;
            int last = animation_.width - 1;
            while (a[last] == b[last]) --last;
            left = std::min(left, first);
            right = std::max(right, last + 1);
            top = std::min(top, y);
            bottom = y + 1;
        }
        return bottom == 0 ? ImagePlace{0, 0, 1, 1} : ImagePlace{left, top, right - left, bottom - top};
    }

    /// Clear pixels can only be had by doing away with the picture before.
    void write_held() {
        constexpr std::uint8_t index_bits = 8, local_flags = 0;  // no table of its own, not interlaced
        const int delay = delays_.next(held_time_), disposal = palette_.has_clear ? GIF_TO_CLEAR : GIF_STAYS;
        const auto flags = static_cast<std::uint8_t>(disposal << 2 | (palette_.has_clear ? 1 : 0));
        const std::uint8_t clear = palette_.has_clear ? gif_clear_index : std::uint8_t{0};
        const auto& [x, y, w, h] = held_place_;
        put({0x21, 0xf9, 4, flags, low(delay), high(delay), clear, 0});
        put({',', low(x), high(x), low(y), high(y), low(w), high(w), low(h), high(h), local_flags, index_bits});
        const std::unique_ptr<GifEncoder> encoder(is_good_ ? new (std::nothrow) GifEncoder(file_) : nullptr);
        is_good_ = encoder != nullptr;
        if (!is_good_) return;
        for (int row = y; row < y + h; ++row) encoder->add({row_of(held_, row) + x, static_cast<std::size_t>(w)});
        is_good_ = encoder->finish();
    }

    const WrittenAnimation& animation_;
    const JointPalette& palette_;
    PACKFILE* file_;
    NearestEntry nearest_;
    GifDelays delays_;
    std::vector<std::uint8_t> held_, next_;  // the indexes of a picture
    ImagePlace held_place_{};
    double held_time_ = 0;  // hundredths
    bool is_good_ = true;
};

}  // namespace

bool write_gif_animation(const WrittenAnimation& animation, GifReduction reduction, Bytes& bytes) {
    if (animation.times.empty() || animation.width > largest_word || animation.height > largest_word) return false;
    JointPalette palette;
    if (!JointColors(animation).look(palette, reduction)) return false;
    const std::size_t size_before = bytes.size();
    PACKFILE* const file = open_for_writing(bytes);
    const bool written = file != nullptr && GifAnimationWriter(animation, palette, file).write();
    if (file != nullptr) pack_fclose(file);
    if (!written) bytes.resize(size_before);
    return written;
}

}  // namespace nubo
