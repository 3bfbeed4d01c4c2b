#pragma once
// What the commands of nubo-wsp share.
#include "workspace/archive_file.h"
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace nubo {

enum ExitCode : int { EXIT_DONE, EXIT_FAILED, EXIT_USAGE };
using Words = std::span<char* const>;

/// Tells the cause on standard error; EXIT_FAILED.
int fail(const std::string& cause);

/// The contents of the archive. False after a message.
bool open_archive(const InputFile& file, const std::string& path, ArchiveContents& contents);

/// The number of Frames in the row of a folder; 0, told, if it is empty or has a gap.
int count_frames(const Folder& folder);

/// The words behind `export`: EXIT_USAGE, with nothing said, if they make no sense.
int export_command(Words words);

}  // namespace nubo
