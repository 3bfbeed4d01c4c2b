#include "harness/windows.h"

#include "codecs/png.h"
#include "framework/outline_font.h"
#include "framework/resources.h"
#include "state/texts_labels.h"
#include "state/tools.h"
#include "state/view.h"
#include "windows/about_box.h"
#include "windows/cel/cel_commands.h"
#include "windows/cel/select.h"
#include "windows/colors/color_window.h"
#include "windows/colors/gradient_nodes.h"
#include "windows/colors/screen_pick.h"
#include "windows/favorites_window.h"
#include "windows/files/alpha_box.h"
#include "windows/files/file_browser.h"
#include "windows/files/jpeg_quality_window.h"
#include "windows/files/previous_window.h"
#include "windows/guides_window.h"
#include "windows/help_window.h"
#include "windows/history_window.h"
#include "windows/hotkey_window.h"
#include "windows/ink_window.h"
#include "windows/kit/activity_menus.h"
#include "windows/kit/confirm_box.h"
#include "windows/kit/drawing_menu.h"
#include "windows/kit/placement.h"
#include "windows/option_slider.h"
#include "windows/options_window.h"
#include "windows/reduce_window.h"
#include "windows/resize_window.h"
#include "windows/scheme_window.h"
#include "windows/shape_windows.h"
#include "windows/sheet_tool.h"
#include "windows/text_window.h"
#include "windows/tip_window.h"
#include "windows/tool_window.h"
#include "windows/unsaved_box.h"
#include "windows/workspace_window.h"
#include "workspace/defaults.h"
#include "workspace/preferred_font.h"

namespace nubo {
namespace {

constexpr int menu_button_x = 160, menu_button_y = 209;

/// Both nodes of the gradient lie beyond the view.
void lose_nodes() {
    constexpr int beyond = 200, near_zoom = 4;
    for (int node = OPTION_NODE; node <= OPTION_NODE + 1; ++node) ink_options[INK_HGRAD][at(node)] = beyond;
    zoom = near_zoom;
    reposition_gradient(INK_HGRAD);
}

void hold_option_key() {
    constexpr int looks = 4;
    ::key[KEY_INSERT] = 1;
    for (int i = 0; i < looks; ++i) update_screen(UPDATE_NORMAL);
    option_slider(OWNER_TOOL, TOOL_SPRAY);
    ::key[KEY_INSERT] = 0;
}

void write_text() {
    if (preferred_font == nullptr) {
        font_system_init();
        load_preferred_font(NUBO_FOLDER "/fonts/system.ttf");
    }
    std::strncpy(font_name.data(), system_font, file_name_size - 1);
    std::strncpy(text_tool_text.data(), "HAMBURGEFONTS", text_size - 1);
    text_tool();
}

void lose_cel() {
    cel_x = 2 * view_w;
    place_cel(true, true);
}

template <void (*menu)(int, int)> void open_menu() { menu(menu_button_x, menu_button_y); }

/// The windows that look different by what they are opened for.
void add_kinds(std::vector<WindowOpener>& all) {
    const auto add = [&all](const char* kind, int label, std::function<void()> open) {
        all.push_back({std::string(kind).append(label_text[at(label)]), IS_WINDOW, std::move(open)});
    };
    for (int space = SPACE_VGA; space < SPACE_COUNT; ++space)
        add("COLOR ", LABEL_VGA + space, [space] {
            colorspace = space;
            color_window(EDIT_BRUSH_COLOR);
        });
    for (int tool = TOOL_BOX; tool < TOOL_COUNT; ++tool)
        add("TOOL ", LABEL_TOOL_FIRST + tool, [tool] {
            tool_slots[0] = tool;
            tool_window(0);
        });
    for (int ink = INK_ADD; ink < INK_COUNT; ++ink)
        add("INK ", LABEL_INK_FIRST + ink, [ink] {
            ink_slots[0] = ink;
            ink_window(0);
        });
}

}  // namespace

AllWindowsTest::AllWindowsTest() {
    std::filesystem::copy(NUBO_FOLDER "/resource", ".", std::filesystem::copy_options::recursive);
    UA_load_framework_video(Folder("."));
    if (const OwnedBitmap tips(load_png("brushie.PNG", nullptr)); tips)
        blit(tips.get(), tip_sheet, 0, 0, 0, 0, tip_sheet_w, tip_image_h);
    replace_bitmap(logo, OwnedBitmap(load_png("N_HD_1X.RES", nullptr)));
    replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h));
    set_workspace_defaults();
    std::strncpy(default_image_dir.data(), NUBO_FOLDER, path_size - 1);  // whose files are on every machine
}

std::vector<WindowOpener> all_windows() {
    std::vector<WindowOpener> all{
        {"TIPS", IS_WINDOW, tip_window},
        {"WORKSPACE", IS_WINDOW | PANS, workspace_window},
        {"PREVIOUS", IS_WINDOW, [] { choose_previous_workspace(); }},
        {"FRAME", IS_WINDOW | PANS, open_menu<frame_menu>},
        {"PIC", IS_WINDOW | PANS, open_menu<pic_menu>},
        {"CEL", IS_WINDOW | PANS, open_menu<cel_menu>},
        {"USER", IS_WINDOW | PANS, open_menu<user_menu>},
        {"QUESTION", IS_WINDOW, [] { confirm_box(LABEL_DELETE_FRAME, LABEL_CANNOT_BE_UNDONE, false, false); }},
        {"ALPHA", IS_WINDOW, [] { ask_alpha_rule(); }},
        {"CUT-OUT", IS_WINDOW, load_frame_command},
        {"NODES", IS_WINDOW | IS_BOX_OVER_OTHERS | PANS, lose_nodes},
        {"OPTION SLIDER", IS_WINDOW | IS_BOX_OVER_OTHERS | IS_HELD, hold_option_key},
        {"TURN", IS_WINDOW | IS_BOX_OVER_OTHERS | PANS, [] { turn_cel_about(view_w / 4, view_h / 4); }},
        {"CEL OFFSCREEN", IS_WINDOW | IS_BOX_OVER_OTHERS | PANS, lose_cel},
        {"RESIZE", IS_WINDOW | PANS, resize_window},
        {"SPRITE SHEET", IS_WINDOW | PANS, sheet_tool},
        {"HELP", IS_WINDOW, help_window},
        {"ABOUT", IS_WINDOW, about_box},
        {"OPTIONS", IS_WINDOW, options_window},
        {"KEYS", IS_WINDOW, hotkey_window},
        {"KEY PROMPT", IS_WINDOW | TAKES_ESCAPE, [] { key_prompt(LABEL_HOTKEY_FIRST); }},
        {"SCHEME", IS_WINDOW, scheme_window},
        {"FAVORITES", IS_WINDOW, favorites_window},
        {"FILES", IS_WINDOW, save_frame_command},
        {"GUIDES", IS_WINDOW | PANS, guides_window},
        {"REDUCE", IS_WINDOW | PANS, reduce_window},
        {"SELECT", IS_WINDOW | PANS, select_window},
        {"HISTORY", IS_WINDOW | PANS, history_window},
        {"JPG QUALITY", IS_WINDOW | IS_BOX_OVER_OTHERS, [] { jpeg_quality_window(); }},
        {"R.POLY", IS_WINDOW | PANS, [] { run_shape_window(TOOL_RPOLY); }},
        {"SSHAPE", IS_WINDOW | PANS, [] { run_shape_window(TOOL_SSHAPE); }},
        {"SPIRAL", IS_WINDOW | PANS, [] { run_shape_window(TOOL_SPIRAL); }},
        {"TEXT", IS_WINDOW | PANS, write_text},
        {"NOTICE", IS_WINDOW, [] { confirm_box(LABEL_LAST_FRAME, LABEL_NONE, false, true); }},
        {"UNSAVED", IS_WINDOW, [] { unsaved_box(); }},
        {"GET", 0, get_by_menu},
        {"PASTE", PANS, paste_by_key},
        {"LASSO", 0, lasso_by_key},
        {"BELOW", PANS, below_by_key},
        {"TURN'S CLICK", 0, turn_cel},
        {"STRETCH", 0, stretch_cel},
        {"CROP", 0, quick_crop},
        {"SPECTRUM'S PICK", 0, pick_spectrum},
    };
    add_kinds(all);
    return all;
}

}  // namespace nubo
