// A developer's look at one actor: its fields in the log.
#include "base/log.h"
#include "framework/traps.h"
#include "game/actors.h"
#include <cstdio>
#include <string_view>

namespace nubo {
namespace {

struct FieldRow {
    const char* name;
    int (*value)(std::size_t who);
};

template <auto& column> int value_of(std::size_t who) { return static_cast<int>(column[who]); }

constexpr FieldRow game_rows[] = {{"Psuedo", value_of<actor::Psuedo>}, {"Name", value_of<actor::Name>},
                                  {"Team", value_of<actor::Team>},     {"Health", value_of<actor::Health>},
                                  {"Mask", value_of<actor::Mask>},     {"Mode", value_of<actor::Mode>},
                                  {"Type", value_of<actor::Type>}};

constexpr FieldRow place_rows[] = {
    {"Abs_x", value_of<actor::Abs_x>},           {"Abs_y", value_of<actor::Abs_y>},
    {"Pos_x", value_of<actor::Pos_x>},           {"Pos_y", value_of<actor::Pos_y>},
    {"Pos_z", value_of<actor::Pos_z>},           {"Tile_x", value_of<actor::Tile_x>},
    {"Tile_y", value_of<actor::Tile_y>},         {"Tile_z", value_of<actor::Tile_z>},
    {"Fine_x", value_of<actor::Fine_x>},         {"Fine_y", value_of<actor::Fine_y>},
    {"Fine_z", value_of<actor::Fine_z>},         {"Vel_x", value_of<actor::Vel_x>},
    {"Vel_y", value_of<actor::Vel_y>},           {"Vel_z", value_of<actor::Vel_z>},
    {"Facing", value_of<actor::Facing>},         {"Frame_x", value_of<actor::Frame_x>},
    {"Frame_y", value_of<actor::Frame_y>},       {"In_Water", value_of<actor::In_Water>},
    {"Stamina", value_of<actor::Stamina>},       {"Disposition", value_of<actor::Disposition>},
    {"Experience", value_of<actor::Experience>}, {"Rank", value_of<actor::Rank>},
    {"Max_Move", value_of<actor::Max_Move>},     {"Max_Jump", value_of<actor::Max_Jump>},
    {"Speed", value_of<actor::Speed>},           {"Alignment", value_of<actor::Alignment>},
    {"C_weapon", value_of<actor::C_weapon>},     {"R_weapon", value_of<actor::R_weapon>},
    {"C_power", value_of<actor::C_power>},       {"R_power", value_of<actor::R_power>},
    {"M_power", value_of<actor::M_power>},       {"D_power", value_of<actor::D_power>},
    {"Anim_Delay", value_of<actor::Anim_Delay>}, {"Anim_Lock", value_of<actor::Anim_Lock>},
    {"Act_accum", value_of<actor::Act_accum>},   {"Act_delay", value_of<actor::Act_delay>},
};

/// One line a field, all names of the group padded to the column of its "=".
void dump_rows(std::size_t who, std::span<const FieldRow> rows, int width) {
    for (const FieldRow& row : rows) {
        std::array<char, 64> line{};
        std::snprintf(line.data(), line.size(), "%-*s=%d", width, row.name, row.value(who));
        UA_log("%s", line.data());
    }
}

}  // namespace

void UA_dump_actor(int who) {
    constexpr int game_width = 7, place_width = 12, shown_way_points = 64;
    if (!UA_check_who_slot(who, 0, "UA_dump_actor()!")) return;
    UA_log("Object Number %d", who);
    dump_rows(at(who), game_rows, game_width);
    dump_rows(at(who), place_rows, place_width);
    for (int slot = 0; slot < behavior_slots; ++slot)
        UA_log("BEHAVIOR [%d]  =%d", slot, static_cast<int>(actor::BEHAVIOR[at(who)][at(slot)]));
    for (const WayPoint& point : std::span(actor::Move_queue[at(who)]).first<shown_way_points>()) {
        UA_log("MOVE QUEUE_x %d", static_cast<int>(point.x));
        UA_log("MOVE QUEUE_y %d", static_cast<int>(point.y));
        UA_log("MOVE QUEUE_z %d", static_cast<int>(point.z));
        UA_log("%d ", 0);
    }
}

}  // namespace nubo
