#pragma once

#include "Options.h"

/// Renders the part that the options name, and writes its record. \return an ExitStatus
/// \throws ToolError
int PlayPart(const Options& options);
