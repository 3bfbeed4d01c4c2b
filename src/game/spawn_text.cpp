#include "game/spawn_text.h"

#include "base/log.h"
#include "base/random.h"
#include "framework/text.h"
#include "game/actors.h"
#include <algorithm>
#include <climits>
#include <cstdlib>
#include <optional>

namespace nubo {
namespace {

constexpr int pause_slot = 0, move_slot = 1;  // the pause holds back the slots behind it
constexpr int settle_percent = 50;            // of its way, where a letter first slows down
constexpr int full_speed_spread = 4000;
constexpr int farthest = 1 << 16;  // pixels; places of actors have 16 bits

/// A coordinate or a distance, so that what is made of it stays a number.
int held(int pixels) { return std::clamp(pixels, -farthest, farthest); }

struct Place {
    int x, y, z;
};
struct Letter {
    char code;
    Place place;
};

// ---- Reading the text ----------------------------------------------------------------------------------------------

/// The letters of a text in the order of spawning, with their places in it, and the codes between them.
class LetterWalk {
public:
    LetterWalk(std::string_view text, Place first, bool reverse);
    /// The next letter, with its colour row in the attributes; nothing behind the last.
    std::optional<Letter> next();

private:
    bool take_code();
    void drop(std::size_t characters);

    std::string_view text_;
    Place pen_;
    const FontSlot& font_;
    bool reverse_;
};

const FontSlot& font_set() { return font_slots[at(std::clamp(text_attributes.font_slot, 0, font_slot_count - 1))]; }

LetterWalk::LetterWalk(std::string_view text, Place first, bool reverse)
    : text_(text), pen_(first), font_(font_set()), reverse_(reverse) {
    if (!reverse) return;
    const int row = text_attributes.color_row;
    pen_.x += held(text_width(text));
    text_attributes.color_row = row;
}

void LetterWalk::drop(std::size_t characters) {
    if (reverse_)
        text_.remove_suffix(characters);
    else
        text_.remove_prefix(characters);
}

/// A code is known by its place in the text, from whichever end that is read.
bool LetterWalk::take_code() {
    const std::size_t size = std::min(text_code_size, text_.size());
    const std::string_view code = reverse_ ? text_.substr(text_.size() - size) : text_.substr(0, size);
    if (!is_text_code(code, 'c')) return false;
    text_attributes.color_row = text_code_value(code);
    drop(size);
    return true;
}

std::optional<Letter> LetterWalk::next() {
    while (take_code()) {
    }
    if (text_.empty()) return std::nullopt;
    const char code = reverse_ ? text_.back() : text_.front();
    drop(1);
    const int advance = font_.advance[static_cast<unsigned char>(code)];
    if (reverse_) pen_.x -= advance;
    const Letter letter{code, pen_};
    if (!reverse_) pen_.x += advance;
    return letter;
}

// ---- Movement ------------------------------------------------------------------------------------------------------

void put_at(std::size_t who, Place place) {
    actor::Pos_x[who] = static_cast<std::int16_t>(place.x);
    actor::Pos_y[who] = static_cast<std::int16_t>(place.y);
    actor::Pos_z[who] = static_cast<std::int16_t>(place.z);
}

/// Its parameters are written before.
void start_behavior(std::size_t who, int slot, Behavior behavior) {
    actor::Behavior_delay[who][at(slot)] = actor::Behavior_accum[who][at(slot)] = 0;
    actor::BEHAVIOR[who][at(slot)].publish(static_cast<std::int16_t>(behavior));
}

void start_pause(std::size_t who, int ticks) {
    if (ticks < 1) return;
    actor::Behavior_param[who][pause_slot][0] = static_cast<std::int16_t>(std::min(ticks, INT16_MAX));
    start_behavior(who, pause_slot, BEHAVIOR_FORCE_PAUSE);
}

/// At an even speed, so that the last run ends exactly at the place.
void start_slide(std::size_t who, Place to, const TextEntrance& entrance) {
    enum MoveParam : std::size_t { MOVE_LIFE, MOVE_SUB_STEPS = 7 };
    const int longest = std::max({std::abs(entrance.dx), std::abs(entrance.dy), std::abs(entrance.dz)});
    const int wanted = static_cast<int>(std::int64_t{longest} * fine_per_pixel / std::max(entrance.speed, 1));
    const int runs = std::clamp(wanted, 1, INT16_MAX - 1);
    const auto set_axis = [=](auto& fine, auto& velocity, int place, int distance) {
        velocity[who] = -distance * fine_per_pixel / runs;
        fine[who] = place * fine_per_pixel - velocity[who] * runs;
    };
    set_axis(actor::Fine_x, actor::Vel_x, to.x, entrance.dx);
    set_axis(actor::Fine_y, actor::Vel_y, to.y, entrance.dy);
    set_axis(actor::Fine_z, actor::Vel_z, to.z, entrance.dz);
    actor::Behavior_param[who][move_slot][MOVE_LIFE] = static_cast<std::int16_t>(runs);
    actor::Behavior_param[who][move_slot][MOVE_SUB_STEPS] = 1;
    start_behavior(who, move_slot, BEHAVIOR_VECTOR_MOVEMENT);
}

void fly_to(int who, Place to, int speed) { vector_move_threshold(who, to.x, to.y, to.z, speed, 0, settle_percent); }

Place beside(Place place, int dx, int dy, int dz) { return {place.x + dx, place.y + dy, place.z + dz}; }

TextEntrance held(TextEntrance entrance) {
    for (int* const distance : {&entrance.dx, &entrance.dy, &entrance.dz}) *distance = held(*distance);
    entrance.delay = std::clamp<int>(entrance.delay, -INT16_MAX, INT16_MAX);
    entrance.speed = std::min(entrance.speed, INT_MAX - full_speed_spread);
    return entrance;
}

int either_side(int distance) { return UA_random(2 * std::abs(distance) + 1) - std::abs(distance); }

/// The letter of that number in the order of spawning.
void enter(int who, Place place, int number, const TextEntrance& entrance) {
    const std::size_t w = at(who);
    const auto& [effect, dx, dy, dz, delay, speed, reverse] = entrance;
    const bool slides = effect == ENTRY_SLIDE || effect == ENTRY_SLIDE_SLOWS;
    const bool flies = effect == ENTRY_FLY || effect == ENTRY_SCATTER;
    put_at(w, place);
    if (slides || effect == ENTRY_FLY) put_at(w, beside(place, dx, dy, dz));
    if (effect == ENTRY_SCATTER) put_at(w, beside(place, either_side(dx), either_side(dy), either_side(dz)));
    if (slides) start_pause(w, number * delay);
    if (effect == ENTRY_SLIDE) start_slide(w, place, entrance);
    if (effect == ENTRY_SLIDE_SLOWS) fly_to(who, place, speed);
    if (!flies) return;
    constexpr int fade_in = 1, fade_step = 2;
    fly_to(who, place, speed + UA_random(full_speed_spread + 1));
    UA_fade_actor(who, fade_in, fade_step, 0);
}

// ---- Letters -------------------------------------------------------------------------------------------------------

/// `shadow_value` has the field of the attribute without an effect.
void write_letter(std::size_t who, char code) {
    actor::Letter_font[who] = text_attributes.font_slot;
    actor::Letter_row[who] = text_attributes.color_row;
    actor::Letter_shadow[who] = text_attributes.shadow;
    actor::Letter_reserved[who] = text_attributes.shadow_value;
    actor::Letter_outline[who] = text_attributes.outline;
    actor::Letter_blend[who] = text_attributes.blend;
    actor::Letter_amount[who] = text_attributes.blend_amount;
    actor::Letter_code[who] = static_cast<unsigned char>(code);
}

/// Once: an earlier actor of that number may be remembered still.
void remember_element(int who) {
    const auto number = static_cast<std::int16_t>(who);
    if (std::find(Pixel_elements.begin(), Pixel_elements.end(), number) != Pixel_elements.end()) return;
    for (auto& element : Pixel_elements)
        if (element.claim(actor_none, number)) return;
}

}  // namespace

int UA_spawn_text(int x, int y, int z, std::string_view text, const TextEntrance& wanted) {
    const TextEntrance entrance = held(wanted);
    LetterWalk letters(text, {held(x), held(y), held(z)}, entrance.reverse);
    int count = 0;
    for (auto letter = letters.next(); letter; letter = letters.next(), ++count) {
        const int who = UA_spawn_blank_element(0, 0);
        if (who == actor_none) {
            UA_log("[ ERROR ] : Couldn't secure object while spawning animated text");
            return count;
        }
        write_letter(at(who), letter->code);
        enter(who, letter->place, count, entrance);
        actor::Type[at(who)].publish(ACTOR_LETTER);
        remember_element(who);
    }
    return count;
}

}  // namespace nubo
