#include "windows/kit/placement.h"

#include "base/keys.h"
#include "gui/elements.h"
#include "gui/presses.h"
#include "paint/cel_clean.h"
#include "paint/cel_pixels.h"
#include "paint/shape_in_hand.h"
#include "paint/snap.h"
#include "paint/tool_distance.h"
#include "paint/undo.h"
#include "state/cel.h"
#include "state/flow.h"
#include "state/frames.h"
#include "state/gui.h"
#include "state/guides.h"
#include "state/mouse.h"
#include "state/options.h"
#include "state/run.h"
#include "state/view.h"
#include "view/frame_tiles.h"
#include "view/view.h"
#include "windows/kit/arrow_keys.h"
#include "windows/kit/offscreen_box.h"
#include "windows/kit/over_frame.h"
#include "windows/kit/quick_pan.h"
#include "workspace/folders.h"
#include "workspace/frame_store.h"
#include "workspace/notices.h"
#include "workspace/rescue.h"
#include <algorithm>
#include <allegro.h>
#include <optional>
#include <utility>

namespace nubo {
namespace {

BorrowedCel* borrowed = nullptr;  // the one that lives

// ---- Keys ----------------------------------------------------------------------------------------------------------

bool is_across = false, is_down = false;  // the Cel that floats has been flipped

void reverse_rows(BITMAP* bitmap) {
    for (int y = 0; y < bitmap->h; ++y) std::reverse(pixels_at(bitmap, 0, y), pixels_at(bitmap, 0, y) + bitmap->w);
}

void reverse_columns(BITMAP* bitmap) {
    for (int y = 0; y < bitmap->h / 2; ++y)
        std::swap_ranges(pixels_at(bitmap, 0, y), pixels_at(bitmap, 0, y) + bitmap->w,
                         pixels_at(bitmap, 0, bitmap->h - 1 - y));
}

/// Both bitmaps, since BELOW, TILE and SCRAPE read the unmasked one.
void flip(void (*reverse)(BITMAP*), bool& is_flipped) {
    reverse(cel);
    reverse(cel_mask);
    is_flipped = !is_flipped;
    renew_clean_preview();
}

/// The Cel itself stays as it was.
void unflip() {
    if (is_across) flip(reverse_rows, is_across);
    if (is_down) flip(reverse_columns, is_down);
}

/// Puts the placement (dx, dy) from where it stood at `from`.
void shift_place(const CelPlace& from, int dx, int dy) {
    cel_place.x = from.x + dx;
    cel_place.y = from.y + dy;
    if (cel_place.mode == CEL_TURN) return;  // its x2 is an angle
    cel_place.x2 = from.x2 + dx;
    cel_place.y2 = from.y2 + dy;
}

void serve_arrows() {
    static ArrowKeys arrows;
    const Point step = arrows.step();
    shift_place(cel_place, step.x, step.y);
}

/// TURN and STRETCH have two qualities.
void serve_quality_key(KeyPress& key) {
    if (!key.happens() || cel_place.mode == CEL_PASTE) return;
    guides.clean_cel = guides.clean_cel != 0 ? 0 : 1;
    flash_text(guides.clean_cel != 0 ? "QUALITY: CLEAN" : "QUALITY: FAST");
}

// ---- What all placements do ----------------------------------------------------------------------------------------

/// The state of a placement, from its start to its end by whatever way.
class Floating {
public:
    explicit Floating(CelMode mode) {
        cel_place.mode = mode;
        arrows_move_cel = 1;
        is_across = is_down = false;
    }
    ~Floating() {
        unflip();
        cel_place = {};
        arrows_move_cel = 0;
        close_offscreen_box();
    }
    Floating(const Floating&) = delete;
    Floating& operator=(const Floating&) = delete;

private:
    OverlayShown overlay_;
};

/// One pass, and where the mouse is then: a press may come in the same instant as the motion to its place.
HandStep pass(Waiting& wait, Message prompt, Point& mouse) {
    wait.set_prompt(prompt);
    check_hotkeys(HOTKEYS_PLACING);
    const HandStep hand = wait.pass();
    if (mouse_middle != 0) quick_pan();
    view_update_pixel();
    mouse = {pixel_x, pixel_y};
    return hand;
}

Outcome put_down() {
    cel_x = cel_place.x;
    cel_y = cel_place.y;
    return GOES_ON;
}

Point mouse_pixel() {
    view_update_pixel();
    return {pixel_x, pixel_y};
}

/// Where the Cel stood and the mouse was when it was picked up, and the distance from there as far as it is shown.
struct Grip {
    CelPlace place = cel_place;
    Point mouse = mouse_pixel();
    std::optional<ToolDistance> distance;
    explicit Grip(const PlacementKind& kind) {
        if (kind.shown == CEL_PASTE) distance.emplace(mouse);
    }
    /// A part of the Frame that floats goes from cell to cell if SNAP is on.
    void follow(Point to) const {
        const Point wanted{place.x + to.x - mouse.x, place.y + to.y - mouse.y};
        const Point corner = area_floats != 0 ? snapped_place(wanted) : wanted;
        shift_place(place, corner.x - place.x, corner.y - place.y);
    }
};

/// As long as the press on the Cel lasts: a hand that moves on with it carries the Cel, and lets go of it at the
/// release. NOT_SERVED after a press in place.
Outcome carry_cel(const PlacementKind& kind, Waiting& wait) {
    const Grip grip(kind);
    bool is_carried = false;
    for (;;) {
        wait.set_prompt(kind.held_prompt);
        const HandStep hand = wait.held_pass();
        is_carried = is_carried || hand_has_moved();
        if (is_carried) grip.follow(mouse_pixel());
        if (hand == HAND_ESCAPES) return LEAVES;
        if (hand == HAND_RESTS) return is_carried ? put_down() : NOT_SERVED;
    }
}

/// Moves the Cel with the mouse until a press puts it down.
Outcome drag_cel(const PlacementKind& kind, Waiting& wait) {
    const Grip grip(kind);
    for (;;) {
        Point mouse;
        const HandStep hand = pass(wait, kind.held_prompt, mouse);
        grip.follow(mouse);
        if (const Outcome outcome = kind.serve(HAND_RESTS, mouse); outcome > GOES_ON) return outcome;
        if (hand == HAND_RIGHT) return ANCHORS;
        if (hand == HAND_ESCAPES) return LEAVES;
        if (hand == HAND_LEFT) return put_down();
    }
}

Outcome serve_pass(const PlacementKind& kind, Waiting& wait) {
    Point mouse;
    serve_arrows();
    const HandStep hand = pass(wait, kind.prompt(), mouse);
    if (const Outcome outcome = kind.serve(hand, mouse); outcome != NOT_SERVED) return outcome;
    if (hand == HAND_RIGHT) return ANCHORS;
    if (hand == HAND_ESCAPES) return LEAVES;
    if (hand == HAND_LEFT && kind.takes_up(mouse)) {
        cel_place.selected = 1;
        const Outcome outcome = carry_cel(kind, wait);
        return outcome != NOT_SERVED ? outcome : drag_cel(kind, wait);
    }
    if (hand == HAND_LEFT && kind.press_beside != nullptr) kind.press_beside();
    return GOES_ON;
}

/// Without memory for it the Cel goes on floating.
bool anchor(const PlacementKind& kind, UndoSave save) {
    const CelPlace place = cel_place;
    const int origin_x = cel_x, origin_y = cel_y;
    const CelMode mode = shift_is_down() ? kind.committed_with_shift : kind.committed;
    cel_place.mode = -1;  // what the ink has painted so far shows without the preview
    if (mode == CEL_PASTE) cel_x = place.x, cel_y = place.y;  // the origin of TILE and SCRAPE: before they paint
    if (commit_cel(mode, save)) return true;
    cel_place = place;
    cel_x = origin_x, cel_y = origin_y;
    return false;
}

// ---- PASTE and BELOW -----------------------------------------------------------------------------------------------

constexpr OffscreenBox cel_box{LABEL_CEL_OFFSCREEN, LABEL_JUMP_TO_CEL, LABEL_BRING_CEL_HERE};

Outcome serve_cel_box(HandStep, Point) {
    const OffscreenPress press = serve_offscreen_box(cel_box, cel_visible != 0);
    if (press != OFFSCREEN_NONE) cel_jump(press == OFFSCREEN_SECOND);
    return NOT_SERVED;
}

/// Strictly inside, but a side of one pixel is inside itself. On any tile.
bool lies_in_cel(Point at) {
    const auto inside = [](int offset, int size) { return offset < size && offset >= (size == 1 ? 0 : 1); };
    const Point offset = real_pixel({at.x - cel_place.x, at.y - cel_place.y});
    return inside(offset.x, cel->w) && inside(offset.y, cel->h);
}

constexpr PlacementKind paste_kind{.prompt = [] { return MESSAGE_CEL_REPOSITION; },
                                   .held_prompt = MESSAGE_CEL_REPOSITION,
                                   .takes_up = lies_in_cel,
                                   .serve = serve_cel_box};

/// It looks like PASTE until it is anchored.
constexpr PlacementKind below_kind = [] {
    PlacementKind kind = paste_kind;
    kind.committed = kind.committed_with_shift = CEL_BELOW;
    return kind;
}();

constexpr PlacementKind picture_kind = [] {
    PlacementKind kind = paste_kind;
    kind.prompt = [] { return MESSAGE_PICTURE_REPOSITION; };
    kind.held_prompt = MESSAGE_PICTURE_REPOSITION;
    kind.committed = CEL_AS_IS;
    return kind;
}();

void begin_where_it_stood() {
    cel_place = {.x = cel_x, .y = cel_y, .selected = 1};
    cel_visible = 1;  // until the first picture says otherwise
}

}  // namespace

PlacementEnd run_placement(const PlacementKind& kind, UndoSave save) {
    Waiting wait({.prompt = kind.held_prompt, .hotkeys = HOTKEYS_MODAL, .first_live_slot = high_slot});
    const Floating floating(kind.shown);
    KeyPress quality(KEY_Q);
    for (;;) {
        serve_quality_key(quality);
        const Outcome outcome = serve_pass(kind, wait);
        // At the program's end a part of the Frame isn't left in the air. Over another Frame it goes back instead,
        // since nothing could take it off that one again.
        const bool must_land = exit_requested != 0 && area_floats != 0 && step_is_of_frame();
        if (outcome == LEAVES && !must_land) return PLACEMENT_LEFT;
        if (outcome >= ANCHORS && anchor(kind, save)) return PLACEMENT_ANCHORED;
        if (must_land) return PLACEMENT_LEFT;
    }
}

PlacementEnd place_cel(bool reload, bool save) {
    if (reload) prepare_cel();
    begin_where_it_stood();
    return run_placement(paste_kind, save ? UNDO_TO_SAVE : UNDO_IS_TAKEN);
}

PlacementEnd place_picture() {
    begin_where_it_stood();
    return run_placement(picture_kind, UNDO_TO_SAVE);
}

void place_below() {
    prepare_cel();
    begin_where_it_stood();
    run_placement(below_kind, UNDO_TO_SAVE);
}

BorrowedCel::BorrowedCel(OwnedBitmap picture, int x, int y, CelShape shape) : place_(cel_place) {
    OwnedBitmap mask = picture ? copy_bitmap(picture.get()) : nullptr;
    if (!mask) return;
    is_borrowed_ = true;
    cel_ = {picture.release(), mask.release(), x, y, shape};
    exchange_cel(cel_);
    borrowed = this;
}

BorrowedCel::~BorrowedCel() {
    CelAside other = give_back();
    free_cel(other);
}

CelAside BorrowedCel::give_back() {
    if (!is_borrowed_) return {};
    is_borrowed_ = false;
    borrowed = nullptr;
    exchange_cel(cel_);
    cel_place = place_;
    return std::exchange(cel_, {});
}

bool put_back_what_floats(PutBack when) {
    if (area_floats == 0) return true;
    const int home = open_step().slot;
    if (frame_index != home && when == BACK_AT_END) {
        if (!put_back_cut_frame(slot_of_row(home))) return false;
        drop_step();
    } else if ((frame_index != home && !fetch_frame(frame_index, home)) || !take_back_step()) {
        return false;
    }
    area_floats = 0;
    return true;
}

void end_placement() {
    unflip();
    put_back_what_floats(BACK_AT_END);
    if (borrowed == nullptr) return;
    CelAside other = borrowed->give_back();
    free_cel(other);
}

void cel_jump(bool to_view) {
    const int middle_x = cel_place.x + cel->w / 2, middle_y = cel_place.y + cel->h / 2;
    if (to_view) {
        cel_place.x += view_center_x - middle_x;
        cel_place.y += view_center_y - middle_y;
        return;
    }
    const std::size_t level = at(std::clamp<int>(zoom, zoom_min, zoom_max));
    pan_x = middle_x - static_cast<int>(zoom_view_w[level] / 2);
    pan_y = middle_y - static_cast<int>(zoom_view_h[level] / 2);
    view_clamp();
}

void flip_cel_across() {
    if (cel_place.mode != -1) flip(reverse_rows, is_across);
}
void flip_cel_down() {
    if (cel_place.mode != -1) flip(reverse_columns, is_down);
}

}  // namespace nubo
