#pragma once

#include "Options.h"

/// Refuses an output that is one of the files that are read, also by a link or in another spelling.
/// \throws ToolError
void CheckIsNoInput(const std::string& out, const std::string& path, const char* role);

/// Whether an existing output may be replaced: if the options say so, or the user does on a
/// terminal. \throws ToolError if there is one that may not
void CheckReplaces(Options& options);
