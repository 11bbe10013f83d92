#pragma once

#include <gtest/gtest.h>

#include "gl/GLES3.h"
#include "offscreen/OffscreenContext.h"
#include "support/Replaced.h"

/// A test in a new GL context. It must not leave a GL error behind.
class GlTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(GLES3::LoadGLFunctions()); }
    void TearDown() override { EXPECT_EQ(GLES3::glGetError(), GLenum{GL_NO_ERROR}); }

private:
    OffscreenContext context_;
};

inline GLint GetInteger(GLenum name) {
    GLint value = 0;
    GLES3::glGetIntegerv(name, &value);
    return value;
}
