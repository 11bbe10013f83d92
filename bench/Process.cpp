#include "Process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstring>
#include <stdexcept>

namespace {

/// \param actions in the child, before the program; may be null
pid_t Spawn(const std::vector<std::string>& command, const posix_spawn_file_actions_t* actions) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, arguments[0], actions, nullptr, arguments.data(), environ) != 0) {
        throw std::runtime_error(command[0] + " does not start");
    }
    return child;
}

}  // namespace

double RunProcess(const std::vector<std::string>& command) {
    const pid_t child = Spawn(command, nullptr);
    int status = -1;
    rusage usage = {};
    if (wait4(child, &status, 0, &usage) != child || status != 0) {
        throw std::runtime_error(command[0] + " fails");
    }
    constexpr double kKibibyte = 1024;
    return static_cast<double>(usage.ru_maxrss) * kKibibyte;
}

Process::Process(const std::vector<std::string>& command, int stream) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], stream);
    child_ = Spawn(command, &actions);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    lines_ = fdopen(ends[0], "r");
}

Process::~Process() {
    static_cast<void>(fclose(lines_));
    kill(child_, SIGTERM);
    waitpid(child_, nullptr, 0);
}

std::string Process::waitForLine(const std::string& text) {
    std::array<char, 512> line{};
    while (std::fgets(line.data(), line.size(), lines_) != nullptr) {
        if (std::strstr(line.data(), text.c_str()) != nullptr) {
            return line.data();
        }
    }
    throw std::runtime_error("a program ends without: " + text);
}
