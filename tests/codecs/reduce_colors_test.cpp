#include "codecs/reduce_colors.h"

#include "codecs/color_net.h"
#include "picture_files.h"

#include <cmath>

namespace nubo {
namespace {

/// Pixel n from the top left has the colour n % `colors`, spread over the cube.
OwnedBitmap picture_of(int w, int h, int colors) {
    OwnedBitmap bitmap = make_bitmap(w, h);
    for (int i = 0; i < w * h; ++i)
        *pixels_at(bitmap.get(), i % w, i / w) = static_cast<Color>(i % colors) * 59051 & 0xffffff;
    return bitmap;
}

TEST(ReduceColors, ExactlyUpTo256) {
    const OwnedBitmap just = picture_of(40, 20, 256), more = picture_of(40, 20, 257), few = picture_of(40, 20, 3);
    *pixels_at(few.get(), 39, 19) |= 0xff000000;  // a top byte is no colour
    ExactPalette palette{};
    EXPECT_EQ(reduce_colors_exact(just.get(), palette), 256);
    for (Color i = 0; i < 256; ++i) {
        const Color color = i * 59051 & 0xffffff;
        ASSERT_EQ(palette[i], color) << i;
    }
    EXPECT_EQ(reduce_colors_exact(few.get(), palette), 3);
    EXPECT_EQ(palette[3] | palette[255], 0u) << "the rest is black";
    palette[0] = 9;
    EXPECT_EQ(reduce_colors_exact(more.get(), palette), -1);
    EXPECT_EQ(palette[0], 9u);
}

/// The algorithm as its paper has it, on a list of samples: one array of neurons, searched one after the other.
class PlainNet {
public:
    explicit PlainNet(int decrease) : decrease_(decrease) {
        for (int i = 0; i < 256; ++i) {
            net_[i] = {i * 16, i * 16, i * 16};
            frequency_[i] = 256;
        }
        set_powers();
    }
    void learn(const std::array<int, 3>& sample, int samples_before, int interval) {
        const int i = contest(sample);
        for (int c = 0; c < 3; ++c) net_[i][c] -= alpha_ * (net_[i][c] - sample[c]) / 1024;
        for (int away = 1; away < reach_; ++away)
            for (const int j : {i + away, i - away})
                if (j >= 0 && j < 256)
                    for (int c = 0; c < 3; ++c) net_[j][c] -= power_[away] * (net_[j][c] - sample[c]) / (1024 * 256);
        if ((samples_before + 1) % interval != 0) return;
        alpha_ -= alpha_ / decrease_;
        radius_ -= radius_ / 30;
        set_powers();
    }
    int component(int i, int c) const { return std::min((net_[i][c] + 8) >> 4, 255); }

private:
    int contest(const std::array<int, 3>& sample) {
        int best = 0, best_biased = 0, least = INT_MAX, least_biased = INT_MAX;
        for (int i = 0; i < 256; ++i) {
            int distance = 0;
            for (int c = 0; c < 3; ++c) distance += std::abs(net_[i][c] - sample[c]);
            if (distance < least) least = distance, best = i;
            const int biased = distance - (bias_[i] >> 12);
            if (biased < least_biased) least_biased = biased, best_biased = i;
            const int less = frequency_[i] >> 10;
            frequency_[i] -= less;
            bias_[i] += less << 10;
        }
        frequency_[best] += 64;
        bias_[best] -= 65536;
        return best_biased;
    }
    void set_powers() {
        reach_ = radius_ / 64 <= 1 ? 0 : radius_ / 64;
        for (int i = 0; i < reach_; ++i) power_[i] = alpha_ * ((reach_ * reach_ - i * i) * 256 / (reach_ * reach_));
    }
    std::array<int, 3> net_[256];
    int frequency_[256], bias_[256]{}, power_[32]{};
    int decrease_, alpha_ = 1024, radius_ = 2048, reach_ = 0;
};

TEST(ReduceColors, TheNetLearnsAsThePaperHasItInEveryForm) {
    constexpr int samples = 20'000;
    for (const NetSearch& form : net_search_forms()) {
        ColorNet net(samples, 10, form);
        PlainNet plain(33);
        std::uint32_t noise = 1;
        for (int i = 0; i < samples; ++i) {
            noise = noise * 1664525U + 1013904223U;
            const Color color = noise >> 8 & (i % 3 == 0 ? 0xffffff : 0x3f1fff);
            net.learn(color);
            plain.learn({blue_of(color) * 16, green_of(color) * 16, red_of(color) * 16}, i, samples / 100);
        }
        for (int i = 0; i < 256; ++i)
            ASSERT_EQ(net.color(static_cast<std::size_t>(i)),
                      pack_color(plain.component(i, 2), plain.component(i, 1), plain.component(i, 0)))
                << form.name << ", neuron " << i;
    }
}

TEST(ReduceColors, TheNetComesNearEveryColourOfAnyPicture) {
    struct Case {
        int w, h, colors, sample;
        double error;  // of a component, the root of the mean square
    };
    for (const Case& one : {Case{1, 1, 1, 10, 4},
                            {22, 22, 40, 10, 20},
                            {499, 1, 300, 10, 24},
                            {503, 3, 300, 1, 18},
                            {499, 491, 2000, 10, 12}}) {
        const OwnedBitmap bitmap = picture_of(one.w, one.h, one.colors);
        ExactPalette palette;
        reduce_colors_neural(bitmap.get(), one.sample, palette);
        double squares = 0;
        for (int i = 0; i < one.colors; ++i) {
            const Color color = static_cast<Color>(i) * 59051 & 0xffffff;
            int nearest = INT_MAX;
            for (const Color entry : palette) {
                const int r = red_of(entry) - red_of(color), g = green_of(entry) - green_of(color),
                          b = blue_of(entry) - blue_of(color);
                nearest = std::min(nearest, r * r + g * g + b * b);
            }
            squares += nearest;
        }
        EXPECT_LT(std::sqrt(squares / 3 / one.colors), one.error) << one.w << " x " << one.h;
    }
}

}  // namespace
}  // namespace nubo
