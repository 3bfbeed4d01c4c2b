#include "game/sound.h"

#include "base/jobs.h"
#include "base/log.h"
#include "base/random.h"
#include "state/options.h"
#include <algorithm>
#include <allegro.h>

namespace nubo {
namespace {

constexpr int level_max = 255, pan_middle = 128, no_loop = 0;
constexpr int no_voice = -1;

SamplePlayer play = play_sample;

bool is_sample_slot(int slot) { return slot >= 0 && slot < sample_slots; }

bool is_loaded(int slot) {
    if (sound::valid[at(slot)] == SAMPLE_LOADED) return true;
    UA_log("Requested invalid sample in cache. Slot = %d", slot);
    return false;
}

int pitch(int frequency) {
    constexpr int lowest = 800, spread = 400;
    return frequency == pitch_random ? lowest + UA_random(spread) : std::max(frequency, 1);
}

}  // namespace

void sfx_play(int slot, int frequency, int volume) {
    if (!is_sample_slot(slot)) {
        UA_log("[ ERROR ] Sample slot is out of range in sfx_play()! Slot = %d", slot);
        return;
    }
    if (sound::played[at(slot)] != 0 || !is_loaded(slot)) return;
    const int cut = static_cast<int>(static_cast<float>(sfx_volume) * sound::gain[at(slot)]);
    const int level = std::min(sfx_volume - cut, level_max);
    if (level < 1) return;
    const int scaled = volume == volume_whole ? level : std::clamp(volume, 0, level_max * 100) * level / 100;
    play(sound::sample[at(slot)], std::min(scaled, level_max), pan_middle, pitch(frequency), no_loop);
    sound::played[at(slot)] = 1;
}

int UA_queue_sfx(int slot, int frequency, int delay) {
    const int job_slot = fill_job_slot(JOB_SOUND, {slot, frequency, volume_whole}, 0, delay);
    if (job_slot < 0) UA_log("[ ERROR ] : Couldn't locate free event while queueing sound effect!");
    return job_slot;
}

int music_play(int slot) {
    if (!is_sample_slot(slot)) {
        UA_log("[ ERROR ] Sample slot is out of range in music_play()! Slot = %d", slot);
        return no_voice;
    }
    if (!is_loaded(slot)) return no_voice;
    return play(sound::sample[at(slot)], std::clamp(music_volume, 0, level_max), pan_middle, pitch_own, no_loop);
}

void UA_sound_tick() {
    for (Shared<int>& played : sound::played) played = 0;
}

void set_sample_player(SamplePlayer player) { play = player != nullptr ? player : play_sample; }

}  // namespace nubo
