#pragma once
#include <string>

namespace nubo {

/// The window that offers the Workspaces which LOAD and NEW have put away, the newest on top, each by its title, number
/// of Frames and time. The path of the chosen one; empty after CANCEL. Main flow only.
std::string choose_previous_workspace();

}  // namespace nubo
