#pragma once

namespace nubo {

/// Hands the table of commands over to the rooms below (state/commands.h). Once, before the settings are read.
void hand_over_commands();

}  // namespace nubo
