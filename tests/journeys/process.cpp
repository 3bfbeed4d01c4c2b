#include "journeys/process.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace nubo {

namespace {

constexpr int code_of_no_start = 127;  // as a shell tells a command that isn't there

/// The child's side, from fork to exec.
[[noreturn]] void become(const Launch& launch) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (chdir(launch.folder.c_str()) != 0) _exit(code_of_no_start);
    const int output = open(launch.output.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (output < 0) _exit(code_of_no_start);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    if (launch.passed_on >= 0) dup2(launch.passed_on, 3);
    for (const auto& [name, value] : launch.environment) setenv(name.c_str(), value.c_str(), 1);
    std::vector<char*> words;
    for (const std::string& word : launch.command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    execvp(words[0], words.data());
    _exit(code_of_no_start);
}

}  // namespace

Process::Process(const Launch& launch) {
    pid_ = fork();
    if (pid_ == 0) become(launch);
    if (pid_ < 0) exit_code_ = code_of_no_start;
}

Process::~Process() {
    if (exit_code_) return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
}

void Process::send_signal(int number) const {
    if (!exit_code_) kill(pid_, number);
}

std::optional<int> Process::wait_for_exit(Milliseconds limit) {
    wait_until(
        [this] {
            int status = 0;
            if (!exit_code_ && waitpid(pid_, &status, WNOHANG) == pid_)
                exit_code_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
            return exit_code_.has_value();
        },
        limit);
    return exit_code_;
}

}  // namespace nubo
