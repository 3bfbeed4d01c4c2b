#include "windows/user_menu.h"

#include "state/run.h"
#include "windows/about_box.h"
#include "windows/guides_window.h"
#include "windows/help_window.h"
#include "windows/hotkey_window.h"
#include "windows/kit/activity_menus.h"
#include "windows/kit/confirm_box.h"
#include "windows/options_window.h"
#include "windows/scheme_window.h"
#include "windows/workspace_window.h"
#include <array>

namespace nubo {
namespace {

constexpr std::array<MenuItem, 8> user_items{{
    {LABEL_OPTIONS, MESSAGE_USER_OPTIONS, options_window},
    {LABEL_KEYS, MESSAGE_USER_KEYS, hotkey_window},
    {LABEL_SCHEME, MESSAGE_NONE, scheme_window},
    {LABEL_HELP, MESSAGE_USER_HELP, help_window},
    {LABEL_WORKSPACE, MESSAGE_USER_WORKSPACE, workspace_window},
    {LABEL_ABOUT, MESSAGE_USER_ABOUT, about_box},
    {LABEL_QUIT, MESSAGE_USER_QUIT, ask_to_quit},
    {LABEL_NONE, MESSAGE_USER_GUIDES, guides_window, "GUIDES"},
}};
constexpr ActivityMenu menu{.id = WINDOW_USER_MENU, .title = LABEL_USER, .left_of_button = 18, .items = user_items};

}  // namespace

void ask_to_quit() {
    if (confirm(LABEL_EXIT_QUESTION, LABEL_CHANGES_PERSIST)) exit_requested = EXIT_BY_HAND;
}

void user_menu(int x, int y) { run_activity_menu(menu, x, y); }

}  // namespace nubo
