#include "base/log.h"

#include "base/regular_file.h"
#include <array>
#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace nubo {
namespace {

constexpr const char* log_name = "UA_log.txt";
int log_file = STDERR_FILENO;

/// A link that someone else has put there doesn't lead our lines into another file.
int open_log(const char* path) { return open_regular_file(path, O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW); }

/// The line of a format, its line feed included.
std::string format_line(const char* format, va_list arguments) {
    std::string line;
    for (const char* at = format; *at != '\0'; ++at) {
        if (*at != '%') {
            line += *at;
            continue;
        }
        std::array<char, 352> number{};  // the longest double has 309 digits before its point
        switch (*++at) {
        case 's':
        case 'S': line += va_arg(arguments, const char*); break;
        case 'd':
        case 'D': std::snprintf(number.data(), number.size(), "%d", va_arg(arguments, int)); break;
        case 'f':
        case 'F': std::snprintf(number.data(), number.size(), "%f", va_arg(arguments, double)); break;
        case '%': line += '%'; break;
        case '\0': --at; break;  // a lone % at the end
        }
        line += number.data();
    }
    return line += '\n';
}

}  // namespace

void UA_log_reset() { unlink(log_name); }

void UA_log_open(const char* fallback_dir) {
    log_file = open_log(log_name);
    if (log_file < 0 && fallback_dir != nullptr) {
        const std::string path = std::string(fallback_dir) + "/" + log_name;
        unlink(path.c_str());
        log_file = open_log(path.c_str());
    }
    if (log_file < 0) {
        std::perror("nubo: the log can't be opened, its lines follow here");
        log_file = STDERR_FILENO;
    }
}

void UA_log(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const std::string line = format_line(format, arguments);
    va_end(arguments);
    UA_log_raw(line);
}

void UA_log_raw(std::string_view text) {
    // One write of a file opened for appending: a line stays whole though the other flow logs at the same time.
    if (write(log_file, text.data(), text.size()) != static_cast<ssize_t>(text.size()) && log_file != STDERR_FILENO)
        std::fwrite(text.data(), 1, text.size(), stderr);
}

void UA_log_close() {
    if (log_file != STDERR_FILENO) close(log_file);
    log_file = STDERR_FILENO;
}

}  // namespace nubo
