#pragma once

#include <jni.h>

#include <memory>

#include "FramePath.h"
#include "Options.h"

/// The Java machine, started, where the file is to be handed over compressed; null where it is to
/// be handed over as pixels. Once a process. \throws ToolError
JavaVM* MachineFor(const VideoFile& file, const Options& options);

/// Opens the input on the way that the options ask for. Needs a current GL context.
/// \param settings all but the source and the size. \throws ToolError
std::unique_ptr<FramePath> OpenPath(const Options& options, RendererSettings settings,
                                    const MaskSource& nextMask);
