// BE_modify_variable: one field of an actor, changed by rule on each run.
#include "game/behavior_steps.h"
#include "game/behaviors.h"
#include <algorithm>

namespace nubo {
namespace {

enum ModifyParam : std::size_t { MODIFY_VARIABLE, MODIFY_AMOUNT, MODIFY_COUNT, MODIFY_INDEX };

enum Rule : int { RULE_ADD, RULE_ADD_FROM_0, RULE_ADD_OPACITY, RULE_TURN, RULE_SET };

constexpr int changed(Rule rule, int value, int amount) {
    switch (rule) {
    case RULE_ADD: return wrapped_sum(value, amount);
    case RULE_ADD_FROM_0: return std::max(value + amount, 0);
    case RULE_ADD_OPACITY: return std::clamp(value + amount, 0, opacity_max);
    case RULE_TURN: return (value + amount) & (circle_steps - 1);
    case RULE_SET: return amount;
    }
    return value;
}

/// What a change is made to: p3 of the behaviour is the index.
struct Change {
    std::size_t who;
    int variable, index;
    Rule rule;
    int amount;

    template <typename Word> void apply_to(Word& word) const { word = changed(rule, word, amount); }
};

template <auto& column> void change_field(const Change& change) { change.apply_to(column[change.who]); }

void change_wave_phase(const Change& change) {
    if (change.index >= 0 && change.index < actor_waves)
        change.apply_to(actor::Wave[change.who][at(change.index)].phase);
}

void change_delay(const Change& change) {
    if (change.index >= 0 && change.index < behavior_slots)
        change.apply_to(actor::Behavior_delay[change.who][at(change.index)]);
}

constexpr int first_slot_variable = 80;  // of the four that are p3 of a slot
void change_index_of_slot(const Change& change) {
    change.apply_to(actor::Behavior_param[change.who][at(change.variable - first_slot_variable)][MODIFY_INDEX]);
}

/// How low p2 may fall before the behaviour ends.
enum CountEnd : int { COUNT_NONE = -1, COUNT_TO_0 = 0, COUNT_TO_2 = 2 };

struct VariableRow {
    int variable;
    void (*change)(const Change& change);
    Rule rule;
    CountEnd count;
};
constexpr std::array<VariableRow, 19> variable_rows{{
    {5, change_field<actor::Health>, RULE_ADD_FROM_0, COUNT_NONE},
    {10, change_field<actor::Frame_a>, RULE_ADD_FROM_0, COUNT_NONE},
    {12, change_field<actor::Frame_x>, RULE_ADD_FROM_0, COUNT_TO_2},
    {18, change_field<actor::Opacity>, RULE_ADD_OPACITY, COUNT_NONE},
    {20, change_field<actor::Mode>, RULE_SET, COUNT_NONE},
    {30, change_wave_phase, RULE_TURN, COUNT_NONE},
    {34, change_field<actor::Shift_x>, RULE_ADD, COUNT_TO_0},
    {35, change_field<actor::Shift_y>, RULE_ADD, COUNT_TO_0},
    {36, change_field<actor::Abs_x>, RULE_ADD, COUNT_TO_0},
    {37, change_field<actor::Abs_y>, RULE_ADD, COUNT_TO_0},
    {40, change_field<actor::Poly_wobble_phase>, RULE_TURN, COUNT_NONE},
    {41, change_field<actor::Poly_wobble_phase_2>, RULE_TURN, COUNT_NONE},
    {42, change_field<actor::Poly_fade_start>, RULE_ADD, COUNT_NONE},
    {43, change_field<actor::Poly_fade_end>, RULE_ADD, COUNT_NONE},
    {79, change_delay, RULE_ADD, COUNT_TO_0},
    {80, change_index_of_slot, RULE_ADD, COUNT_TO_0},
    {81, change_index_of_slot, RULE_ADD, COUNT_TO_0},
    {82, change_index_of_slot, RULE_ADD, COUNT_TO_0},
    {83, change_index_of_slot, RULE_ADD, COUNT_TO_0},
}};

}  // namespace

void BE_modify_variable(const BehaviorRun& run) {
    auto& p = run.param;
    const int variable = p[MODIFY_VARIABLE];
    const auto row = std::find_if(variable_rows.begin(), variable_rows.end(),
                                  [&](const VariableRow& each) { return each.variable == variable; });
    if (row == variable_rows.end()) return;
    row->change({run.who, variable, p[MODIFY_INDEX], row->rule, p[MODIFY_AMOUNT]});
    if (row->count != COUNT_NONE && (p[MODIFY_COUNT] -= 1) < row->count) run.end();
}

}  // namespace nubo
