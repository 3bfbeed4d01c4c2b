#include "codecs/png.h"
#include "harness/harness.h"
#include "tip_sheet.h"

namespace nubo {
namespace {

constexpr int tip_width = 17, tip_height = 15, center_x = 8, center_y = 7, outside = 200;

using Tip = std::vector<int>;  // its values, row by row

/// The 36 tips as the editor reads them from the staged program folder.
std::vector<Tip> staged_tips() {
    const OwnedBitmap sheet(load_png(NUBO_FOLDER "/resource/brushie.PNG", nullptr));
    if (!sheet || sheet->w < 206 || sheet->h < 48) return {};
    std::vector<Tip> tips(36);
    for (int tip = 0; tip < 36; ++tip)
        for (int y = 0; y < tip_height; ++y)
            for (int x = 0; x < tip_width; ++x)
                tips[static_cast<std::size_t>(tip)].push_back(
                    getr(getpixel(sheet.get(), tip % 12 * tip_width + x, tip / 12 * tip_height + y)));
    return tips;
}

TEST(StagedTips, AreDifferentCentredAndStartWithASinglePixel) {
    const auto tips = staged_tips();
    ASSERT_EQ(tips.size(), 36u);
    EXPECT_EQ(std::set<Tip>(tips.begin(), tips.end()).size(), 36u);
    for (std::size_t tip = 0; tip < tips.size(); ++tip) {
        int left = tip_width, right = -1, top = tip_height, bottom = -1;
        for (int i = 0; i < tip_width * tip_height; ++i) {
            if (tips[tip][static_cast<std::size_t>(i)] >= outside) continue;
            left = std::min(left, i % tip_width);
            right = std::max(right, i % tip_width);
            top = std::min(top, i / tip_width);
            bottom = std::max(bottom, i / tip_width);
        }
        // A tip of an even size has no middle pixel: it reaches one further to the left and to the top.
        const int more_left = (center_x - left) - (right - center_x), more_up = (center_y - top) - (bottom - center_y);
        EXPECT_TRUE(more_left == 0 || more_left == 1) << "tip " << tip;
        EXPECT_TRUE(more_up == 0 || more_up == 1) << "tip " << tip;
    }
    EXPECT_EQ(std::ranges::count_if(tips[0], [](int value) { return value < outside; }), 1);
    EXPECT_EQ(tips[0][center_y * tip_width + center_x], 0);
}

}  // namespace
}  // namespace nubo
