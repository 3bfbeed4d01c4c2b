#pragma once
// By what a desktop tells the window from others: its class, which names the program to the desktop's files, its
// process, and its icon.
#include <allegro.h>
#include <span>

namespace nubo {

/// Names the class of the window, as `nubo.desktop` does. Before or after the window is made.
void name_window_class();

/// Says which process of which machine the window belongs to. When the window is there.
void name_window_process();

/// Hands the window manager the icon in several sizes: 32-bit bitmaps with alpha in their top byte.
void set_window_icon(std::span<BITMAP* const> icons);

}  // namespace nubo
