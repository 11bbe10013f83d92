#pragma once

#include <sys/types.h>

#include <string>

/// A program that runs beside a test, and ends with it at the latest.
class ChildProcess {
public:
    ChildProcess() = default;
    /// \param command a line for the shell
    explicit ChildProcess(const std::string& command);
    ~ChildProcess();
    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&& other) noexcept;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t Id() const { return pid_; }
    /// Whether it has ended. Its exit status is gone then.
    bool HasEnded();
    /// \return its exit status, or -1 if it crashed or HasEnded() was true
    int Wait();

private:
    pid_t pid_ = 0;
};
