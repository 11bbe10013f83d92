#pragma once

#include <memory>

#include "FramePath.h"
#include "Options.h"

/// Opens the input on the way that the options ask for. Needs a current GL context.
/// \param settings all but the source and the size. \throws ToolError
std::unique_ptr<FramePath> OpenPath(const Options& options, RendererSettings settings,
                                    const MaskSource& nextMask);
