#pragma once
// What a program that can't run has to say, where there may be nothing yet, or nothing left, to say it with.
#include <string>

namespace nubo {

inline constexpr const char* program_title = "Nubo v1.3";

/// Says why the program ends: on standard error and, where there is a display, in a small window of its own, until the
/// user closes that. Allegro is shut down before, whose window would lie in the way. Main flow only.
void say_last_words(const std::string& words);

}  // namespace nubo
