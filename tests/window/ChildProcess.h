#pragma once

#include <sys/types.h>

#include <string>

/// A program that a test runs beside itself; it ends with the test at the latest.
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

    /// Whether it has; its exit status is gone then.
    bool HasEnded();
    /// \return its exit status, or -1 if it crashed, or had been seen to end before
    int Wait();

private:
    pid_t pid_ = 0;
};
