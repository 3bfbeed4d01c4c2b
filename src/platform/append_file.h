#pragma once
// The one way to add to a file in place, for those whose readers take a torn end: everything else goes through
// SafeFile.
#include <cstddef>
#include <string>

namespace nubo {

/// Puts bytes behind the first `keep` bytes of a file, in the place of what follows there, and waits until they are on
/// the disk. With `keep` 0 the file is made where there is none; its name lasts with the next file that SafeFile puts
/// into the same folder. False, logged, after a failure: what is behind `keep` may be anything then.
bool append_file(const std::string& path, std::size_t keep, const void* bytes, std::size_t size);

}  // namespace nubo
