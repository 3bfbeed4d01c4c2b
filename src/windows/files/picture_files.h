#pragma once
// Loading and saving what the user has chosen in the file browser. Each tells its end in the status bar. Main flow
// only.
#include "state/files.h"
#include <string>

namespace nubo {

/// Loads the file as the purpose asks: a picture into the Frame, where the user says what becomes of its alpha, a
/// Workspace, the favourites, the ColorScheme. On failure nothing changes. True when it was loaded.
bool load_file(const std::string& path, FilePurpose purpose);

/// Loads the picture as the Cel, with its clear pixels clear, and has the user place it. False, and told, with the Cel
/// as it was, if it can't be read.
bool load_cut_out(const std::string& path);

/// True if something may be saved under that name. False, and told: it belongs to the Workspace, its file is write
/// protected, or a picture of that ending isn't written here.
bool may_save_as(const std::string& path, FilePurpose purpose);

/// Saves the Frame, the Workspace, the favourites or the ColorScheme to the file, wholly or not at all. A JPEG asks for
/// its quality first. True when it was saved; false also where it `may_save_as` nothing. What a killed program has left
/// unfinished in that folder goes.
bool save_file(const std::string& path, FilePurpose purpose);

/// True for a name that the program itself uses in its WORKSPACE folder, or for the Workspace that goes: a picture
/// there would be a lost Frame.
bool is_workspace_file(const std::string& path);

}  // namespace nubo
