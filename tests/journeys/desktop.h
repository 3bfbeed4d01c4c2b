#pragma once
// A desktop of the test's own: an X server without a monitor, a window manager, and the hands of a user on mouse and
// keys.
#include "journeys/process.h"
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct _XDisplay;  // Xlib's; its header, full of macros, stays out of the tests

namespace nubo {

struct Spot {
    int x = 0, y = 0;
};

/// A picture taken of the screen, rows from the top, 0x00RRGGBB.
struct Photo {
    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels;
    std::uint32_t at(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

/// The inside of a top-level window: the X server's number for it and where it lies on the screen.
struct Pane {
    unsigned long id = 0;
    int x = 0, y = 0, width = 0, height = 0;
};

enum MouseButton : int { MOUSE_LEFT = 1, MOUSE_MIDDLE, MOUSE_RIGHT, MOUSE_WHEEL_UP, MOUSE_WHEEL_DOWN };

/// Coordinates are the screen's. Every call is with the server when it returns.
class Desktop {
public:
    /// Starts both and waits until the window manager is in charge. `folder` holds their output and the manager's home.
    /// Fails, and says why, by ending the test program: without a desktop there is nothing to test.
    explicit Desktop(const std::string& folder, int width = 1400, int height = 1050);
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    /// Kills the X server, as a crash or a logout does. Nothing but the destructor may be called afterwards.
    void kill_server();

    /// What DISPLAY has to be for a program that shall open its window here.
    const std::string& name() const { return name_; }

    void move_to(Spot spot);
    void press(MouseButton button);
    void release(MouseButton button);
    void click(MouseButton button);
    /// Presses and releases a key by its X name ("u", "Left", "KP_Add"), `held` seconds apart being the caller's
    /// matter.
    void press_key(const std::string& key);
    void release_key(const std::string& key);

    std::uint32_t pixel(Spot spot);
    Photo photo(const Pane& pane);
    /// Writes what the whole screen shows as a PPM picture, for people to look at.
    void save_photo(const std::string& path);

    /// The mapped window of that title, if there is one now.
    std::optional<Pane> find_window(const std::string& title);
    /// What tells a desktop which program the window is of: its class, "name Class", and the sides of its icons.
    std::string class_of(const Pane& pane);
    std::vector<unsigned long> icon_sides(const Pane& pane);
    /// Closes it as the button in its frame does: the window manager asks the program to.
    void close_window(const Pane& pane);
    /// What another program may do to it: destroys it; minimises it, and brings it back.
    void destroy_window(const Pane& pane);
    void minimise(const Pane& pane);
    void bring_back(const Pane& pane);
    /// The server answers nobody else until the grab is ended.
    void grab_server();
    void end_grab();

private:
    void start_server(const std::string& folder, int width, int height);
    void start_manager(const std::string& folder);
    bool manages_windows();
    void ask_manager(unsigned long window, const char* request);
    std::vector<unsigned long> words_of(unsigned long window, const char* name);
    unsigned long property(unsigned long window, const char* name);

    std::string name_;
    std::unique_ptr<Process> server_, manager_;
    _XDisplay* display_ = nullptr;
    int width_, height_;
};

}  // namespace nubo
