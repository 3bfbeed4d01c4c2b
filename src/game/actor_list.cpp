// The template of an actor, a text that a game's author writes.
#include "base/log.h"
#include "framework/number_lines.h"
#include "framework/traps.h"
#include "game/actor_fields.h"
#include "game/actors.h"
#include "platform/input_file.h"
#include <limits>
#include <type_traits>

namespace nubo {
namespace {

constexpr const char* list_file = "actor.lst";
constexpr std::size_t label_length = 30, list_size_max = 64 << 10;  // bytes; a file of ours has less than 12,000
constexpr int template_fields = 91, slot_fields = 4 + behavior_params;
constexpr int list_lines = template_fields + behavior_slots * slot_fields;

/// A field as a text gives it: held to what its word has room for, the same on both sides of 0.
template <typename Word> void write_field(Word& word, int value) {
    using Value = std::remove_cvref_t<decltype(word.acquire())>;
    if constexpr (std::is_same_v<Value, bool>)
        word = value != 0;
    else if constexpr (std::is_floating_point_v<Value>)
        word = static_cast<Value>(value);
    else
        word = static_cast<Value>(
            std::clamp<int>(value, -std::numeric_limits<Value>::max(), std::numeric_limits<Value>::max()));
}

/// Reads a slot's fields and starts what they name, whose number comes first and is written last.
void read_slot(NumberLines& lines, std::size_t who, std::size_t slot) {
    const int number = lines.next();
    write_field(actor::Behavior_delay[who][slot], lines.next());
    write_field(actor::Behavior_accum[who][slot], lines.next());
    write_field(actor::Kill_on_end[who][slot], lines.next());
    for (auto& param : actor::Behavior_param[who][slot]) write_field(param, lines.next());
    ActorWord<std::int16_t> behavior;
    write_field(behavior, number);
    actor::BEHAVIOR[who][slot].publish(behavior);
}

bool has_all_lines(NumberLines lines) {
    for (int i = 0; i < list_lines; ++i) {
        if (lines.is_empty()) return false;
        lines.next();
    }
    return true;
}

}  // namespace

void UA_load_actor_list(const Folder& folder, int who) {
    if (!UA_check_who_slot(who, 0, "UA_load_actor_list()!")) return;
    std::vector<std::uint8_t> text;
    if (!read_file(folder.file(list_file), list_size_max, text)) {
        UA_log("[ ERROR ] : Failed to find actor list file!");
        return;
    }
    NumberLines lines(text, label_length);
    if (!has_all_lines(lines)) {
        UA_log("[ ERROR ] : Actor list file is too short! Lines wanted = %d", list_lines);
        return;
    }
    const std::size_t w = at(who);
    for (auto& behavior : actor::BEHAVIOR[w]) behavior = BEHAVIOR_NONE;
    ActorWord<std::int16_t> type;
    write_field(type, lines.next());
    visit_template_fields([&](auto& column) { write_field(column[w], lines.next()); });
    for (std::size_t slot = 0; slot < behavior_slots; ++slot) read_slot(lines, w, slot);
    actor::Type[w].publish(type);
}

}  // namespace nubo
