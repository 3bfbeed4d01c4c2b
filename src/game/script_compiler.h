#pragma once
// Scripts as a text that people write, and the bytes that are made of it. Main flow only.
//
// In the text, line by line:
//   0102    at the start of a line: script 102 begins, by two pairs of decimal digits
//   [42]    a command
//   -12     an argument: up to four characters from "-" to "9"
//   "..."   a string, which may go on over several lines
//   ;       ends the line; all else is left out
//
// In the bytes one script follows another, without a directory:
//   F0 a b            a script begins, its number is a * 100 + b
//   F1 " text "       a string
//   F2 sign high low  an argument, sign 1 for a negative one
//   anything else     a command, below F0
#include "platform/folder.h"
#include "platform/memory_packfile.h"
#include <string_view>

namespace nubo {

/// The bytes of a text. What would end its script too early, or never, has a line in the log: bytes of 240 and above in
/// a string or an argument, a string without an end, a header where arguments are due or that isn't four digits.
Bytes compile_scripts(std::string_view text);

/// Compiles "scripts.def" into "mojo.def", both in the folder "resource". False, after a line in the log and with the
/// old file as it was, when one can't be read or the other not be written.
bool UA_compile_scripts(const Folder& folder);

}  // namespace nubo
