#include "harness/harness.h"

namespace nubo {

void start_without_display() {
    unsetenv("DISPLAY");  // no last words in a window that waits for someone
    if (install_allegro(SYSTEM_NONE, &errno, nullptr) != 0) std::abort();
    set_color_depth(32);
    use_window_color_order();
    random_first.seed(1U);
    random_second.seed(2U);
}

ScratchFolder::ScratchFolder() : before_(std::filesystem::current_path()) {
    std::string form = std::filesystem::temp_directory_path() / "nubo-test-XXXXXX";
    if (mkdtemp(form.data()) == nullptr) std::abort();
    path_ = form;
    std::filesystem::current_path(path_);
}

ScratchFolder::~ScratchFolder() {
    std::filesystem::current_path(before_);
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string bytes_of(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string log_text() { return bytes_of("UA_log.txt"); }

}  // namespace nubo
