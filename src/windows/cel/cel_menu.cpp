#include "windows/cel/cel_commands.h"
#include "windows/cel/select.h"
#include "windows/kit/activity_menus.h"
#include "windows/kit/placement.h"
#include <array>

namespace nubo {
namespace {

constexpr std::array<MenuItem, 8> cel_items{{
    {LABEL_GET, MESSAGE_CEL_GET, get_by_menu},
    {LABEL_CLIP, MESSAGE_CEL_CLIP, clip_by_menu},
    {LABEL_PASTE, MESSAGE_CEL_PASTE, paste_by_menu},
    {LABEL_BELOW, MESSAGE_CEL_BELOW, place_below},
    {LABEL_ONE_COLOR, MESSAGE_CEL_ONE_COLOR, ask_to_convert_cel},
    {LABEL_TURN, MESSAGE_CEL_TURN, turn_cel},
    {LABEL_STRETCH, MESSAGE_CEL_STRETCH, stretch_cel},
    {.tooltip = MESSAGE_CEL_SELECT, .run = select_window, .text = "SELECT"},
}};
constexpr ActivityMenu menu{.id = WINDOW_CEL_MENU, .title = LABEL_CEL, .downward_within = 10, .items = cel_items};

}  // namespace

void cel_menu(int x, int y) { run_activity_menu(menu, x, y); }

}  // namespace nubo
