#pragma once
// A box with a bar that moves, in the place of whatever window stood. Main flow only.
#include "state/labels.h"
#include <chrono>
#include <functional>

namespace nubo {

/// On screen as long as it lives; nothing stands there afterwards, so whoever opens it brings back what belongs there.
/// The close button and signals are remembered by `exit_requested` and end nothing here.
class ProgressBox {
public:
    explicit ProgressBox(Label title);
    ~ProgressBox();
    ProgressBox(const ProgressBox&) = delete;
    ProgressBox& operator=(const ProgressBox&) = delete;

    /// Shows so many percent. The screen is drawn anew at most 25 times a second, since that takes time too, and when
    /// all is done.
    void tell(double percent);

    /// Runs what waits for the disk on a thread of its own and keeps the screen alive meanwhile.
    void run_beside(const std::function<void()>& work);

private:
    void draw();
    std::chrono::steady_clock::time_point drawn_{};
};

}  // namespace nubo
