#pragma once
// The fields of the Workspace's state file, in their order, with what each is held to.
#include "workspace/byte_fields.h"

namespace nubo {

/// All values of the editor that the state file holds, to bytes and from them.
std::vector<std::uint8_t> pack_state();

/// Sets the values from the bytes of a state file. What is missing or out of range gets its default and a line in the
/// log, under the name `file`; false if there was such a thing.
bool unpack_state(const std::vector<std::uint8_t>& bytes, const char* file);

/// The longest that a state file can be.
inline constexpr std::size_t state_file_limit = 5953 + 9 * 255;

}  // namespace nubo
