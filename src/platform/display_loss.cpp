#include "platform/display_loss.h"

#include "base/log.h"
#include <allegro.h>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <pthread.h>
#include <thread>
#include <unistd.h>
#include <xalleg.h>

namespace nubo {
namespace {

using Clock = std::chrono::steady_clock;

// Of the strict order: what one flow does and then looks at, the other does and looks at the other way round.
std::atomic<bool> lost{false}, main_flow_uses_display{false}, saving{false};
std::atomic<unsigned> uses{0};  // of the display, begun so far
std::atomic<int (*)()> save_whole{nullptr};
std::atomic<bool (*)()> save_broken{nullptr};
pthread_t main_flow;
int use_depth = 0;  // the main flow's own

constexpr int not_saved = -1;
std::atomic<int> saved_with{not_saved};  // the exit code, once all is saved

bool is_main_flow() { return pthread_equal(pthread_self(), main_flow) != 0; }

// ---- Saving and ending ---------------------------------------------------------------------------------------------

/// The first that comes here saves; the others wait for the end.
void claim_saving() {
    while (saving.exchange(true)) pause();
}

[[noreturn]] void save_and_end(const char* words, int exit_code) {
    claim_saving();
    if (const auto save = save_whole.load()) save();
    std::fputs(words, stderr);
    _exit(exit_code);
}

[[noreturn]] void end_on_loss() { save_and_end("nubo: the display has gone\n", exit_display_lost); }

bool has_work() { return save_whole != nullptr; }

/// Until the main flow has come to a place where the work is whole. One that doesn't come stands at the lock of the
/// connection, which is ours.
void wait_for_main_flow() {
    constexpr std::chrono::seconds patience(10);
    const auto end = Clock::now() + patience;
    while (has_work() && !main_flow_uses_display && Clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

// ---- What Xlib meets -----------------------------------------------------------------------------------------------

int end_on_broken_connection(Display*) {
    lost = true;
    if (!is_main_flow()) wait_for_main_flow();
    end_on_loss();
}

bool is_our_window(XID id) { return id == _xwin.window || id == _xwin.wm_window; }

/// Xlib would end the process for a request that the server refuses. Our window destroyed by someone else is a loss.
int note_refusal(Display*, XErrorEvent* error) {
    constexpr int most_lines = 20;
    static std::atomic<int> lines{0};
    if (is_our_window(error->resourceid) && error->error_code == BadWindow) lost = true;
    if (lines++ < most_lines)
        UA_log("[ ERROR ] : The display refused a request. Code = %d, request = %d",
               static_cast<int>(error->error_code), static_cast<int>(error->request_code));
    return 0;
}

// ---- Exceptions that nobody takes ----------------------------------------------------------------------------------

/// For saving where no memory is left.
constexpr std::size_t reserve_bytes = std::size_t{2} << 20;
void* reserve = nullptr;

void tell_exception() {
    try {
        if (const auto exception = std::current_exception()) std::rethrow_exception(exception);
        UA_log("[ FATAL ] : The program was told to terminate");
    } catch (const std::exception& exception) {
        UA_log("[ FATAL ] : Nothing takes the exception %s", exception.what());
    } catch (...) {
        UA_log("[ FATAL ] : Nothing takes an exception");
    }
}

/// The main flow may stand in the midst of anything, so that nothing on disk is written over.
[[noreturn]] void end_on_terminate() noexcept {
    static std::atomic<bool> entered{false};
    if (entered.exchange(true)) _exit(exit_terminated);  // by the saving itself, or by a second flow
    std::free(reserve);
    tell_exception();
    constexpr const char* words = "nubo: ended by an error that it couldn't go on with, or without memory\n";
    if (!is_main_flow()) {
        lost = true;
        wait_for_main_flow();
    }
    if (!is_main_flow() || main_flow_uses_display) save_and_end(words, exit_terminated);
    claim_saving();
    if (const auto save = save_broken.load()) save();
    std::fputs(words, stderr);
    _exit(exit_terminated);
}

/// Where the main flow is, as another sees it.
struct Whereabouts {
    unsigned use;
    bool uses_display, is_saved;
    bool operator==(const Whereabouts&) const = default;
};
Whereabouts whereabouts() { return {uses, main_flow_uses_display, saved_with != not_saved}; }

}  // namespace

void watch_display() {
    main_flow = pthread_self();
    XLOCK();
    XSetErrorHandler(note_refusal);
    XSetIOErrorHandler(end_on_broken_connection);
    XUNLOCK();
    reserve = std::calloc(reserve_bytes, 1);
    std::set_terminate(end_on_terminate);
}

void note_lost_window() { lost = true; }

void save_at_sudden_end(LastSaves saves) {
    save_broken = saves.broken;
    save_whole = saves.whole;
}

void work_is_saved(int exit_code) {
    saved_with = exit_code;
    save_at_sudden_end({});
}

void end_even_if_display_hangs() {
    constexpr std::chrono::milliseconds patience(1'000), look(20);
    Whereabouts before = whereabouts();
    for (auto since = Clock::now();; std::this_thread::sleep_for(look)) {
        const Whereabouts now = whereabouts();
        if (now != before || !(now.uses_display || now.is_saved)) since = Clock::now();
        before = now;
        if (Clock::now() - since < patience) continue;
        if (now.is_saved) _exit(saved_with);
        lost = true;  // the main flow, should it come on just now, saves and ends
        if (!main_flow_uses_display) continue;
        claim_saving();
        const auto save = save_whole.load();
        _exit(save ? save() : 0);
    }
}

// ---- Using the display ---------------------------------------------------------------------------------------------

DisplayUse::DisplayUse() {
    if (use_depth++ > 0) return;
    ++uses;
    main_flow_uses_display = true;
    if (lost) end_on_loss();
}

DisplayUse::~DisplayUse() {
    if (--use_depth > 0) return;
    main_flow_uses_display = false;
    if (lost) end_on_loss();
}

}  // namespace nubo
