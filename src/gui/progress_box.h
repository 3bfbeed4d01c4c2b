#pragma once
// A box with a bar that moves, in the place of whatever window stood. Main flow only.
#include "platform/safe_file.h"
#include "state/labels.h"
#include <chrono>
#include <functional>

namespace nubo {

/// On screen as long as it lives, and alive while the main flow waits for the disk; nothing stands there afterwards, so
/// whoever opens it brings back what belongs there. The close button and signals are remembered by `exit_requested` and
/// end nothing here.
class ProgressBox {
public:
    explicit ProgressBox(Label title);
    ~ProgressBox();
    ProgressBox(const ProgressBox&) = delete;
    ProgressBox& operator=(const ProgressBox&) = delete;

    /// Shows so many percent. The screen is drawn anew at most 25 times a second, since that takes time too, and when
    /// all is done.
    void tell(double percent);

private:
    void draw_beside(const std::function<void()>& wait, std::size_t bytes);
    void draw_if_due();
    void draw();
    std::chrono::steady_clock::time_point drawn_{};
    DiskWaits disk_waits_;
};

}  // namespace nubo
