#pragma once
// What the commands that work on the bare Frame share. Main flow only.

namespace nubo {

/// The overlay lies over the Frame as long as this lives, and is empty afterwards.
class OverlayShown {
public:
    OverlayShown();
    ~OverlayShown();
    OverlayShown(const OverlayShown&) = delete;
    OverlayShown& operator=(const OverlayShown&) = delete;
};

/// Runs a command on the cleared screen; the drawing menu, if it is up, stays dimly visible meanwhile.
void run_over_shadow(void (*command)());

}  // namespace nubo
