// Any bytes, read as the BMP file of a Frame.
#include "base/log.h"
#include "fuzz/start.h"
#include "workspace/bmp_file.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

constexpr const char* picture = "picture.bmp";

/// Works in a folder of its own, where the log, a line for each refusal, leads nowhere.
int start() {
    std::string folder = std::filesystem::temp_directory_path() / "nubo-fuzz-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr || chdir(folder.c_str()) != 0) std::abort();
    if (symlink("/dev/null", "UA_log.txt") != 0) std::abort();
    nubo::UA_log_open();
    return nubo::start_fuzzing();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int started = start();
    std::FILE* const file = std::fopen(picture, "wb");
    if (file == nullptr) std::abort();
    std::fwrite(data, 1, size, file);
    std::fclose(file);
    nubo::load_bmp_file(picture);
    return started;
}
