#pragma once

#include <gtest/gtest.h>

#include <utility>

#include "gl/GLES3.h"
#include "offscreen/OffscreenContext.h"

/// A test in a new GL context. It must not leave a GL error behind.
class GlTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(GLES3::LoadGLFunctions()); }
    void TearDown() override { EXPECT_EQ(GLES3::glGetError(), GLenum{GL_NO_ERROR}); }

private:
    OffscreenContext context_;
};

/// Puts a function in place of an entry of the GL table for as long as this object lives.
template <typename Function>
class ScopedEntry {
public:
    ScopedEntry(Function& slot, Function replacement)
        : slot_(slot), original_(std::exchange(slot, replacement)) {}
    ~ScopedEntry() { slot_ = original_; }
    ScopedEntry(const ScopedEntry&) = delete;
    ScopedEntry& operator=(const ScopedEntry&) = delete;

    Function Original() const { return original_; }

private:
    Function& slot_;
    Function original_;
};

inline GLint GetInteger(GLenum name) {
    GLint value = 0;
    GLES3::glGetIntegerv(name, &value);
    return value;
}
