#include "ChildProcess.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <utility>

ChildProcess::ChildProcess(const std::string& command) : pid_(fork()) {
    if (pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
}

ChildProcess::~ChildProcess() {
    if (pid_ > 0) {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept : pid_(std::exchange(other.pid_, 0)) {}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
    std::swap(pid_, other.pid_);
    return *this;
}

bool ChildProcess::HasEnded() {
    if (pid_ > 0 && waitpid(pid_, nullptr, WNOHANG) == 0) {
        return false;
    }
    pid_ = 0;
    return true;
}

int ChildProcess::Wait() {
    const pid_t pid = std::exchange(pid_, 0);
    int status = 0;
    // No process is number 0: it stands for all children, of which some never end.
    const bool ended = pid > 0 && waitpid(pid, &status, 0) == pid;
    return ended && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
