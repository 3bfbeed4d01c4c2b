// What every fuzzer starts with: Allegro without a display, and a file for its input.
#include "fuzz/start.h"

#include "base/color.h"
#include "state/flow.h"

#include <allegro.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace nubo {
namespace {

std::string make_folder() {
    std::string folder = std::filesystem::temp_directory_path() / "nubo-fuzz-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) std::abort();
    return folder;
}

}  // namespace

// No picture and no keys: who waits goes on at once.
void update_screen(int) {}
void check_hotkeys(int) {}

int start_fuzzing() {
    if (install_allegro(SYSTEM_NONE, &errno, nullptr) != 0) std::abort();
    set_color_depth(32);
    use_window_color_order();
    return 0;
}

std::string put_in_file(const std::uint8_t* data, std::size_t size) {
    static const std::string path = make_folder() + "/input";
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) std::abort();
    std::fwrite(data, 1, size, file);
    std::fclose(file);
    return path;
}

TakePicture take_some_pictures() {
    return [pixels = std::int64_t{0}](BITMAP* canvas, FrameTime time) mutable {
        constexpr std::int64_t enough = 1'000'000;
        if (time.numerator < 1 || time.numerator > 65535 || time.denominator < 1 || time.denominator > 65535)
            std::abort();
        pixels += std::int64_t{canvas->w} * canvas->h;
        return pixels < enough;
    };
}

}  // namespace nubo
