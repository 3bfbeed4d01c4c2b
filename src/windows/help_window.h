#pragma once
// The help window: a list of topics, and the text of the one chosen. Main flow only.
#include <string_view>

namespace nubo {

/// Runs the window until EXIT is pressed. No key but ESC and no right press works in it.
void help_window();

/// Columns that a word of a help text takes: its characters, colour codes not counted; -1 for "||", which breaks the
/// line.
int help_word_width(std::string_view word);

/// Lines of a help text, by its index in `help_text`, wrapped as the window shows it.
int help_line_count(int index);

}  // namespace nubo
