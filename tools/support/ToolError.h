#pragma once

#include <stdexcept>

/// Input that a tool cannot work with; what() says why, in one line for the user.
struct ToolError : std::runtime_error {
    using std::runtime_error::runtime_error;
};
