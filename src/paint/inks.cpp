#include "paint/inks.h"

#include "paint/surfaces.h"
#include <algorithm>
#include <utility>

namespace nubo {
namespace {

static_assert(choices_are_sound<inks>());

using InkPainter = void (*)(const InkRow& row, Color color);
constexpr auto painters = []<std::size_t... ink>(std::index_sequence<ink...>) {
    return std::array<InkPainter, INK_COUNT>{paint_row_with<static_cast<Ink>(ink)>...};
}
(std::make_index_sequence<INK_COUNT>{});

}  // namespace

InkCanvas frame_canvas() {
    const BITMAP* const before = stroke_snapshot();
    return {current_frame->line,
            stroke_mask->line,
            before == nullptr ? nullptr : before->line,
            {0, 0},
            {0, 0, current_frame->w - 1, current_frame->h - 1}};
}

void apply_ink_on(const InkCanvas& canvas, InkRow row, Ink ink, Color color) {
    row.canvas = &canvas;
    painters[at(ink)](row, color);
}

void apply_ink_row(const InkRow& row, Ink ink, Color color) {
    note_painted(row.x, row.y, row.length);
    apply_ink_on(frame_canvas(), row, ink, color);
}

void apply_ink(int x, int y, int ink, Color color, int tip_value) {
    if (ink < 0 || ink >= INK_COUNT || !frame_contains(current_frame, x, y)) return;
    const auto tip = static_cast<std::uint8_t>(std::clamp(tip_value, 0, 255));
    apply_ink_row({x, y, 1, &tip, 0}, static_cast<Ink>(ink), color);
}

}  // namespace nubo
