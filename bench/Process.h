#pragma once

#include <sys/types.h>

#include <cstdio>
#include <string>
#include <vector>

/// Runs a program and waits for its end.
/// \return its largest resident memory, in bytes
/// \throws std::runtime_error if it does not end with status 0
double RunProcess(const std::vector<std::string>& command);

/// A program that runs as long as this object exists, or shorter.
class Process {
public:
    /// \param stream that is read: STDOUT_FILENO or STDERR_FILENO
    Process(const std::vector<std::string>& command, int stream);
    /// Ends it by SIGTERM.
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// \return the next line that has \p text. \throws std::runtime_error if there is none
    std::string waitForLine(const std::string& text);

private:
    pid_t child_ = 0;
    FILE* lines_ = nullptr;
};
