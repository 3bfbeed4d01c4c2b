#pragma once
// The files that the program reads at start: its display mode, the scrambled images and samples of the folder
// "resource", the object library; and the tools that make such files. `folder` is the folder "resource".
#include "platform/folder.h"
#include <allegro.h>
#include <array>

namespace nubo {

/// The palette of the image loaded last, "PALETTE" once the start is through: text tones and effects name its entries.
inline constinit std::array<RGB, PAL_SIZE> global_palette{};

// ---- Scrambled files -----------------------------------------------------------------------------------------------

/// Brings the scrambled file `target` up to date: if the plain file `source` is newer, it is scrambled over `target`
/// and deleted. False, with `source` still there, when that can't be written. Ends the program with a message box and
/// -1 when `source` can't be read.
bool UA_convert_resource(const char* source, const char* target);

/// A new 32-bit bitmap, which the caller owns, from the scrambled GIF file `name`; its palette goes to
/// `global_palette`. A plain `name`.gif that is newer is converted first. Null when the file holds no picture; without
/// the file the program ends with a message box and -1.
BITMAP* UA_load_resource_bitmap(const Folder& folder, const char* name);

/// Loads the scrambled WAV file `name` into a sample slot, which plays at `gain`, a cut from 0 to 1, less than the
/// volume; a plain `name`.wav that is newer is converted first. False, with the slot as it was and after a line in the
/// log, when the file holds no sample or the slot is none; without the file the program ends as above.
bool UA_load_resource_sample(const Folder& folder, const char* name, int slot, float gain);

/// Black becomes 0xff00ff, which nothing draws.
void UA_black_to_mask(BITMAP* bitmap);

/// Loads `gui_sheet`, the palette, the text colours and the two fonts. An image that is missing or holds no picture
/// ends the program with a message box and -1.
void UA_load_framework_video(const Folder& folder);

/// Deletes what an interrupted load may have left behind.
void UA_sweep_temp_resources(const Folder& folder);

// ---- The object library --------------------------------------------------------------------------------------------

/// Reads `obj_lib.def` into `object_library`: a number a line, for each object four and the count of its pairs, then
/// the pairs. Reading stops, with a line in the log, at a record that the table has no room for.
void UA_load_object_library(const Folder& folder);

// ---- Packed files --------------------------------------------------------------------------------------------------

/// Packs a file into the container of framework/packer.h, or back. False, after a log line, when the result can't be
/// written, the source is too long or no sound container. A missing source ends the program with a message box and -1.
bool UA_pack_resource(const char* source, const char* target);
bool UA_unpack_resource(const char* source, const char* target);

/// True when the file begins with the container's four letters.
bool UA_is_packed(const char* file);

}  // namespace nubo
