#pragma once
// The state at the start of a run.

namespace nubo {

/// Sets what no table's own default can give: the run flags, the jobs, the actors, the elements. The tables of state/
/// stand at their defaults from the first, and the colours drawn at random come with the workspace. Once, inside
/// `UA_init_graphics`; tests call it for a fresh start.
void UA_initialize_variables();

}  // namespace nubo
