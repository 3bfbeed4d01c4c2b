#pragma once
// The files of colours: the favourites, in a form of the program's own or as a palette for others, and the ColorScheme.
#include <string>

namespace nubo {

/// 1, or -1 with nothing changed when the file is missing, of another kind or too short. A palette (GPL, PAL) of fewer
/// colours leaves the other favourites blank.
int load_favorites(const std::string& path);
int load_scheme(const std::string& path);

/// False after a log line; the old file is then as it was. The favourites become a GPL or a PAL where the name ends so.
bool save_favorites(const std::string& path);
bool save_scheme(const std::string& path);

}  // namespace nubo
