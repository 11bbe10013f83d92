#pragma once

#include <jni.h>

#include <future>

#include "Options.h"
#include "support/VideoFile.h"

/// Starts the JVM on another thread if JavaFor() will probably need it for the input, so that other
/// work goes on meanwhile. \return wait for it before JavaFor(); may be invalid
std::future<void> PrepareJava(const Options& options);

/// Decides how the frames of \p file go to the renderer.
/// \return the JVM, started, if they go compressed; null if they go as pixels
/// \throws ToolError if the options insist on a way that does not work
JavaVM* JavaFor(const VideoFile& file, const Options& options);
