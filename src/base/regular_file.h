#pragma once
// The one way to open a file by a name under which anything may lie: a pipe would hang its reader, a device take what
// was meant for the disk.

namespace nubo {

/// Opens the regular file `path` with the flags of `open`, O_NOFOLLOW among them where a link is not to be followed; a
/// new one gets the mode 0666. The descriptor is the caller's. -1 when it can't be opened, with the cause in `errno`:
/// EINVAL when something else has that name.
int open_regular_file(const char* path, int flags);

}  // namespace nubo
