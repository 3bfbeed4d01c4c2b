#include "platform/display_loss.h"

#include "base/log.h"
#include <allegro.h>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <pthread.h>
#include <thread>
#include <unistd.h>
#include <xalleg.h>

namespace nubo {
namespace {

// Of the strict order: what one flow does and then looks at, the other does and looks at the other way round.
std::atomic<bool> lost{false}, main_flow_uses_display{false}, saving{false};
std::atomic<void (*)()> save_work{nullptr};
pthread_t main_flow;

/// The first that comes here saves; the other waits for the end.
[[noreturn]] void save_and_end() {
    while (saving.exchange(true)) pause();
    if (const auto save = save_work.load()) save();
    std::fputs("nubo: the display has gone\n", stderr);
    _exit(exit_display_lost);
}

/// Until the main flow has come to a place where the work is whole. One that doesn't come stands at the lock of the
/// connection, which is ours.
void wait_for_main_flow() {
    constexpr std::chrono::seconds patience(10);
    const auto end = std::chrono::steady_clock::now() + patience;
    while (save_work != nullptr && !main_flow_uses_display && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

int end_on_loss(Display*) {
    lost = true;
    if (pthread_equal(pthread_self(), main_flow) == 0) wait_for_main_flow();
    save_and_end();
}

/// Xlib would end the process for a request that the server refuses. Our window destroyed by someone else is a loss.
int note_refusal(Display*, XErrorEvent* error) {
    constexpr int most_lines = 20;
    static std::atomic<int> lines{0};
    const bool ours = error->resourceid == _xwin.window || error->resourceid == _xwin.wm_window;
    if (ours && error->error_code == BadWindow) lost = true;
    if (lines++ < most_lines)
        UA_log("[ ERROR ] : The display refused a request. Code = %d, request = %d",
               static_cast<int>(error->error_code), static_cast<int>(error->request_code));
    return 0;
}

}  // namespace

void watch_display() {
    main_flow = pthread_self();
    XLOCK();
    XSetErrorHandler(note_refusal);
    XSetIOErrorHandler(end_on_loss);
    XUNLOCK();
}

void save_on_display_loss(void (*save)()) { save_work = save; }

DisplayUse::DisplayUse() {
    main_flow_uses_display = true;
    if (lost) save_and_end();
}

DisplayUse::~DisplayUse() {
    main_flow_uses_display = false;
    if (lost) save_and_end();
}

}  // namespace nubo
