#pragma once
// The user's settings: what belongs to the person and not to a Workspace. Read once at start, written once at the end.

namespace nubo {

/// Reads `user.def` from the resource folder of `program_dir`. Without one, and for what is missing of it, the defaults
/// of a first run hold; one that can't be read is set aside before another is written. The folders of `browse_places.h`
/// come and go with them. New keys (base/keys.h) are offered to the user of a file; without one no key is mapped.
void load_user_settings();

/// Writes `user.def`. False after a failure, which is logged.
bool save_user_settings();

}  // namespace nubo
