#include "platform/signals.h"

#include "state/run.h"
#include <csignal>

namespace nubo {
namespace {

// A lock-free atomic word is one of the few things that a signal handler may write.
static_assert(std::atomic<int>::is_always_lock_free);
void request_exit(int) { exit_requested = 1; }

}  // namespace

void request_exit_on_signals() {
    struct sigaction action {};
    action.sa_handler = request_exit;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    // A display or a terminal that goes while it is written to is told by the call that writes.
    signal(SIGPIPE, SIG_IGN);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaction(signal, &action, nullptr);
}

}  // namespace nubo
