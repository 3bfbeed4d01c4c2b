#pragma once
// The shape that lasso and wand have taken, while the user decides what becomes of it. Main flow only.
#include "gui/waiting.h"
#include "paint/pixel_set.h"
#include "paint/shape_in_hand.h"
#include "windows/kit/over_frame.h"
#include <allegro.h>

namespace nubo {

/// What a press on the Frame begins, and whether the wand takes all of the colour. They last as long as the program
/// runs.
enum SelectTool : int { SELECT_BY_LASSO, SELECT_BY_WAND };
inline constinit SelectTool select_tool = SELECT_BY_LASSO;
inline constinit bool wand_is_global = false;

/// How a selection ends: not yet, without a trace, as the Cel, or carried away.
enum SelectEnd : int { SELECT_GOES_ON, SELECT_IS_LEFT, SELECT_IS_CEL, SELECT_IS_MOVED };

/// As long as it lives the moving stripes run round the shape.
class SelectionInHand {
public:
    SelectionInHand();
    ~SelectionInHand();
    SelectionInHand(const SelectionInHand&) = delete;
    SelectionInHand& operator=(const SelectionInHand&) = delete;

    /// The shape; empty as long as there is none.
    const PixelSet& shape() const { return shape_; }

    /// Gives the shape away.
    PixelSet give();

    /// Takes a shape by lasso or wand from a left press at a Frame pixel, which is still down: it takes the place of
    /// the one there was; with SHIFT it is added, with CTRL taken away.
    void take_from(Waiting& wait, Point press);

    /// What the keys ask for, on each pass: ENTER to make the shape the Cel, M to move it. Those of LASSO and WAND
    /// change the tool.
    SelectEnd asked_by_keys();

    /// Lets go of the shape if it isn't one of the Frame in hand.
    void follow_frame();

private:
    void serve_tool_keys();

    PixelSet shape_{};
    bool tool_keys_rest_ = false;
    KeyPress enter_{KEY_ENTER}, enter_pad_{KEY_ENTER_PAD}, move_{KEY_M};
    OverlayShown overlay_;
};

}  // namespace nubo
