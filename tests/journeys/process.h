#pragma once
// A program started by a test: looked after, and gone when the test is.
#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace nubo {

using Milliseconds = std::chrono::milliseconds;

/// Calls `holds` every few milliseconds until it gives true; false when `limit` has passed without.
template <typename Condition> bool wait_until(Condition holds, Milliseconds limit = Milliseconds(10'000)) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(Milliseconds(2));
    }
    return true;
}

/// How a program is started. `folder` is where it stands, `output` the file that takes both its output streams.
struct Launch {
    std::vector<std::string> command;
    std::string folder, output;
    std::map<std::string, std::string> environment;  // set on top of the test's own
    int passed_on = -1;                              // a descriptor that it gets as number 3, -1 for none
};

/// A running program, killed at the end of its life here, and by the system if the test dies.
class Process {
public:
    explicit Process(const Launch& launch);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    int id() const { return pid_; }
    void send_signal(int number) const;
    /// The exit code, or 128 and the signal that ended it, as a shell tells it; nothing when it still runs after
    /// `limit`.
    std::optional<int> wait_for_exit(Milliseconds limit = Milliseconds(20'000));
    bool is_running() { return !wait_for_exit(Milliseconds(0)); }

private:
    int pid_ = -1;
    std::optional<int> exit_code_;
};

}  // namespace nubo
