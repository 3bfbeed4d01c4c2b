#include "platform/last_words.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>
#include <algorithm>
#include <allegro.h>
#include <csignal>
#include <cstdio>
#include <memory>
#include <sstream>
#include <vector>

namespace nubo {
namespace {

constexpr std::size_t longest_line = 64;  // characters
constexpr int margin = 20, button_w = 80, button_h = 26;
constexpr const char* button_text = "OKAY";

struct DisplayCloser {
    void operator()(Display* display) const { XCloseDisplay(display); }
};
using OwnedDisplay = std::unique_ptr<Display, DisplayCloser>;

/// The words in lines, broken at blanks.
std::vector<std::string> lines_of(const std::string& words) {
    std::vector<std::string> lines;
    std::istringstream paragraphs(words);
    for (std::string paragraph; std::getline(paragraphs, paragraph);) {
        lines.emplace_back();
        std::istringstream text(paragraph);
        for (std::string word; text >> word;) {
            if (!lines.back().empty() && lines.back().size() + 1 + word.size() > longest_line) lines.emplace_back();
            lines.back() += (lines.back().empty() ? "" : " ") + word;
        }
    }
    return lines;
}

/// The window: its lines, and below them a button. Made by Xlib's plainest means, so that it comes up wherever anything
/// does.
class WordsWindow {
public:
    WordsWindow(Display* display, std::vector<std::string> lines);
    ~WordsWindow();
    WordsWindow(const WordsWindow&) = delete;
    WordsWindow& operator=(const WordsWindow&) = delete;
    /// Until the button, a key or the window's frame closes it.
    void wait();

private:
    void lay_out();
    void set_properties();
    void draw();
    bool closes(XEvent& event) const;
    int width_of(const std::string& text) const {
        return XTextWidth(font_, text.data(), static_cast<int>(text.size()));
    }
    void draw_text(int x, int y, const std::string& text) {
        XDrawString(display_, window_, pen_, x, y, text.data(), static_cast<int>(text.size()));
    }

    Display* display_;
    std::vector<std::string> lines_;
    XFontStruct* font_ = nullptr;
    Window window_ = 0;
    GC pen_ = nullptr;
    Atom close_request_ = 0;
    int width_ = 0, height_ = 0, line_h_ = 0, button_x_ = 0, button_y_ = 0;
};

WordsWindow::WordsWindow(Display* display, std::vector<std::string> lines)
    : display_(display), lines_(std::move(lines)) {
    for (const char* const name : {"9x15", "fixed", "*"})
        if (font_ == nullptr) font_ = XLoadQueryFont(display, name);
    if (font_ == nullptr) return;
    lay_out();
    const int screen = DefaultScreen(display);
    const unsigned long black = BlackPixel(display, screen), white = WhitePixel(display, screen);
    window_ = XCreateSimpleWindow(display, DefaultRootWindow(display), (DisplayWidth(display, screen) - width_) / 2,
                                  (DisplayHeight(display, screen) - height_) / 2, static_cast<unsigned>(width_),
                                  static_cast<unsigned>(height_), 1, black, white);
    pen_ = XCreateGC(display, window_, 0, nullptr);
    XSetForeground(display, pen_, black);
    XSetFont(display, pen_, font_->fid);
    set_properties();
    XMapRaised(display, window_);
}

WordsWindow::~WordsWindow() {
    if (pen_ != nullptr) XFreeGC(display_, pen_);
    if (font_ != nullptr) XFreeFont(display_, font_);
}

void WordsWindow::lay_out() {
    int widest = button_w;
    for (const std::string& line : lines_) widest = std::max(widest, width_of(line));
    line_h_ = font_->ascent + font_->descent + 2;
    width_ = widest + 2 * margin;
    button_x_ = (width_ - button_w) / 2;
    button_y_ = 2 * margin + static_cast<int>(lines_.size()) * line_h_;
    height_ = button_y_ + button_h + margin;
}

void WordsWindow::set_properties() {
    XStoreName(display_, window_, program_title);
    XSizeHints size{};
    size.flags = PMinSize | PMaxSize;
    size.min_width = size.max_width = width_;
    size.min_height = size.max_height = height_;
    XSetWMNormalHints(display_, window_, &size);
    close_request_ = XInternAtom(display_, "WM_DELETE_WINDOW", False);
    XSetWMProtocols(display_, window_, &close_request_, 1);
    XSelectInput(display_, window_, ExposureMask | KeyPressMask | ButtonReleaseMask);
}

void WordsWindow::draw() {
    int y = margin + font_->ascent;
    for (const std::string& line : lines_) {
        draw_text(margin, y, line);
        y += line_h_;
    }
    XDrawRectangle(display_, window_, pen_, button_x_, button_y_, button_w, button_h);
    draw_text(button_x_ + (button_w - width_of(button_text)) / 2,
              button_y_ + (button_h + font_->ascent - font_->descent) / 2, button_text);
}

bool WordsWindow::closes(XEvent& event) const {
    switch (event.type) {
    case ClientMessage: return static_cast<Atom>(event.xclient.data.l[0]) == close_request_;
    case ButtonRelease:
        return event.xbutton.x >= button_x_ && event.xbutton.x <= button_x_ + button_w &&
               event.xbutton.y >= button_y_ && event.xbutton.y <= button_y_ + button_h;
    case KeyPress: {
        const KeySym key = XLookupKeysym(&event.xkey, 0);
        return key == XK_Return || key == XK_KP_Enter || key == XK_space || key == XK_Escape;
    }
    }
    return false;
}

void WordsWindow::wait() {
    if (window_ == 0) return;
    XEvent event;
    do {
        XNextEvent(display_, &event);
        if (event.type == Expose && event.xexpose.count == 0) draw();
    } while (!closes(event));
}

}  // namespace

void say_last_words(const std::string& words) {
    std::fprintf(stderr, "nubo: %s\n", words.c_str());
    // First: a bare X server starts anew when its last program goes.
    const OwnedDisplay display(XOpenDisplay(nullptr));
    allegro_exit();
    // A signal ends the window, and with it the program.
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) std::signal(number, SIG_DFL);
    if (display) WordsWindow(display.get(), lines_of(words)).wait();
}

}  // namespace nubo
