#include "game/script_log.h"

#include "base/log.h"
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

namespace nubo {
namespace {

constexpr std::size_t longest_line = 128;  // bytes, far above any of ours
std::array<char, 8192> lines{};
std::size_t lines_size = 0;

}  // namespace

void log_script_line(const char* format, int value) {
    if (lines.size() - lines_size < longest_line) flush_script_lines();
    const int size = std::snprintf(&lines[lines_size], longest_line - 1, format, value);
    if (size < 0) return;
    lines_size += std::min(static_cast<std::size_t>(size), longest_line - 2);
    lines[lines_size++] = '\n';
}

void flush_script_lines() {
    if (lines_size > 0) UA_log_raw({lines.data(), lines_size});
    lines_size = 0;
}

}  // namespace nubo
