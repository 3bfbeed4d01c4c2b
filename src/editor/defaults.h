#pragma once
// The state at the start of a run.

namespace nubo {

/// Sets what no table's own default can give: the run flags, the random colours, the jobs. The tables of state/ stand
/// at their defaults from the first. Once, inside `UA_init_graphics`; tests call it for a fresh start.
void UA_initialize_variables();

}  // namespace nubo
