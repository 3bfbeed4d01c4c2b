#include "journeys/desktop.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <unistd.h>

namespace nubo {

namespace {

constexpr int server_limit_ms = 20'000;
constexpr const char* probe_title = "Probe";

[[noreturn]] void give_up(const std::string& why) {
    std::fprintf(stderr, "No desktop to test on: %s\n", why.c_str());
    std::exit(1);
}

/// Windows come and go while we look at them; what fails is looked at again.
int overlook_error(Display*, XErrorEvent*) { return 0; }

/// One line from a pipe's end, "" when none came within the limit.
std::string read_line(int from) {
    std::string line;
    pollfd waited{from, POLLIN, 0};
    for (char c = 0; poll(&waited, 1, server_limit_ms) == 1 && read(from, &c, 1) == 1 && c != '\n';) line += c;
    return line;
}

std::uint32_t pixel_of(XImage* image, int x, int y) {
    return static_cast<std::uint32_t>(XGetPixel(image, x, y) & 0xffffffUL);
}

}  // namespace

// ---- Coming and going ----------------------------------------------------------------------------------------------

Desktop::Desktop(const std::string& folder, int width, int height) : width_(width), height_(height) {
    start_server(folder, width, height);
    start_manager(folder);
}

Desktop::~Desktop() {
    if (display_ != nullptr) XCloseDisplay(display_);
}

void Desktop::kill_server() {
    XCloseDisplay(display_);
    display_ = nullptr;
    server_->send_signal(SIGKILL);
}

void Desktop::start_server(const std::string& folder, int width, int height) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) give_up("no pipe");
    const std::string screen = std::to_string(width) + "x" + std::to_string(height) + "x24";
    Launch launch{{"Xvfb", "-displayfd", "3", "-screen", "0", screen, "-nolisten", "tcp", "-noreset"},
                  folder,
                  folder + "/Xvfb.txt",
                  {},
                  ends[1]};
    server_ = std::make_unique<Process>(launch);
    close(ends[1]);
    const std::string number = read_line(ends[0]);
    close(ends[0]);
    if (number.empty()) give_up("Xvfb did not start");
    name_ = ":" + number;
    display_ = XOpenDisplay(name_.c_str());
    if (display_ == nullptr) give_up("Xvfb does not answer at " + name_);
    XSetErrorHandler(overlook_error);
}

void Desktop::start_manager(const std::string& folder) {
    const Launch launch{
        {"openbox", "--sm-disable"},
        folder,
        folder + "/openbox.txt",
        {{"DISPLAY", name_}, {"HOME", folder}, {"XDG_CONFIG_HOME", folder}, {"XDG_CACHE_HOME", folder}}};
    manager_ = std::make_unique<Process>(launch);
    const auto in_charge = [this] { return property(DefaultRootWindow(display_), "_NET_SUPPORTING_WM_CHECK") != 0; };
    if (!wait_until(in_charge, Milliseconds(server_limit_ms)) || !manages_windows()) give_up("openbox did not start");
}

/// Shows the manager a window until it has taken it. What comes while it starts may lie unseen in its queue until
/// something else comes; so each look is a nudge too.
bool Desktop::manages_windows() {
    const Window probe = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0);
    XStoreName(display_, probe, probe_title);
    XMapWindow(display_, probe);
    const auto nudge_and_look = [this] {
        ask_manager(DefaultRootWindow(display_), "NUBO_NUDGE");
        return find_window(probe_title).has_value();
    };
    const bool taken = wait_until(nudge_and_look, Milliseconds(server_limit_ms));
    XDestroyWindow(display_, probe);
    return taken && wait_until([this] { return property(DefaultRootWindow(display_), "_NET_CLIENT_LIST") == 0; });
}

void Desktop::ask_manager(unsigned long window, const char* request) {
    constexpr long asked_by_user = 2;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display_, request, False);
    event.xclient.format = 32;
    event.xclient.data.l[1] = asked_by_user;
    XSendEvent(display_, DefaultRootWindow(display_), False, SubstructureNotifyMask | SubstructureRedirectMask, &event);
    XSync(display_, False);
}

/// The words of a property that holds numbers, none when the window hasn't got it.
std::vector<unsigned long> Desktop::words_of(unsigned long window, const char* name) {
    constexpr long most = 1 << 20;
    Atom type = None;
    int bits = 0;
    unsigned long count = 0, left = 0;
    unsigned char* bytes = nullptr;
    std::vector<unsigned long> words;
    if (XGetWindowProperty(display_, window, XInternAtom(display_, name, False), 0, most, False, AnyPropertyType, &type,
                           &bits, &count, &left, &bytes) == Success &&
        bits == 32)
        words.assign(reinterpret_cast<unsigned long*>(bytes), reinterpret_cast<unsigned long*>(bytes) + count);
    if (bytes != nullptr) XFree(bytes);
    return words;
}

/// The first of them, or 0.
unsigned long Desktop::property(unsigned long window, const char* name) {
    const std::vector<unsigned long> words = words_of(window, name);
    return words.empty() ? 0 : words.front();
}

// ---- The user's hands ----------------------------------------------------------------------------------------------

void Desktop::move_to(Spot spot) {
    XTestFakeMotionEvent(display_, 0, spot.x, spot.y, CurrentTime);
    XSync(display_, False);
}

void Desktop::press(MouseButton button) {
    XTestFakeButtonEvent(display_, static_cast<unsigned>(button), True, CurrentTime);
    XSync(display_, False);
}

void Desktop::release(MouseButton button) {
    XTestFakeButtonEvent(display_, static_cast<unsigned>(button), False, CurrentTime);
    XSync(display_, False);
}

void Desktop::click(MouseButton button) {
    press(button);
    release(button);
}

void Desktop::press_key(const std::string& key) {
    XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, XStringToKeysym(key.c_str())), True, CurrentTime);
    XSync(display_, False);
}

void Desktop::release_key(const std::string& key) {
    XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, XStringToKeysym(key.c_str())), False, CurrentTime);
    XSync(display_, False);
}

// ---- The user's eyes -----------------------------------------------------------------------------------------------

std::uint32_t Desktop::pixel(Spot spot) {
    XImage* const image = XGetImage(display_, DefaultRootWindow(display_), spot.x, spot.y, 1, 1, AllPlanes, ZPixmap);
    if (image == nullptr) return 0;
    const std::uint32_t pixel = pixel_of(image, 0, 0);
    XDestroyImage(image);
    return pixel;
}

Photo Desktop::photo(const Pane& pane) {
    Photo photo{pane.width, pane.height, {}};
    photo.pixels.assign(static_cast<std::size_t>(pane.width * pane.height), 0);
    XImage* const image =
        XGetImage(display_, DefaultRootWindow(display_), pane.x, pane.y, static_cast<unsigned>(pane.width),
                  static_cast<unsigned>(pane.height), AllPlanes, ZPixmap);
    if (image == nullptr) return photo;
    for (int y = 0; y < pane.height; ++y)
        for (int x = 0; x < pane.width; ++x)
            photo.pixels[static_cast<std::size_t>(y * pane.width + x)] = pixel_of(image, x, y);
    XDestroyImage(image);
    return photo;
}

void Desktop::save_photo(const std::string& path) {
    if (display_ == nullptr) return;
    const Photo screen = photo(Pane{0, 0, 0, width_, height_});
    std::ofstream file(path, std::ios::binary);
    file << "P6\n" << width_ << ' ' << height_ << "\n255\n";
    for (const std::uint32_t pixel : screen.pixels)
        file << static_cast<char>(pixel >> 16) << static_cast<char>(pixel >> 8) << static_cast<char>(pixel);
}

// ---- Windows -------------------------------------------------------------------------------------------------------

std::optional<Pane> Desktop::find_window(const std::string& title) {
    // The manager lists its windows; the list is short, and a window is on it once it is mapped.
    Atom type = None;
    int bits = 0;
    unsigned long count = 0, left = 0;
    unsigned char* bytes = nullptr;
    const Window root = DefaultRootWindow(display_);
    XGetWindowProperty(display_, root, XInternAtom(display_, "_NET_CLIENT_LIST", False), 0, 64, False, XA_WINDOW, &type,
                       &bits, &count, &left, &bytes);
    std::optional<Pane> found;
    for (unsigned long i = 0; i < count && bits == 32; ++i) {
        const Window window = reinterpret_cast<Window*>(bytes)[i];
        char* name = nullptr;
        XWindowAttributes shape;
        Window child = None;
        Pane pane{window};
        if (XFetchName(display_, window, &name) != 0 && name != nullptr && title == name &&
            XGetWindowAttributes(display_, window, &shape) != 0 && shape.map_state == IsViewable &&
            XTranslateCoordinates(display_, window, root, 0, 0, &pane.x, &pane.y, &child) != 0) {
            pane.width = shape.width;
            pane.height = shape.height;
            found = pane;
        }
        if (name != nullptr) XFree(name);
    }
    if (bytes != nullptr) XFree(bytes);
    return found;
}

std::string Desktop::class_of(const Pane& pane) {
    XClassHint hint{};
    if (XGetClassHint(display_, pane.id, &hint) == 0) return {};
    const std::string both = std::string(hint.res_name) + " " + hint.res_class;
    XFree(hint.res_name);
    XFree(hint.res_class);
    return both;
}

std::vector<unsigned long> Desktop::icon_sides(const Pane& pane) {
    const std::vector<unsigned long> words = words_of(pane.id, "_NET_WM_ICON");
    std::vector<unsigned long> sides;
    for (std::size_t at = 0; at + 1 < words.size() && words[at] == words[at + 1]; at += 2 + words[at] * words[at + 1])
        sides.push_back(words[at]);
    return sides;
}

void Desktop::close_window(const Pane& pane) { ask_manager(pane.id, "_NET_CLOSE_WINDOW"); }

void Desktop::destroy_window(const Pane& pane) {
    XDestroyWindow(display_, pane.id);
    XSync(display_, False);
}

void Desktop::minimise(const Pane& pane) {
    XIconifyWindow(display_, pane.id, DefaultScreen(display_));
    XSync(display_, False);
}

void Desktop::bring_back(const Pane& pane) { ask_manager(pane.id, "_NET_ACTIVE_WINDOW"); }

void Desktop::grab_server() {
    XGrabServer(display_);
    XSync(display_, False);
}

void Desktop::end_grab() {
    XUngrabServer(display_);
    XSync(display_, False);
}

}  // namespace nubo
