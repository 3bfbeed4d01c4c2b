// Steps of a history between pictures of any size, and the bytes of its file.
#include "workspace/history_format.h"

#include "harness/harness.h"
#include "workspace/history_kit.h"

namespace nubo {
namespace {

// ---- Steps ---------------------------------------------------------------------------------------------------------

TEST(HistoryStep, LeadsFromEachSizeToTheOtherPlainAndDeflated) {
    struct Sizes {
        int w, h, to_w, to_h;
    };
    for (const Sizes& sizes : {Sizes{130, 70, 130, 70}, {130, 70, 64, 128}, {1, 200, 200, 1}, {5, 3, 65, 3}}) {
        const OwnedBitmap before = noise(sizes.w, sizes.h, 1), after = noise(sizes.to_w, sizes.to_h, 2);
        Step step = step_between(before.get(), after.get());
        for (const bool deflates : {false, true}) {
            if (deflates) step.deflated = deflated_tiles(step), step.plain = nullptr;
            const OwnedBitmap there = picture_beyond(step, before.get(), false);
            const OwnedBitmap back = picture_beyond(step, after.get(), true);
            EXPECT_EQ(pixels_of_picture(there.get()), pixels_of_picture(after.get())) << sizes.to_w;
            EXPECT_EQ(pixels_of_picture(back.get()), pixels_of_picture(before.get())) << sizes.to_w;
        }
        StepTiles bent = *step.deflated;
        bent.tiles.back().bytes.back() ^= 1;  // the checksum of zlib
        step.deflated = std::make_shared<StepTiles>(bent);
        const Pixels untouched = pixels_of_picture(before.get());
        if (sizes.w == sizes.to_w) {
            EXPECT_FALSE(apply_step(step, before.get()));
        }
        EXPECT_EQ(pixels_of_picture(before.get()), untouched);
    }
}

TEST(HistoryStep, TheOldestFallOutButNeverTheLastTwelve) {
    const OwnedBitmap a = noise(1024, 1024, 1), b = noise(1024, 1024, 2);  // 4 MiB a step
    History history;
    for (int i = 0; i < 40; ++i) history.add(step_between(a.get(), b.get()));
    EXPECT_LE(history.bytes, History::bytes_max);
    EXPECT_EQ(history.end(), 40);
    EXPECT_TRUE(history.first > 20 && history.floor == history.first);
    history.shrink_to(0);
    EXPECT_EQ(history.end() - history.first, History::kept_always);
}

// ---- The bytes of the file -----------------------------------------------------------------------------------------

class HistoryFormatTest : public testing::Test {
protected:
    HistoryFormatTest() {
        HistoryWriter writer(77, 3);
        for (int i = 0; i < 4; ++i) {
            pictures_.push_back(noise(70 + i, 20, static_cast<unsigned>(i)));
            if (i > 0) writer.step(2 + i, step_between(pictures_[at(i) - 1].get(), pictures_[at(i)].get()));
            if (i == 2) writer.start(5, 99);
            writer.place({3 + i, 70 + i, 20, 1000u + static_cast<unsigned>(i)});
            ends_.push_back(writer.bytes().size());
        }
        bytes_ = writer.bytes();
    }
    static std::optional<ReadHistory> read(const std::vector<std::uint8_t>& bytes, int picture) {
        return read_history(bytes, 70 + picture, 20, 1000u + static_cast<unsigned>(picture));
    }
    std::vector<OwnedBitmap> pictures_;
    std::vector<std::size_t> ends_;  // behind the place of each picture
    std::vector<std::uint8_t> bytes_;
};

TEST_F(HistoryFormatTest, LeadsToThePictureThatIsAskedFor) {
    for (int picture = 0; picture < 4; ++picture) {
        const auto got = read(bytes_, picture);
        ASSERT_TRUE(got) << picture;
        EXPECT_EQ(got->end, ends_[at(picture)]);
        EXPECT_EQ(got->history.position, 3 + picture);
        EXPECT_EQ(got->history.end(), 3 + picture) << "what follows is cut";
        EXPECT_EQ(got->history.started, picture < 2 ? -1 : 5);
        if (picture == 0) continue;
        const OwnedBitmap before = picture_beyond(got->history.step(2 + picture), pictures_[at(picture)].get(), true);
        EXPECT_EQ(pixels_of_picture(before.get()), pixels_of_picture(pictures_[at(picture) - 1].get()));
    }
    EXPECT_FALSE(read_history(bytes_, 70, 21, 1000)) << "of another height";
    EXPECT_EQ(read_newest_history(bytes_)->place.position, 6);
}

TEST_F(HistoryFormatTest, AStepTakesThePlaceOfThoseThatWereUndone) {
    HistoryWriter writer(read_newest_history(bytes_)->sum);
    writer.step(4, step_between(pictures_[1].get(), pictures_[3].get()));
    writer.place({5, 73, 20, 5555});
    auto bytes = bytes_;
    bytes.insert(bytes.end(), writer.bytes().begin(), writer.bytes().end());
    const auto got = read_history(bytes, 73, 20, 5555);
    ASSERT_TRUE(got);
    EXPECT_EQ(got->history.end(), 5);
    EXPECT_EQ(got->history.started, -1) << "that picture is gone";
    EXPECT_EQ(read(bytes, 2)->history.end(), 5) << "and is found as long as nothing follows it";
}

TEST_F(HistoryFormatTest, ATornOrBentFileHoldsUpToThatPlace) {
    for (std::size_t size = 0; size <= bytes_.size(); ++size) {
        const std::vector<std::uint8_t> torn(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(size));
        for (int picture = 0; picture < 4; ++picture)
            ASSERT_EQ(read(torn, picture).has_value(), size >= ends_[at(picture)]) << size;
    }
    for (std::size_t place = 0; place < bytes_.size(); ++place) {
        auto bent = bytes_;
        bent[place] ^= 0x41;
        for (int picture = 0; picture < 4; ++picture)
            ASSERT_EQ(read(bent, picture).has_value(), place >= ends_[at(picture)]) << place;
    }
}

}  // namespace
}  // namespace nubo
