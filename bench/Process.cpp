#include "Process.h"

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

double RunProcess(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    pid_t child = 0;
    int status = -1;
    rusage usage = {};
    if (posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0 ||
        wait4(child, &status, 0, &usage) != child || status != 0) {
        throw std::runtime_error(command[0] + " fails");
    }
    constexpr double kKibibyte = 1024;
    return static_cast<double>(usage.ru_maxrss) * kKibibyte;
}
