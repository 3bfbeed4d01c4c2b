#pragma once
// The outline fonts in use. The bitmap fonts of the interface stand in state/fonts.h.
#include "state/options.h"

namespace nubo {

struct OutlineFont;

inline constinit OutlineFont* preferred_font = nullptr;  // of TEXT; from the first Workspace to the end
inline constinit OutlineFont* preview_font = nullptr;    // shown last by the file browser

inline constexpr const char* system_font = "system.ttf";  // in the program's folder `fonts`
inline constexpr int text_size_first = 28;                // of TEXT, where none is stored

inline constinit std::array<char, text_size> text_in_hand{};  // what stands in INPUT while TEXT runs, else empty

}  // namespace nubo
