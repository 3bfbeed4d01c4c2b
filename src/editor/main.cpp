// Nubo, a pixel editor.
#include "editor/command_line.h"
#include "editor/loop.h"
#include "editor/start.h"
#include "editor/stop.h"
#include "platform/clipboard.h"

int main(int argc, char** argv) {
    const nubo::CommandLine asked = nubo::read_command_line(argc, argv);
    if (asked.answered) return *asked.answered;
    if (const auto code = nubo::start_program(asked.files)) return *code;
    std::optional<int> code;
    do {
        nubo::program_loop();
        code = nubo::shutdown_program();
    } while (!code);
    nubo::leave_clipboard();  // last, since it waits for another program
    return *code;
}
