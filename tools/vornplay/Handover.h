#pragma once

#include <jni.h>

#include "Options.h"
#include "support/VideoFile.h"

/// Decides how the frames of \p file go to the renderer.
/// \return the JVM, started, if they go compressed; null if they go as pixels
/// \throws ToolError if the options insist on a way that does not work
JavaVM* JavaFor(const VideoFile& file, const Options& options);
