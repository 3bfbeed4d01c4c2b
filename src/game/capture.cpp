// The screenshot.
#include "base/log.h"
#include "codecs/png.h"
#include "game/screen_effects.h"
#include "platform/folder.h"
#include "platform/safe_file.h"
#include "state/options.h"
#include "state/run.h"
#include <cstdio>

namespace nubo {
namespace {

constexpr int last_number = 999;
int capture_number = 1;  // of the last screenshot, where the next search begins

std::string name_of(int number) {
    std::array<char, 16> name{};
    std::snprintf(name.data(), name.size(), "screen_%03d.png", number);
    return name.data();
}

}  // namespace

int UA_screen_capture() {
    const Folder folder(program_dir.data());
    while (capture_number <= last_number && file_exists(folder.file(name_of(capture_number)))) ++capture_number;
    if (capture_number > last_number) {
        UA_log("[ WARNING] : I are confused. Can't find slot for screen capture! Count = %d", last_number);
        return -1;
    }
    Bytes bytes;
    if (!write_png(screen_buffer, bytes)) {
        UA_log("[ ERROR ] : The screen can't be written as a picture! Cause = %s", png_error);
        return -1;
    }
    const bool is_written = write_file(folder.file(name_of(capture_number)), bytes.data(), bytes.size());
    return is_written ? capture_number : -1;
}

}  // namespace nubo
