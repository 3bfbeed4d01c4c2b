#include "workspace/state_fields.h"

#include "base/color.h"
#include "base/random.h"
#include "state/cel.h"
#include "state/colors.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "state/tools.h"
#include "state/view.h"
#include "state/windows.h"
#include "workspace/guide_fields.h"

namespace nubo {
namespace {

constexpr int last_slot = choice_slots - 1;
constexpr int last_favorites_page = (favorite_count - 1) / favorites_row;

/// The guides as they stand in the file.
struct StoredGuides {
    GuideBytes bytes{};
    int mark = 0;
};

/// What an option of a tool or an ink may hold; slots without a row are stored and unused.
template <typename Row, std::size_t N>
FieldRange option_range(const std::array<Row, N>& rows, int number, int slot, const char* name) {
    const ChoiceOption* const option = at(number) < N ? find_option(rows[at(number)].options, slot) : nullptr;
    if (option == nullptr) return any_number(name);
    return {name, option->stored_lowest(), option->highest, 0};
}

template <class Fields> void walk_choices(Fields& fields) {
    for (std::size_t i = 0; i < choice_slots; ++i)
        fields.byte(tool_slots[i], {"a tool slot", TOOL_BOX, TOOL_COUNT - 1, default_tool_slots[i]});
    for (std::size_t i = 0; i < choice_slots; ++i)
        fields.byte(ink_slots[i], {"an ink slot", 0, INK_COUNT - 1, default_ink_slots[i]});
    fields.byte(active_tool_slot, {"the active tool slot", 0, last_slot, 0});
    fields.byte(active_ink_slot, {"the active ink slot", 0, last_slot, 0});
    fields.byte(colorspace, {"the colourspace", 0, SPACE_COUNT - 1, SPACE_RGB});
    fields.byte(state_flag, {"the state flag", 0, 255, 1});
    fields.byte(zoom, {"the zoom", 0, zoom_max, zoom_min});
    fields.byte(frame_index, {"the current frame", 0, frame_slots - 1, 0});
    fields.byte(frame_count, {"the number of frames", 1, frame_slots, 1});
    fields.byte(text_tool_size, {"the text size", 0, 255, 0});
    fields.byte(favorites_page, {"the favourites' page", 0, last_favorites_page, 0});
    fields.byte(spectrum_fold, {"the Spectrum's fold", 0, 3, 2});
    fields.byte(opt_cel_masking, flag_field("the cel masking", 1));
    fields.byte(brush_tip, {"the brush tip", 0, tip_custom, 0});
}

/// Zero is what a shape holds before its window was first used.
template <class Fields> void walk_shapes(Fields& fields) {
    constexpr FieldRange angle{"an angle", 0, 359, 0}, exponent{"an exponent of SUPERSHAPE", -3000, 3000, 0};
    fields.word(supershape_values.angle, angle);
    fields.word(supershape_values.n1, exponent);
    fields.word(supershape_values.n2, exponent);
    fields.word(supershape_values.n3, exponent);
    fields.word(supershape_values.arms, {"the arms of SUPERSHAPE", 0, 20, 0});
    fields.word(supershape_values.magnitude, {"the size of SUPERSHAPE", 0, 500, 0});
    fields.word(spiral_values.angle, angle);
    fields.word(spiral_values.scale, {"the scale of SPIRAL", 0, 500, 0});
    fields.word(spiral_values.wraps, {"the wraps of SPIRAL", 0, 64, 0});
    fields.word(spiral_values.spread, {"the spread of SPIRAL", 0, 255, 0});
    fields.word(spiral_values.flip, flag_field("the flip of SPIRAL", 0));
    fields.word(polygon_values.angle, angle);
    fields.word(polygon_values.radius, {"the radius of R.POLY", 0, 500, 0});
    fields.word(polygon_values.sides, {"the sides of R.POLY", 0, 32, 0});
}

/// What TEXT's window shows beyond the size's low byte, in bytes that older files leave at 0.
template <class Fields> void walk_rest_of_text(Fields& fields) {
    int high = text_tool_size / byte_values;
    fields.byte(text_tool_gap, {"the gap of the text", 0, 32, 0});
    fields.byte(high, {"the text size's high byte", 0, 1, 0});
    text_tool_size = text_tool_size % byte_values + high * byte_values;
}

template <class Fields> void walk_colors_and_views(Fields& fields, StoredGuides& stored) {
    constexpr int reach = max_frame_side;  // how far a view or the Cel may lie off
    for (Color& color : color_slots) fields.color(color, "a colour slot");
    for (Color& color : favorites) fields.color(color, "a favourite");
    fields.block(stored.bytes);
    fields.byte(state_format, {"the state format", 0, 255, 13});
    walk_rest_of_text(fields);
    fields.byte(stored.mark, flag_field("the mark of the guides", 0));
    for (FrameView& view : frame_view) fields.byte(view.zoom, {"the zoom of a frame", 0, zoom_max, zoom_min});
    fields.word(cel_angle, {"the angle of the cel", 0, 360, 0});
    fields.word(jpeg_quality, {"the JPEG quality", 0, 100, 90});
    fields.word(cel_x, {"the place of the cel", -reach, reach, 0});
    fields.word(cel_y, {"the place of the cel", -reach, reach, 0});
    fields.color(brush_color, "the brush colour");
    fields.color(mask_color, "the mask colour");
    fields.word(pan_x, {"the view", -reach, reach, 0});
    fields.word(pan_y, {"the view", -reach, reach, 0});
    fields.color(spectrum_start, "the Spectrum's start");
    fields.color(spectrum_end, "the Spectrum's end");
}

template <class Fields> void walk_options(Fields& fields) {
    for (int row = 0; row < option_rows; ++row)
        for (int slot = 0; slot < option_slots; ++slot) {
            fields.word(tool_options[at(row)][at(slot)], option_range(tools, row, slot, "an option of a tool"));
            fields.word(ink_options[at(row)][at(slot)], option_range(inks, row, slot, "an option of an ink"));
        }
}

template <class Fields> void walk_names(Fields& fields) {
    fields.text(workspace_title, "the title");
    fields.text(workspace_notes, "the notes");
    fields.text(image_dir, "the image folder");
    fields.text(image_file, "the image file");
    fields.text(text_tool_text, "the text");
    fields.text(default_image_dir, "the home folder of images");
    fields.text(default_font_dir, "the home folder of fonts");
    fields.text(font_name, "the font");
    fields.text(font_dir, "the folder of the font");
}

template <class Fields> void walk_state(Fields& fields, StoredGuides& stored) {
    walk_choices(fields);
    walk_shapes(fields);
    walk_colors_and_views(fields, stored);
    walk_options(fields);
    walk_names(fields);
    for (WindowPos& place : window_pos) {
        fields.word(place.x, {"the place of a window", -1, view_w - 1, -1});
        fields.word(place.y, {"the place of a window", -1, view_h - 1, -1});
    }
    for (FrameView& view : frame_view) {
        fields.word(view.pan_x, {"the view of a frame", -max_frame_side, max_frame_side, 0});
        fields.word(view.pan_y, {"the view of a frame", -max_frame_side, max_frame_side, 0});
    }
}

}  // namespace

std::vector<std::uint8_t> pack_state() {
    FieldWriter fields;
    state_format = 13;
    StoredGuides stored{pack_guides()};
    stored.mark = stored.bytes == GuideBytes{} ? 0 : 1;
    walk_state(fields, stored);
    return std::move(fields.bytes);
}

bool unpack_state(const std::vector<std::uint8_t>& bytes, const char* file) {
    FieldReader fields(bytes, file);
    StoredGuides stored;
    walk_state(fields, stored);
    const bool has_guides = unpack_guides(stored.bytes, stored.mark != 0, file);
    state_flag = state_flag != 0 ? 1 : 0;
    zoom = std::max<int>(zoom, zoom_min);
    return fields.finish() && has_guides;
}

}  // namespace nubo
