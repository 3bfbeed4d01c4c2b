#include "editor/command_line.h"

#include <cstdio>
#include <filesystem>
#include <string_view>

namespace nubo {
namespace {

constexpr const char* version = "Nubo v1.3\n";
constexpr const char* usage =
    "Nubo v1.3, a pixel editor.\n"
    "\n"
    "Usage: nubo [FILE...]\n"
    "       nubo --help | --version\n"
    "\n"
    "Each FILE, a picture in GIF, PCX, BMP, PNG, JPG or LBM, is opened as a new Frame, up to 100 in all.\n"
    "A FILE in WSP, one at most, is a whole workspace and takes the place of the last, kept as previous.wsp.\n"
    "If the program runs already, its window opens them. \"--\" ends the options.\n"
    "The workspace comes back at each start and is written at each exit.\n";

/// The path as it stands for a process that is elsewhere; the file needn't exist.
std::string absolute_path(const char* path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(path, error);
    return error ? path : whole.lexically_normal().string();
}

}  // namespace

CommandLine read_command_line(int argc, char** argv) {
    constexpr int fine = 0, misused = 2;
    CommandLine asked;
    bool has_options = true;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (!has_options || argument.empty() || argument.front() != '-') {
            asked.files.push_back(absolute_path(argv[i]));
        } else if (argument == "--") {
            has_options = false;
        } else {
            const bool help = argument == "-h" || argument == "--help", is_known = help || argument == "--version";
            std::fputs(help || !is_known ? usage : version, is_known ? stdout : stderr);
            asked.answered = is_known ? fine : misused;
            return asked;
        }
    }
    return asked;
}

}  // namespace nubo
