// nubo-configure: writes the display mode into `config.def`, which the editor reads at its start. The mode is the one
// argument or, without one, what the user answers in the terminal.
#include "platform/safe_file.h"
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

namespace nubo {
namespace {

struct ModeRow {
    char mode;
    const char* display;
};
constexpr std::array<ModeRow, 4> modes{{
    {'1', "fullscreen, 640x480"},
    {'2', "a window of 640x480"},
    {'3', "a window of 960x720"},
    {'4', "a window of 1280x960"},
}};

enum ExitCode : int { EXIT_DONE, EXIT_FAILED, EXIT_USAGE };

const ModeRow* find_mode(std::string_view word) {
    for (const ModeRow& row : modes)
        if (word.size() == 1 && word[0] == row.mode) return &row;
    return nullptr;
}

/// `config.def` stands beside the program, wherever this was started from.
std::optional<std::string> config_path() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) return std::nullopt;
    return program.parent_path() / "config.def";
}

int write_mode(const std::string& path, const ModeRow& row) {
    SafeFile file(path);
    file.write(&row.mode, 1);
    if (!file.commit()) {
        std::fprintf(stderr, "%s can't be written. The display mode is as it was.\n", path.c_str());
        return EXIT_FAILED;
    }
    std::printf("Nubo will start in mode %c: %s.\n", row.mode, row.display);
    return EXIT_DONE;
}

/// The mode that the file holds now, or null.
const ModeRow* present_mode(const std::string& path) {
    char mode = 0;
    std::ifstream(path).get(mode);
    return find_mode({&mode, 1});
}

void list_modes(const ModeRow* present) {
    for (const ModeRow& row : modes)
        std::printf("  %c  %s%s\n", row.mode, row.display, &row == present ? "  (now)" : "");
}

/// Asks until the answer is a mode. Null when the user gives none: an empty line, or the end of the input.
const ModeRow* ask_for_mode(const ModeRow* present) {
    std::printf("Display modes of Nubo:\n");
    list_modes(present);
    for (std::string answer;;) {
        std::printf("Mode (Enter changes nothing): ");
        std::fflush(stdout);
        if (!std::getline(std::cin, answer) || answer.empty()) return nullptr;
        if (const ModeRow* const row = find_mode(answer)) return row;
        std::printf("There is no such mode. Please type a digit from 1 to 4.\n");
    }
}

int configure(int argument_count, char** arguments) {
    const std::string_view wish = argument_count > 1 ? arguments[1] : "";
    const bool asks_for_help = wish == "-h" || wish == "--help";
    const ModeRow* row = find_mode(wish);
    if (argument_count > 2 || (argument_count == 2 && row == nullptr)) {
        std::printf("Usage: nubo-configure [MODE]\nSets the display mode of Nubo:\n");
        list_modes(nullptr);
        return asks_for_help ? EXIT_DONE : EXIT_USAGE;
    }
    const auto path = config_path();
    if (!path) {
        std::fprintf(stderr, "The folder of the program can't be found.\n");
        return EXIT_FAILED;
    }
    if (row == nullptr) row = ask_for_mode(present_mode(*path));
    if (row != nullptr) return write_mode(*path, *row);
    std::printf("\nThe display mode is as it was.\n");
    return EXIT_DONE;
}

}  // namespace
}  // namespace nubo

int main(int argument_count, char** arguments) { return nubo::configure(argument_count, arguments); }
