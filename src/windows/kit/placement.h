#pragma once
// A Cel that floats over the Frame until the user anchors it. PASTE, BELOW, TURN, STRETCH, MOVE and whatever brings a
// picture from elsewhere go through here. Main flow only.
//
// A left press on the Cel picks it up and the next one puts it down; a hand that moves on with the press carries it and
// lets go of it at the release. A right press anchors it; ESC leaves the Frame as it is. The arrow keys move it by a
// pixel, with SHIFT by eight; two rows of the key table flip it.
#include "base/bitmap.h"
#include "gui/waiting.h"
#include "paint/cel_paste.h"
#include "paint/cel_pixels.h"
#include "state/messages.h"

namespace nubo {

enum PlacementEnd : int { PLACEMENT_ANCHORED, PLACEMENT_LEFT };

/// What a pass of a placement comes to; NOT_SERVED: what the hand did is left to the rules of all placements.
enum Outcome : int { NOT_SERVED, GOES_ON, ANCHORS, LEAVES };

/// What one kind of placement does beyond what all do.
struct PlacementKind {
    CelMode shown = CEL_PASTE, committed = CEL_PASTE;
    CelMode committed_with_shift = committed;             // while SHIFT is down as it is anchored
    Message (*prompt)() = nullptr;                        // what the user can do now
    Message held_prompt = MESSAGE_NONE;                   // while the Cel is carried
    bool (*takes_up)(Point at) = nullptr;                 // a left press at this Frame pixel picks the Cel up
    Outcome (*serve)(HandStep hand, Point at) = nullptr;  // on each pass, before what all do
    void (*press_beside)() = nullptr;                     // a left press that doesn't pick up
};

/// Runs a placement, whose place in `cel_place` and whose `cel` the caller has set, to its end.
PlacementEnd run_placement(const PlacementKind& kind, UndoSave save);

/// PASTE: with `reload` the Cel is made anew from `cel_mask`, with `save` the commit saves undo; without it the open
/// step counts.
PlacementEnd place_cel(bool reload, bool save);

/// PASTE of a picture from elsewhere, which is the Cel meanwhile: as it is, with SHIFT by the active ink.
PlacementEnd place_picture();

/// BELOW: the Cel shows where the Frame is of the mask colour.
void place_below();

/// Another picture is the Cel as long as this lives, with its corner at the Frame pixel (x, y); then the Cel, its place
/// and its origin are back. False, with all as it was, when the memory for it can't be had.
class BorrowedCel {
public:
    BorrowedCel(OwnedBitmap picture, int x, int y, CelShape shape = CEL_IS_WHOLE);
    ~BorrowedCel();
    BorrowedCel(const BorrowedCel&) = delete;
    BorrowedCel& operator=(const BorrowedCel&) = delete;
    explicit operator bool() const { return is_borrowed_; }

    /// Gives the Cel back at once. The other picture, with where it stood, is the caller's to free.
    CelAside give_back();

private:
    CelAside cel_;  // the one set aside
    CelPlace place_;
    bool is_borrowed_ = false;
};

/// Puts the part of a Frame that floats back where it was cut (`open_step`). The user may have gone on to another Frame
/// meanwhile: that is left for it, but for the end of the program, where only the disk is touched. False, and the part
/// goes on floating, if that can't be.
enum PutBack : int { BACK_IN_VIEW, BACK_AT_END };
bool put_back_what_floats(PutBack when);

/// For when the main flow never comes back, as after the loss of the display: the user's Cel is the Cel again, as it
/// was, and a part of a Frame that floats is back where it was.
void end_placement();

/// Moves the view to the Cel as far as the pan limits let it, or with `to_view` the Cel to the middle of the view.
void cel_jump(bool to_view);

/// What two rows of the key table do with the Cel that floats.
void flip_cel_across();
void flip_cel_down();

}  // namespace nubo
