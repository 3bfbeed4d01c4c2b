#pragma once
// What the commands that work on the bare Frame share. Main flow only.
#include "state/overlay.h"

namespace nubo {

/// The overlay lies over the Frame as long as this lives, is empty afterwards, and is shown then if it was before: a
/// tool may have opened the window that shows this.
class OverlayShown {
public:
    /// `draw`, if not null, draws on the overlay in each picture, over the preview of a tool that waits.
    explicit OverlayShown(OverlayDrawer draw = nullptr);
    ~OverlayShown();
    OverlayShown(const OverlayShown&) = delete;
    OverlayShown& operator=(const OverlayShown&) = delete;

private:
    int shown_before_;
    OverlayDrawer draw_before_;
};

/// Runs a command on the cleared screen; the drawing menu, if it is up, stays dimly visible meanwhile.
void run_over_shadow(void (*command)());

}  // namespace nubo
