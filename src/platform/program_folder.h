#pragma once
// Where the program stands.

namespace nubo {

/// Stores the folder of the executable, without its last separator, in `program_dir`. False when it can't be told or is
/// too long for the table.
bool find_program_dir();

}  // namespace nubo
