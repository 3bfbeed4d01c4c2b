#pragma once
// The guides as bytes of the state file, in a stretch of it that older files leave at zero.
#include <array>
#include <cstdint>

namespace nubo {

/// Of the state file from byte 1144 on; docs/program-folder.md tells each. `guides_are_marked` stands at 1291 and says
/// that the stretch counts. As long as all guides have their first values all of it is zero, that byte too.
using GuideBytes = std::array<std::uint8_t, 144>;

GuideBytes pack_guides();

/// Sets the guides from a state file of the name `file`, to their first values if the bytes don't count. False, with a
/// line in the log, if there was something out of range, which gets its first value.
bool unpack_guides(const GuideBytes& bytes, bool marked, const char* file);

}  // namespace nubo
