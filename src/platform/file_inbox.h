#pragma once
// A second start of the program hands its files to the one that runs: by a socket in the program's folder, which is
// the user's own and which the first start has locked. Main flow only.
#include <string>
#include <vector>

namespace nubo {

/// Takes files from now on. By the program that holds the folder's lock; without an inbox, which is logged, it only
/// gets none.
void open_file_inbox(const std::string& folder);

/// The end of it.
void close_file_inbox();

/// The files that were handed over since the last call, absolute paths. Costs one call of the system.
std::vector<std::string> take_handed_files();

/// Hands files to the program that has locked the folder. The number of those that it got, in their order: it may be
/// stuck, and then takes only as many as wait for it.
std::size_t hand_over_files(const std::string& folder, const std::vector<std::string>& files);

}  // namespace nubo
