#pragma once

#include <string>
#include <vector>

/// Runs a program and waits for its end.
/// \return its largest resident memory, in bytes
/// \throws std::runtime_error if it does not end with status 0
double RunProcess(const std::vector<std::string>& command);
