#include "windows/files/file_browser.h"
#include "windows/kit/activity_menus.h"
#include "windows/pic_commands.h"
#include "windows/reduce_window.h"
#include "windows/sheet_tool.h"
#include <array>

namespace nubo {
namespace {

constexpr std::array<MenuItem, 6> pic_items{{
    {LABEL_PIC_CLEAR, MESSAGE_PIC_CLEAR, clear_frame},
    {LABEL_PIC_RESTORE, MESSAGE_PIC_RESTORE, restore_frame},
    {LABEL_PIC_SHEET, MESSAGE_PIC_SHEET, sheet_tool},
    {LABEL_PIC_SAVE, MESSAGE_PIC_SAVE, save_frame_command},
    {LABEL_PIC_LOAD, MESSAGE_PIC_LOAD, load_frame_command},
    {.tooltip = MESSAGE_PIC_REDUCE, .run = reduce_window, .text = "REDUCE"},
}};
constexpr ActivityMenu menu{.id = WINDOW_PIC_MENU, .title = LABEL_PIC, .items = pic_items};

}  // namespace

void pic_menu(int x, int y) { run_activity_menu(menu, x, y); }

}  // namespace nubo
