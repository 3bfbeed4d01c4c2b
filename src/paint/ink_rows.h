#pragma once
// What the inks share: their options, runs of one tip value, the two coverages, and the loops that keep the coverage
// map.
#include "base/bitmap.h"
#include "base/color.h"
#include "codecs/blend.h"
#include "codecs/blend_rows.h"
#include "paint/inks.h"
#include "paint/surfaces.h"
#include "state/stroke.h"
#include <algorithm>

namespace nubo {

// ---- Options -------------------------------------------------------------------------------------------------------

/// An option of an ink, held to its range: the tables and coverages of the inks reach no further.
inline int held_option(Ink ink, InkOption slot) {
    const ChoiceOption& option = *find_option(inks[at(ink)].options, slot);
    return std::clamp<int>(ink_option(ink, slot), option.stored_lowest(), option.highest);
}
inline int strength_of(Ink ink) { return held_option(ink, OPTION_STRENGTH); }

// ---- Runs ----------------------------------------------------------------------------------------------------------

/// A stretch of a row with one tip value inside the tip, and its pixels on the three surfaces. What depends on the tip
/// value is worked out once a run and stands outside the pixel loops.
struct TipRun {
    int x, y, length;
    int tip;              // 0 to 199
    Color* frame;         // what is painted
    Color* mask;          // coverage of the stroke so far
    const Color* before;  // the snapshot
    const Color* colors;  // a colour for each pixel, or null

    /// The coverage of inks that compute a pixel: 200 at full, down to 1.
    int tip_coverage() const { return tip_outside - tip; }
};

/// Pixels `first` up to `first` + `length` of a row, as a run of `tip`.
inline TipRun run_of(const InkRow& row, int first, int length, int tip) {
    const int x = row.x + first;
    return {x,
            row.y,
            length,
            tip,
            row.canvas->frame(x, row.y),
            row.canvas->mask(x, row.y),
            row.canvas->before(x, row.y),
            row.colors == nullptr ? nullptr : row.colors + first};
}

/// The pixels `first` up to `first` + `length` of a run.
inline TipRun part_of(TipRun run, int first, int length) {
    run.x += first, run.frame += first, run.mask += first, run.before += first;
    if (run.colors != nullptr) run.colors += first;
    run.length = length;
    return run;
}

/// Calls `visit(run)` for each run of the row from the left; pixels outside the tip are left out.
template <typename Visit> void for_each_run(const InkRow& row, Visit visit) {
    if (row.tip_step == 0) {
        if (*row.tip < tip_outside) visit(run_of(row, 0, row.length, *row.tip));
        return;
    }
    for (int first = 0, end = 0; first < row.length; first = end) {
        const std::uint8_t tip = row.tip[first];
        for (end = first + 1; end < row.length && row.tip[end] == tip;) ++end;
        if (tip < tip_outside) visit(run_of(row, first, end - first, tip));
    }
}

/// Calls `paint(color_at)`, where `color_at(i)` is the colour of the run's pixel i: its own, or `color` for all. The
/// choice is made once, so that the pixel loops of `paint` are compiled for either.
template <typename Paint> void with_colors(const TipRun& run, Color color, Paint paint) {
    if (run.colors == nullptr)
        paint([color](int) { return color; });
    else
        paint([colors = run.colors](int i) { return colors[i]; });
}

/// Calls `visit(x, tip)` for each pixel of the row from the left, those outside the tip too.
template <typename Visit> void for_each_pixel(const InkRow& row, Visit visit) {
    for (int i = 0; i < row.length; ++i) visit(row.x + i, static_cast<int>(row.tip[i * row.tip_step]));
}

// ---- Coverage ------------------------------------------------------------------------------------------------------

/// The coverage of inks that blend: 0 to 255 at a tip value of 0 to 199; truncated.
constexpr int strength_coverage(int strength, int tip) {
    return tip == 0 ? strength : static_cast<int>(strength / 255.0 * (tip_outside - tip));
}

/// The strength as a factor of inks that compute a pixel, 0 to 1.
constexpr double strength_factor(int strength, int tip) {
    const double factor = strength / 255.0;
    return tip == 0 ? factor : factor * ((tip_outside - tip) / 200.0);
}

/// Sets the pixels of the run that are covered by less than `coverage` to `paint(i, pixel of the frame)`. The paint is
/// worked out for covered pixels too and dropped: without a branch the compiler makes four pixels of one step.
template <typename Paint> void cover_run(const TipRun& run, int coverage, Paint paint) {
    Color* __restrict__ const frame = run.frame;  // the surfaces never overlap
    Color* __restrict__ const mask = run.mask;
    const int length = run.length;  // for all the compiler knows, a pixel that is set might be the run's own length
    for (int i = 0; i < length; ++i) {
        const Color old = frame[i], painted = paint(i, old);
        const Color taken = static_cast<int>(mask[i]) < coverage ? ~Color{0} : 0;  // all bits or none
        frame[i] = old ^ ((old ^ painted) & taken);
        mask[i] = static_cast<Color>(std::max(static_cast<int>(mask[i]), coverage));
    }
}

/// The same for paint that costs more than a branch: covered pixels are passed over.
template <typename Paint> void cover_run_dear(const TipRun& run, int coverage, Paint paint) {
    for (int i = 0; i < run.length; ++i) {
        if (static_cast<int>(run.mask[i]) >= coverage) continue;
        run.frame[i] = paint(i);
        run.mask[i] = static_cast<Color>(coverage);
    }
}

}  // namespace nubo
