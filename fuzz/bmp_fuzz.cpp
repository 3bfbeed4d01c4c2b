// Any bytes, read as the BMP file of a Frame.
#include "base/log.h"
#include "codecs/bmp_file.h"
#include "fuzz/start.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

/// A folder of its own, where the log, a line for each refusal, leads nowhere. The process stays where it was started:
/// its arguments may be relative folders.
std::string make_folder() {
    std::string folder = std::filesystem::temp_directory_path() / "nubo-fuzz-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr || symlink("/dev/null", (folder + "/UA_log.txt").c_str()) != 0) std::abort();
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    nubo::UA_log_open();
    std::filesystem::current_path(before);
    return folder;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = nubo::start_fuzzing();
    static const std::string picture = make_folder() + "/picture.bmp";
    std::FILE* const file = std::fopen(picture.c_str(), "wb");
    if (file == nullptr) std::abort();
    std::fwrite(data, 1, size, file);
    std::fclose(file);
    nubo::load_bmp_file(picture);
    return started;
}
