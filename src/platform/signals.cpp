#include "platform/signals.h"

#include "base/log.h"
#include "platform/display_loss.h"
#include "state/run.h"
#include <csignal>
#include <semaphore.h>
#include <system_error>
#include <thread>

namespace nubo {
namespace {

// A lock-free atomic word and a semaphore are among the few things that a signal handler may write.
static_assert(std::atomic<int>::is_always_lock_free);
sem_t asked;
void request_exit(int) {
    exit_requested = EXIT_BY_SIGNAL;
    sem_post(&asked);
}

/// Where no thread is to be had the end is the main flow's alone.
void start_watching() {
    if (sem_init(&asked, 0, 0) != 0) return;
    try {
        std::thread([] {
            while (sem_wait(&asked) != 0) {
            }  // it was interrupted
            end_even_if_display_hangs();
        }).detach();
    } catch (const std::system_error&) {
        UA_log("[ WARNING ] : Nothing watches over an end that is asked for by a signal");
    }
}

}  // namespace

void request_exit_on_signals() {
    start_watching();
    struct sigaction action {};
    action.sa_handler = request_exit;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    // A display or a terminal that goes while it is written to is told by the call that writes.
    signal(SIGPIPE, SIG_IGN);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaction(signal, &action, nullptr);
}

}  // namespace nubo
