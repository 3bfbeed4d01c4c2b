// Nubo, a pixel editor.
#include "editor/loop.h"
#include "editor/start.h"
#include <cstdio>
#include <cstring>

namespace {

constexpr const char* usage = "Nubo v1.3, a pixel editor. It takes no arguments but --help and --version.\n"
                              "The workspace comes back at each start and is written at each exit.\n";

/// The exit code of a call that only asks something, or -1 when the editor is to start.
int answer_arguments(int argc, char** argv) {
    constexpr int start = -1, answered = 0, misused = 2;
    if (argc < 2) return start;
    const bool help = std::strcmp(argv[1], "-h") == 0 || std::strcmp(argv[1], "--help") == 0;
    const bool version = std::strcmp(argv[1], "--version") == 0;
    if (argc == 2 && (help || version)) {
        std::fputs(help ? usage : "Nubo v1.3\n", stdout);
        return answered;
    }
    std::fputs(usage, stderr);
    return misused;
}

}  // namespace

int main(int argc, char** argv) {
    if (const int code = answer_arguments(argc, argv); code >= 0) return code;
    if (const int code = nubo::start_program(); code != 0) return code;
    nubo::program_loop();
    return nubo::shutdown_program();
}
