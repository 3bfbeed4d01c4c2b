#pragma once
// The two small files of colours: the favourites and the ColorScheme. Three letters and big-endian words.
#include <string>

namespace nubo {

/// 1, or -1 with nothing changed when the file is missing, of another kind or too short.
int load_favorites(const std::string& path);
int load_scheme(const std::string& path);

/// False after a log line; the old file is then as it was.
bool save_favorites(const std::string& path);
bool save_scheme(const std::string& path);

}  // namespace nubo
