#pragma once
// The built program in a window on a desktop of its own, in a copy of the staged folder.
#include "journeys/desktop.h"
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace nubo {

inline constexpr int logical_width = 320, logical_height = 240;

/// A picture as the program keeps it on disk. Width 0 when the file is missing or no uncompressed BMP of 24 or 32 bits.
Photo read_bmp(const std::string& path);
/// Writes a 24-bit BMP of one colour, as a user would lay it into WORKSPACE.
void write_bmp(const std::string& path, int width, int height, std::uint32_t color);

/// A program folder of the test's own, a desktop, and the program on it, run as often as the test likes.
class Journey {
public:
    /// Copies the staged folder without a Workspace, and starts the desktop. `mode` is the byte of
    /// config.def.
    explicit Journey(char mode = '2', int screen_width = 1400, int screen_height = 1050);
    /// A test that failed leaves a picture of the screen and what the program said in the test's output.
    ~Journey();
    Journey(const Journey&) = delete;
    Journey& operator=(const Journey&) = delete;

    /// Starts the program without waiting for anything.
    void launch();
    /// Starts it and waits until it takes what the mouse and the keys do; false, with a failure noted, when it doesn't
    /// come.
    bool start();
    /// Asks it to close, as the button in the window's frame does, and waits for its exit code.
    std::optional<int> close();
    Process& program() { return *program_; }
    Desktop& desktop() { return *desktop_; }

    const std::string& folder() const { return folder_; }
    std::string path(const std::string& file) const { return folder_ + "/" + file; }
    std::string log() const;
    std::vector<std::string> log_lines() const;
    /// Everything the program wrote to its standard streams.
    std::string said() const;

    /// The inside of the window, as found at the start; its size tells the scale.
    const Pane& window() const { return window_; }
    int scale() const { return window_.width / logical_width; }
    /// The middle of a logical pixel on the screen.
    Spot spot(int x, int y) const;
    /// The logical pixel as the screen shows it.
    std::uint32_t pixel(int x, int y) { return desktop_->pixel(spot(x, y)); }
    /// Waits until the logical pixel shows `color`; false when it never does.
    bool comes_to_show(int x, int y, std::uint32_t color);

    /// Moves the mouse and waits until the picture around it answers.
    void move_to(int x, int y);
    /// Draws with the left button from one logical pixel to the other, which lie on a diagonal: in the mouse's row and
    /// column the crosshairs tint what stands below. Certain to be painted is what lies from `certain_from` pixels on
    /// to halfway, for events that come close together reach the program together. False when no paint of `color`
    /// appears.
    static constexpr int certain_from = 4;
    bool draw_line(Spot from, Spot to, std::uint32_t color);

private:
    Photo around(Spot logical);

    std::string scratch_, folder_;
    std::unique_ptr<Desktop> desktop_;
    std::unique_ptr<Process> program_;
    Pane window_;
    Spot mouse_{-1, -1};  // logical
};

}  // namespace nubo
