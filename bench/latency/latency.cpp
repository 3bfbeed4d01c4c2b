// From the hand to the pixel: the time from a mouse event, as the X server sends it, to the changed pixel on the
// screen. Prints the median, the 90th of a hundred and the worst, for the program at its default settings in a real
// window and, beside it, for a bare window that does nothing but paint where the mouse is: what no program can undercut
// here.
//
//   press: with the mouse at rest on the frame, from the press to the first picture with the painted pixels
//   drag:  with the button held, from a movement of 24 pixels across to the pixel in the middle of the way
#include "journeys/program.h"

#include <X11/Xlib.h>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <thread>

namespace nubo {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int samples = 200, stride = 24, stride_fall = 6, margin = 20;  // logical pixels
constexpr int stride_rows = 9, paint_rows = 10, row_height = 12, paint_columns = 20, column_width = 14;
constexpr std::uint32_t black = 0, white = 0xffffff;
constexpr double no_answer_ms = 2'000.0;
constexpr std::chrono::microseconds look_again(100);
constexpr const char* peer_title = "Bare window";

/// What is measured: a window, its scale, and the desktop it stands on.
struct Subject {
    Desktop& desktop;
    Pane window;
    int scale;
    Spot spot(int x, int y) const { return {window.x + x * scale + scale / 2, window.y + y * scale + scale / 2}; }
};

double ms_until(const std::function<bool()>& seen, Clock::time_point since) {
    for (;;) {
        if (seen()) break;
        if (Clock::now() - since > std::chrono::duration<double, std::milli>(no_answer_ms)) return no_answer_ms;
        std::this_thread::sleep_for(look_again);
    }
    return std::chrono::duration<double, std::milli>(Clock::now() - since).count();
}

/// Lets the mouse rest so long that the picture is at rest too, and comes back at no fixed phase of anyone's ticks.
void let_rest() {
    static std::minstd_rand phase(1);
    std::this_thread::sleep_for(std::chrono::microseconds(60'000 + phase() % 20'000));
}

/// What the screen shows about the mouse.
Photo around(const Subject& subject, Spot at) {
    constexpr int reach = 4;  // logical pixels
    const int side = (2 * reach + 1) * subject.scale;
    return subject.desktop.photo({0, at.x - side / 2, at.y - side / 2, side, side});
}

/// The spots of one run, all different; one and the next share neither row nor column, where the crosshairs may lie.
Spot paint_spot(const Subject& subject, int i) {
    const int row = i % paint_rows, column = (i / paint_rows + row) % paint_columns;
    return subject.spot(margin + column * column_width, margin + row * row_height);
}

/// The program paints before it shows that it paints, so the first other picture after a press is the one with the
/// pixel in it. The cursor may stand over that pixel: whether it is there is looked at when the mouse is gone.
std::vector<double> measure_presses(const Subject& subject) {
    std::vector<double> times;
    std::optional<Spot> painted;
    for (int i = 0; i < samples; ++i) {
        const Spot at = paint_spot(subject, i);
        subject.desktop.move_to(at);
        let_rest();
        if (painted && subject.desktop.pixel(*painted) != white) times.back() = no_answer_ms;
        const Photo before = around(subject, at);
        const auto start = Clock::now();
        subject.desktop.press(MOUSE_LEFT);
        times.push_back(ms_until([&] { return around(subject, at).pixels != before.pixels; }, start));
        subject.desktop.release(MOUSE_LEFT);
        painted = at;
    }
    return times;
}

std::vector<double> measure_drags(const Subject& subject) {
    std::vector<double> times;
    constexpr int strides = 10;
    for (int row = 0; times.size() < samples; ++row) {
        const int y = margin + row * stride_rows;
        subject.desktop.move_to(subject.spot(margin, y));
        let_rest();
        subject.desktop.press(MOUSE_LEFT);
        for (int i = 0; i < strides; ++i) {
            let_rest();
            const int from = margin + i * stride;
            // Up and down by turns: the crosshairs lie over the row and the column of the mouse.
            const int fall = i % 2 == 0 ? stride_fall : -stride_fall, from_y = i % 2 == 0 ? y : y + stride_fall;
            const Spot middle = subject.spot(from + stride / 2, from_y + fall / 2);
            const auto start = Clock::now();
            subject.desktop.move_to(subject.spot(from + stride, from_y + fall));
            times.push_back(ms_until([&] { return subject.desktop.pixel(middle) == white; }, start));
        }
        subject.desktop.release(MOUSE_LEFT);
    }
    return times;
}

void print_row(const char* what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    const auto at = [&](double share) { return times[static_cast<std::size_t>(share * double(times.size() - 1))]; };
    std::printf("%-44s %8.1f %8.1f %8.1f\n", what, at(0.5), at(0.9), at(1.0));
}

// ---- The bare window -----------------------------------------------------------------------------------------------

/// An X client that waits for events and paints a square at each, a line of them after each movement; until the window
/// manager asks it to close.
void run_bare_window(const std::string& display_name) {
    Display* const display = XOpenDisplay(display_name.c_str());
    const Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 3 * logical_width,
                                              3 * logical_height, 0, 0, black);
    XStoreName(display, window, peer_title);
    XSelectInput(display, window, ButtonPressMask | ButtonMotionMask | ExposureMask);
    Atom close_request = XInternAtom(display, "WM_DELETE_WINDOW", False);
    XSetWMProtocols(display, window, &close_request, 1);
    XMapWindow(display, window);
    XSetForeground(display, DefaultGC(display, 0), white);
    Spot last;
    for (XEvent event{}; event.type != ClientMessage;) {
        XNextEvent(display, &event);
        if (event.type == ButtonPress) last = {event.xbutton.x, event.xbutton.y};
        if (event.type == MotionNotify) {
            XDrawLine(display, window, DefaultGC(display, 0), last.x, last.y, event.xmotion.x, event.xmotion.y);
            last = {event.xmotion.x, event.xmotion.y};
        }
        if (event.type == ButtonPress || event.type == MotionNotify)
            XFillRectangle(display, window, DefaultGC(display, 0), last.x - 1, last.y - 1, 3, 3);
    }
    XCloseDisplay(display);
}

void measure_bare_window(Desktop& desktop) {
    std::thread client(run_bare_window, desktop.name());
    std::optional<Pane> pane;
    wait_until([&] { return (pane = desktop.find_window(peer_title)).has_value(); });
    const Subject subject{desktop, *pane, 3};
    print_row("bare window, press", measure_presses(subject));
    print_row("bare window, drag", measure_drags(subject));
    desktop.close_window(*pane);
    client.join();
}

// ---- The program ---------------------------------------------------------------------------------------------------

/// The cursor covers the one pixel that the smallest tip paints. So the state that a first run leaves is given another:
/// a disc that shows around it.
bool choose_visible_tip(Journey& journey) {
    constexpr std::streamoff brush_tip_at = 23;  // in the state file
    constexpr char disc = 4;
    if (!journey.start() || journey.close() != 0) return false;
    std::fstream state(journey.path("WORKSPACE/current.spa"), std::ios::in | std::ios::out | std::ios::binary);
    return static_cast<bool>(state.seekp(brush_tip_at).put(disc).flush());
}

/// A user looks before he paints; meanwhile the program makes the memory of the first strokes ready.
constexpr std::chrono::seconds first_look{4};

/// False when the program doesn't come up.
bool measure_program(int width, int height, bool drag) {
    Journey journey('3');
    std::filesystem::create_directories(journey.path("WORKSPACE"));
    write_bmp(journey.path("WORKSPACE/current.000"), width, height, black);
    if ((!drag && !choose_visible_tip(journey)) || !journey.start()) return false;
    const Subject subject{journey.desktop(), journey.window(), journey.scale()};
    std::this_thread::sleep_for(first_look);
    const std::string what =
        "Nubo, " + std::to_string(width) + "x" + std::to_string(height) + (drag ? ", drag" : ", press");
    print_row(what.c_str(), drag ? measure_drags(subject) : measure_presses(subject));
    return journey.close() == 0;
}

}  // namespace

}  // namespace nubo

int main() {
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);  // each row is seen when it is measured
    std::printf("%-44s %8s %8s %8s   ms\n", "from the event to the pixel", "median", "90th", "worst");
    {
        nubo::Journey road;  // for its desktop alone
        nubo::measure_bare_window(road.desktop());
    }
    const bool measured = nubo::measure_program(320, 240, true) && nubo::measure_program(320, 240, false) &&
                          nubo::measure_program(4096, 4096, false);
    return measured ? 0 : 1;
}
