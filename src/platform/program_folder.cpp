#include "platform/program_folder.h"

#include "state/options.h"
#include <filesystem>

namespace nubo {

bool find_program_dir() {
    std::error_code error;
    const std::string folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
    if (error || folder.size() >= program_dir.size()) return false;
    program_dir.fill('\0');
    folder.copy(program_dir.data(), folder.size());
    return true;
}

}  // namespace nubo
