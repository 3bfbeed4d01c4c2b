#include "windows/activity_menus.h"
#include <array>

namespace nubo {
namespace {

constexpr std::array<MenuItem, 7> cel_items{{
    {LABEL_GET, MESSAGE_CEL_GET, say_comes_later},
    {LABEL_CLIP, MESSAGE_CEL_CLIP, say_comes_later},
    {LABEL_PASTE, MESSAGE_CEL_PASTE, say_comes_later},
    {LABEL_BELOW, MESSAGE_CEL_BELOW, say_comes_later},
    {LABEL_ONE_COLOR, MESSAGE_CEL_ONE_COLOR, say_comes_later},
    {LABEL_TURN, MESSAGE_CEL_TURN, say_comes_later},
    {LABEL_STRETCH, MESSAGE_CEL_STRETCH, say_comes_later},
}};
constexpr ActivityMenu menu{
    .id = WINDOW_CEL_MENU, .title = LABEL_CEL, .downward_below = 102, .above_button = 92, .items = cel_items};

}  // namespace

void cel_menu(int x, int y) { run_activity_menu(menu, x, y); }

}  // namespace nubo
