#pragma once

#include <functional>

/// Exit statuses of the tools.
enum ExitStatus {
    kExitDone = 0,
    kExitBroken = 1,
    kExitBadInput = 2,
    kExitUncuttable = 3,
    kExitInterrupted = 130
};

/// Runs a tool: an error that \p body throws becomes the one line "<name>: …" on stderr and the
/// status kExitBadInput. libav prints nothing.
int RunTool(const char* name, const std::function<int()>& body);
