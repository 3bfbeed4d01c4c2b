#include "windows/hand_over.h"

#include "gui/draw.h"
#include "windows/cel/cel_commands.h"
#include "windows/colors/gradient_nodes.h"
#include "windows/kit/draw_elements.h"
#include "windows/shape_windows.h"
#include "windows/text_window.h"

namespace nubo {
namespace {

constexpr std::array drawer_rows{
    DrawerRow{ELEMENT_ABOUT, draw_about},
    DrawerRow{ELEMENT_DESCRIPTION, draw_description},
    DrawerRow{ELEMENT_SWATCH, draw_swatch},
    DrawerRow{ELEMENT_SWATCH_MASK, draw_swatch_mask},
    DrawerRow{ELEMENT_SWATCH_BRUSH, draw_swatch_brush},
    DrawerRow{ELEMENT_SPECTRUM, draw_spectrum},
    DrawerRow{ELEMENT_FILE_LIST, draw_file_list},
    DrawerRow{ELEMENT_PREVIEW, draw_preview},
    DrawerRow{ELEMENT_MINIMAP, draw_minimap},
    DrawerRow{ELEMENT_THUMBNAIL, draw_thumbnail},
    DrawerRow{ELEMENT_TIP_CELL, draw_tip_cell},
    DrawerRow{ELEMENT_CUSTOM_TIP, draw_custom_tip},
    DrawerRow{ELEMENT_TIP_BUTTON, draw_tip_button},
    DrawerRow{ELEMENT_VARIANT_HUE, draw_variant},
    DrawerRow{ELEMENT_VARIANT_LIGHT, draw_variant},
    DrawerRow{ELEMENT_VARIANT_SAT, draw_variant},
    DrawerRow{ELEMENT_MAP_VGA, draw_color_map},
    DrawerRow{ELEMENT_MAP_RGB, draw_color_map},
    DrawerRow{ELEMENT_MAP_HLS, draw_color_map},
    DrawerRow{ELEMENT_MAP_HSV, draw_color_map},
    DrawerRow{ELEMENT_ANCHOR_PREVIEW, draw_anchor_preview},
    DrawerRow{ELEMENT_HOTKEY, draw_hotkey},
    DrawerRow{ELEMENT_FRAME_COUNT, draw_frame_count},
    DrawerRow{ELEMENT_FILE_NAME, draw_file_name},
    DrawerRow{ELEMENT_KEPT_WORKSPACE, draw_kept_workspace},
    DrawerRow{ELEMENT_HELP_TEXT, draw_help_text},
    DrawerRow{ELEMENT_ZOOM_PREVIEW, draw_zoom_preview},
    DrawerRow{ELEMENT_SCHEME_PANEL, draw_scheme_panel},
    DrawerRow{ELEMENT_SCHEME_SHADOW, draw_scheme_shadow},
    DrawerRow{ELEMENT_SCHEME_BORDER, draw_scheme_border},
    DrawerRow{ELEMENT_SCHEME_BUTTON, draw_scheme_button},
    DrawerRow{ELEMENT_SCHEME_BUTTON_DARK, draw_scheme_button_dark},
    DrawerRow{ELEMENT_SCHEME_FIELD, draw_scheme_field},
    DrawerRow{ELEMENT_SCHEME_LIST, draw_scheme_list},
};

}  // namespace

void hand_over_windows() {
    set_element_drawers(drawer_rows);
    register_gradient_nodes();
    register_shape_windows();
    register_text_window();
    register_cel_commands();
}

}  // namespace nubo
