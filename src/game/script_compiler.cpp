#include "game/script_compiler.h"

#include "base/log.h"
#include "game/scripts.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace nubo {
namespace {

constexpr std::size_t pair_digits = 2, header_digits = 4, number_characters = 4;
constexpr std::size_t longest_line = 299;  // bytes; what is longer goes on as the next line

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_of_number(char c) { return c >= '-' && c <= '9'; }

/// The number with which the text begins, 0 if with none.
int number_at_start_of(std::string_view text) {
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// Of two digits: what stands elsewhere in their place counts for nothing.
int pair_value(std::string_view pair) {
    return pair.empty() || !is_digit(pair[0]) ? 0 : number_at_start_of(pair.substr(0, pair_digits));
}

/// Four digits by themselves.
bool begins_with_header(std::string_view line) {
    const auto end = std::find_if_not(line.begin(), line.end(), is_digit);
    return static_cast<std::size_t>(end - line.begin()) == header_digits;
}

/// How many arguments a command reads.
int arguments_of(int command) {
    switch (command) {
    case SCRIPT_PAUSE:
    case SCRIPT_CAMERA: return 1;
    case SCRIPT_SCROLL:
    case SCRIPT_BUBBLE: return 2;
    case SCRIPT_FADE: return 3;
    case SCRIPT_QUEUE_WAIT:
    case SCRIPT_QUEUE_GAME:
    case SCRIPT_KEEP_JOB: return 5;
    case SCRIPT_KEEP_JOB_2: return 7;
    }
    return 0;
}

/// `at`, or the end of a line that is shorter.
std::size_t end_at(std::string_view line, std::size_t at) { return std::min(at, line.size()); }

class ScriptCompiler {
public:
    /// `number` counts the lines of the text from 1; `is_rest`: of a line that is longer than one may be.
    void add_line(std::string_view line, int number, bool is_rest);
    Bytes take_bytes() { return std::move(bytes_); }
    bool is_in_string() const { return in_string_; }

private:
    void put(int byte) { bytes_.push_back(static_cast<std::uint8_t>(byte)); }
    std::size_t add_header(std::string_view line);
    std::size_t add_argument(std::string_view line, std::size_t at);
    std::size_t add_command(std::string_view line, std::size_t at);
    void add_quote();

    Bytes bytes_;
    int arguments_due_ = 0;   // of the command added last
    bool in_string_ = false;  // also from one line to the next
};

/// Each of these returns where the line goes on.
std::size_t ScriptCompiler::add_header(std::string_view line) {
    put(SCRIPT_START);
    put(pair_value(line));
    put(pair_value(line.substr(end_at(line, pair_digits))));
    return end_at(line, header_digits);
}

std::size_t ScriptCompiler::add_argument(std::string_view line, std::size_t at) {
    std::size_t end = at;
    while (end < line.size() && end - at < number_characters && is_of_number(line[end])) ++end;
    const int value = number_at_start_of(line.substr(at, end - at)), size = std::abs(value), low = size & 0xff;
    if (low == SCRIPT_START) UA_log("[ WARNING ] : Argument of a script is read as its end! value = %d", value);
    put(SCRIPT_ARGUMENT);
    put(value < 0 ? 1 : 0);
    put(size >> 8);
    put(low);
    arguments_due_ -= 1;
    return end;
}

std::size_t ScriptCompiler::add_command(std::string_view line, std::size_t at) {
    const int number = pair_value(line.substr(at));
    put(number);
    arguments_due_ = arguments_of(number);
    return end_at(line, at + pair_digits);
}

void ScriptCompiler::add_quote() {
    in_string_ = !in_string_;
    if (in_string_) put(SCRIPT_STRING);
    put(script_quote);
}

void ScriptCompiler::add_line(std::string_view line, int number, bool is_rest) {
    std::size_t at = 0;
    bool has_foreign_byte = false;
    if (!in_string_ && !line.empty() && is_digit(line[0])) {
        if (is_rest || arguments_due_ > 0 || !begins_with_header(line))
            UA_log("[ WARNING ] : A script begins where the one before seems to go on! Line = %d", number);
        at = add_header(line);
    }
    while (at < line.size()) {
        const char c = line[at];
        if (!in_string_ && c == ';') return;
        if (!in_string_ && is_of_number(c)) {
            at = add_argument(line, at);
            continue;
        }
        ++at;
        if (c == script_quote) {
            add_quote();
        } else if (in_string_) {
            put(c);
            has_foreign_byte |= static_cast<unsigned char>(c) >= SCRIPT_START;
        } else if (c == '[') {
            at = add_command(line, at);
        }
    }
    if (has_foreign_byte)
        UA_log("[ WARNING ] : A string holds a byte of 240 or above, which may end its script! Line = %d", number);
}

}  // namespace

Bytes compile_scripts(std::string_view text) {
    ScriptCompiler compiler;
    int number = 1;
    bool is_rest = false;
    while (!text.empty()) {
        const std::size_t line_end = std::min(text.find('\n'), text.size());
        const std::size_t size = std::min(line_end, longest_line);
        const std::string_view line = text.substr(0, size);
        compiler.add_line(line.ends_with('\r') ? line.substr(0, size - 1) : line, number, is_rest);
        is_rest = size < line_end;
        number += is_rest ? 0 : 1;
        text.remove_prefix(is_rest ? size : end_at(text, size + 1));
    }
    if (compiler.is_in_string()) UA_log("[ WARNING ] : A string of the scripts has no end!");
    return compiler.take_bytes();
}

bool UA_compile_scripts(const Folder& folder) {
    Bytes text;
    if (!read_file(folder.file(scripts_source_file), scripts_size_max, text)) {
        UA_log("[ ERROR ] : Failed to find a script file. File = %s", scripts_source_file);
        return false;
    }
    const Bytes bytes = compile_scripts({reinterpret_cast<const char*>(text.data()), text.size()});
    return write_file(folder.file(scripts_file), bytes.data(), bytes.size());
}

}  // namespace nubo
