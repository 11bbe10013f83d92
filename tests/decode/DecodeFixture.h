#pragma once

#include <gtest/gtest.h>
#include <jni.h>

#include <filesystem>
#include <string>

#include "MediaFile.h"
#include "offscreen/OffscreenContext.h"
#include "vornplay/CompressedSource.h"

/// Enlarges the picture, so that its pixels are mixed.
inline const Shot kCropped = {{0.0F, 0.0F, 2.0F}, false, false, {}};

/// The process's JVM, which checks every JNI call.
JavaVM* Jvm();

/// Pictures that all differ.
TestStream ChangingStream();

/// Plays files through the renderer, in a new GL context and a new folder.
class DecodeTest : public testing::Test {
protected:
    DecodeTest();
    ~DecodeTest() override;

    std::string Path(const std::string& name) const { return (directory_ / name).string(); }

    /// A file as the player plays it in plain mode.
    static std::unique_ptr<CompressedSource> Open(const std::string& path,
                                                  double startSeconds = 0.0);

    /// Every frame that libavcodec decodes comes out, once, in order and in its colors.
    /// \return how many
    static int ExpectAsDecoded(const std::string& path, double startSeconds = 0.0);

private:
    std::filesystem::path directory_;
    OffscreenContext context_;
};
