#include "game/sound.h"

#include "base/jobs.h"
#include "framework/resources.h"
#include "framework/scrambler.h"
#include "game/game_jobs.h"
#include "harness/harness.h"
#include "state/options.h"
#include "state/run.h"
#include <allegro.h>

namespace nubo {
namespace {

using std::string_literals::operator""s;

struct Played {
    const SAMPLE* sample;
    int volume, pan, frequency, loop;
};
std::vector<Played> heard;
int listen(const SAMPLE* sample, int volume, int pan, int frequency, int loop) {
    heard.push_back({sample, volume, pan, frequency, loop});
    return 4;
}

class SoundTest : public testing::Test {
protected:
    SoundTest() {
        UA_log_open();
        install_framework_jobs();
        set_sample_player(listen);
        for (SAMPLE*& sample : sound::sample) sample = &sample_;
        for (const std::size_t slot : {7, 99}) sound::valid[slot] = SAMPLE_LOADED;
    }
    ~SoundTest() override {
        for (SAMPLE*& sample : sound::sample) sample = nullptr;
        UA_log_close();
    }
    SAMPLE sample_{};
    ScratchFolder folder_;
};

TEST_F(SoundTest, TheLevelIsTheVolumeLessTheGainScaledByTheCaller) {
    struct Case {
        int sfx_volume;
        float gain;
        int volume, level;  // -1: nothing is heard
    };
    const Case cases[] = {
        {128, 0, -1, 128}, {128, 0.5F, -1, 64}, {101, 0.5F, -1, 51},  // 101 - trunc(50.5)
        {128, 1, -1, -1},  {0, 0, -1, -1},      {300, 0, -1, 255},   {200, 0, 50, 100},
        {99, 0, 33, 32},   {255, 0, 200, 255},  {128, 0, 0, 0},
    };
    for (const Case& c : cases) {
        heard.clear();
        sfx_volume = c.sfx_volume;
        sound::gain[7] = c.gain;
        UA_sound_tick();
        sfx_play(7, 900, c.volume);
        ASSERT_EQ(heard.size(), c.level < 0 ? 0U : 1U) << c.sfx_volume << ", " << c.gain;
        if (c.level < 0) continue;
        EXPECT_EQ(heard[0].volume, c.level) << c.sfx_volume << ", " << c.gain;
        EXPECT_EQ(heard[0].frequency, 900);
        EXPECT_EQ(heard[0].pan, 128);
        EXPECT_EQ(heard[0].loop, 0);
        EXPECT_EQ(heard[0].sample, &sample_);
    }
}

TEST_F(SoundTest, ASlotSoundsOnceATickAndARandomPitchStaysNearItsOwn) {
    sfx_play(7, pitch_random, -1);
    sfx_play(7, pitch_random, -1);
    sfx_play(99, pitch_random, -1);
    EXPECT_EQ(heard.size(), 2U);
    for (int i = 0; i < 200; ++i) {
        UA_sound_tick();
        sfx_play(7, pitch_random, -1);
    }
    EXPECT_EQ(heard.size(), 202U);
    for (const Played& one : heard) {
        EXPECT_GE(one.frequency, 800);
        EXPECT_LE(one.frequency, 1199);
    }
}

TEST_F(SoundTest, BadAndEmptySlotsAreLoggedAndSilent) {
    sfx_play(100, 1000, -1);
    sfx_play(-1, 1000, -1);
    sfx_play(8, 1000, -1);
    EXPECT_EQ(music_play(100), -1);
    EXPECT_EQ(music_play(8), -1);
    EXPECT_TRUE(heard.empty());
    EXPECT_EQ(log_text(), "[ ERROR ] Sample slot is out of range in sfx_play()! Slot = 100\n"
                          "[ ERROR ] Sample slot is out of range in sfx_play()! Slot = -1\n"
                          "Requested invalid sample in cache. Slot = 8\n"
                          "[ ERROR ] Sample slot is out of range in music_play()! Slot = 100\n"
                          "Requested invalid sample in cache. Slot = 8\n");
    music_volume = 77;
    sfx_play(7, 1000, -1);
    EXPECT_EQ(music_play(7), 4);  // the guard is the effects' alone
    EXPECT_EQ(music_play(7), 4);
    ASSERT_EQ(heard.size(), 3U);
    EXPECT_EQ(heard[1].volume, 77);
    EXPECT_EQ(heard[1].frequency, 1000);
}

TEST_F(SoundTest, AQueuedEffectSoundsAfterItsDelay) {
    EXPECT_EQ(UA_queue_sfx(7, 850, 2), 0);
    UA_run_jobs();
    count_job_delays();
    UA_run_jobs();
    EXPECT_TRUE(heard.empty());
    count_job_delays();
    UA_run_jobs();
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(heard[0].frequency, 850);
    EXPECT_EQ(heard[0].volume, 128);
    EXPECT_EQ(UA_find_job(-1), -1);
    while (fill_job_slot(JOB_WAIT, {}, 0, 9) >= 0) {
    }
    EXPECT_EQ(UA_queue_sfx(7, 850, 2), -1);
    EXPECT_EQ(log_text(), "[ ERROR ] : Couldn't locate free event while queueing sound effect!\n");
}

/// A WAV file of four samples of 8 bits at 11,025 Hz.
const std::string wav = "RIFF\x28\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x11\x2B\0\0\x11\x2B\0\0\x01\0\x08\0"
                        "data\x04\0\0\0\x80\xFF\x00\x40"s;

TEST_F(SoundTest, ASampleComesFromItsScrambledFile) {
    sound::sample[3] = nullptr;
    std::ofstream("BANG.wav", std::ios::binary) << wav;
    ASSERT_TRUE(UA_load_resource_sample(Folder("."), "BANG", 3, 0.25F));
    EXPECT_FALSE(std::filesystem::exists("BANG.wav"));  // scrambled, as pictures are
    EXPECT_EQ(sound::valid[3], SAMPLE_LOADED);
    EXPECT_EQ(sound::gain[3], 0.25F);
    const SAMPLE* const first = sound::sample[3];
    EXPECT_EQ(first->len, 4U);
    EXPECT_EQ(first->freq, 11'025);
    EXPECT_EQ(static_cast<const unsigned char*>(first->data)[3], 0x40);
    std::ofstream("NOISE", std::ios::binary) << "no sample at all";
    EXPECT_FALSE(UA_load_resource_sample(Folder("."), "NOISE", 3, 0));
    EXPECT_EQ(sound::sample[3], first);
    EXPECT_FALSE(UA_load_resource_sample(Folder("."), "BANG", sample_slots, 0));
    EXPECT_TRUE(UA_load_resource_sample(Folder("."), "BANG", 3, 0));
    destroy_sample(sound::sample[3]);
}

}  // namespace
}  // namespace nubo
