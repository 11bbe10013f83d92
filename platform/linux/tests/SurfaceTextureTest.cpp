#include <GLES3/gl3.h>
#include <android/native_window_jni.h>
#include <gtest/gtest.h>
#include <linux_platform/Host.h>
#include <system/window.h>
// After gl3.h, whose types it uses.
#include <GLES2/gl2ext.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

#include "ExternalTexture.h"
#include "JavaTest.h"
#include "offscreen/OffscreenContext.h"

namespace {

constexpr char kSurfaceTexture[] = "android/graphics/SurfaceTexture";
constexpr char kSurface[] = "android/view/Surface";
constexpr char kSurfaceConstructor[] = "(Landroid/graphics/SurfaceTexture;)V";

using Pixels = std::vector<uint8_t>;

/// Every byte differs from its neighbors', and pictures of different seeds differ everywhere.
Pixels Pattern(int width, int height, int seed) {
    Pixels pixels(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    for (size_t i = 0; i < pixels.size(); ++i) {
        pixels[i] = static_cast<uint8_t>(i * 7 + static_cast<size_t>(seed) * 31);
    }
    return pixels;
}

void Post(ANativeWindow* window, int width, int height, const Pixels& pixels, int64_t timeNs) {
    ANativeWindow_Buffer buffer;
    ASSERT_EQ(ANativeWindow_setBuffersGeometry(window, width, height, 0), 0);
    ASSERT_EQ(ANativeWindow_lock(window, &buffer, nullptr), 0);
    ASSERT_EQ(buffer.stride, width);
    std::copy(pixels.begin(), pixels.end(), static_cast<uint8_t*>(buffer.bits));
    native_window_set_buffers_timestamp(window, timeNs);
    ASSERT_EQ(ANativeWindow_unlockAndPost(window), 0);
}

/// A picture that the consumer reads from the producer.
struct ReadPicture {
    ReadPicture(int pictureWidth, int pictureHeight, int seed)
        : width(pictureWidth), height(pictureHeight), pixels(Pattern(width, height, seed)) {}

    int Post(ANativeWindow* window) {
        const NativeWindowPicture picture = {width, height, Read, Free, this};
        return native_window_post_picture(window, &picture);
    }

    static void Read(void* context, int32_t row, int32_t rows, uint8_t* rgba) {
        auto& self = *static_cast<ReadPicture*>(context);
        const ptrdiff_t stride = ptrdiff_t{4} * self.width;
        EXPECT_EQ(row % 2, 0);
        std::copy_n(self.pixels.begin() + row * stride, rows * stride, rgba);
        self.rowsRead += rows;
    }

    static void Free(void* context) { ++static_cast<ReadPicture*>(context)->frees; }

    int width;
    int height;
    Pixels pixels;
    int rowsRead = 0;
    int frees = 0;
};

std::array<float, 16> TransformOf(const JavaObject& texture) {
    JNIEnv* env = java::Env();
    std::array<float, 16> matrix{};
    jfloatArray values = env->NewFloatArray(matrix.size());
    env->CallVoidMethod(texture.Get(), texture.Method(env, "getTransformMatrix", "([F)V"), values);
    EXPECT_EQ(java::TakeException(env), "");
    env->GetFloatArrayRegion(values, 0, matrix.size(), matrix.data());
    return matrix;
}

/// A surface texture, and a window that posts to it.
class SurfaceTexture : public testing::Test {
protected:
    static constexpr jint kLocalReferences = 64;

    SurfaceTexture() {
        java::Env()->PushLocalFrame(kLocalReferences);
        glGenTextures(1, &name);
        texture = std::make_unique<JavaObject>(kSurfaceTexture, "(I)V", static_cast<jint>(name));
        surface = std::make_unique<JavaObject>(kSurface, kSurfaceConstructor, texture->Get());
        window = ANativeWindow_fromSurface(java::Env(), surface->Get());
    }

    ~SurfaceTexture() override {
        ANativeWindow_release(window);
        java::Env()->PopLocalFrame(nullptr);
    }

    /// Local references keep their objects alive.
    static void DropLocalReferences() {
        java::Env()->PopLocalFrame(nullptr);
        java::Env()->PushLocalFrame(kLocalReferences);
    }

    const OffscreenContext context;
    GLuint name = 0;
    std::unique_ptr<JavaObject> texture;
    std::unique_ptr<JavaObject> surface;
    ANativeWindow* window = nullptr;
};

TEST_F(SurfaceTexture, ShowsTheNewestPictureFirstRowFirst) {
    const std::array<float, 16> identity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    const std::array<float, 16> flip = {1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, 0, 1, 0, 1};
    EXPECT_EQ(TransformOf(*texture), identity);
    EXPECT_EQ(texture->Call("updateTexImage"), "") << "without a picture";
    EXPECT_EQ(texture->CallLong("getTimestamp"), 0);

    Post(window, 6, 4, Pattern(6, 4, 0), 1000);
    Post(window, 6, 4, Pattern(6, 4, 1), 2000);
    EXPECT_EQ(texture->Call("updateTexImage"), "");
    EXPECT_EQ(texture->CallLong("getTimestamp"), 2000);
    EXPECT_EQ(TransformOf(*texture), flip);
    EXPECT_EQ(ReadExternal(name, 6, 4), Pattern(6, 4, 1));

    // The last picture stays until the next one, of any size.
    EXPECT_EQ(texture->Call("updateTexImage"), "");
    EXPECT_EQ(ReadExternal(name, 6, 4), Pattern(6, 4, 1));
    Post(window, 33, 17, Pattern(33, 17, 2), 3000);
    EXPECT_EQ(texture->Call("updateTexImage"), "");
    EXPECT_EQ(ReadExternal(name, 33, 17), Pattern(33, 17, 2));
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(SurfaceTexture, ReadsAPictureWhenItIsShownAndFreesItOnce) {
    constexpr int kWidth = 640;
    constexpr int kHeight = 163;  // Read in more than one part, the last one with an odd row.
    ReadPicture replaced(kWidth, kHeight, 0);
    ReadPicture shown(kWidth, kHeight, 1);
    ReadPicture abandoned(kWidth, kHeight, 2);
    EXPECT_EQ(replaced.Post(window), 0);
    EXPECT_EQ(shown.Post(window), 0);
    EXPECT_EQ(replaced.frees, 1);
    EXPECT_EQ(shown.rowsRead, 0);
    EXPECT_EQ(texture->Call("updateTexImage"), "");
    EXPECT_EQ(shown.rowsRead, kHeight);
    EXPECT_EQ(shown.frees, 1);
    EXPECT_EQ(ReadExternal(name, kWidth, kHeight), shown.pixels);

    EXPECT_EQ(abandoned.Post(window), 0);
    EXPECT_EQ(texture->Call("release"), "");
    EXPECT_EQ(abandoned.frees, 1);
    EXPECT_EQ(replaced.rowsRead + abandoned.rowsRead, 0);
    EXPECT_EQ(shown.Post(window), -ENODEV);
    EXPECT_EQ(shown.frees, 1) << "it remains the caller's";
}

TEST_F(SurfaceTexture, MapsTheUprightPictureToTheCroppedAndTurnedBuffer) {
    // The picture is in columns 2 to 6 and rows 1 to 3 of 8 by 4 texels, each less half a texel.
    constexpr ARect kCrop = {2, 1, 7, 4};
    constexpr float kLeft = 2.5F / 8;
    constexpr float kRight = 6.5F / 8;
    constexpr float kTop = 1.5F / 4;
    constexpr float kBottom = 3.5F / 4;
    const struct {
        int transform;
        std::array<float, 2> bottomLeft;
        std::array<float, 2> bottomRight;
        std::array<float, 2> topLeft;
    } cases[] = {
        {ANATIVEWINDOW_TRANSFORM_IDENTITY, {kLeft, kBottom}, {kRight, kBottom}, {kLeft, kTop}},
        {ANATIVEWINDOW_TRANSFORM_ROTATE_90, {kRight, kBottom}, {kRight, kTop}, {kLeft, kBottom}},
        {ANATIVEWINDOW_TRANSFORM_ROTATE_180, {kRight, kTop}, {kLeft, kTop}, {kRight, kBottom}},
        {ANATIVEWINDOW_TRANSFORM_ROTATE_270, {kLeft, kTop}, {kLeft, kBottom}, {kRight, kTop}},
    };
    for (const auto& [transform, bottomLeft, bottomRight, topLeft] : cases) {
        SCOPED_TRACE(transform);
        native_window_set_crop(window, &kCrop);
        ASSERT_EQ(ANativeWindow_setBuffersTransform(window, transform), 0);
        Post(window, 8, 4, Pattern(8, 4, transform), 0);
        EXPECT_EQ(texture->Call("updateTexImage"), "");
        const std::array<float, 16> matrix = TransformOf(*texture);
        for (size_t i = 0; i < 2; ++i) {
            EXPECT_FLOAT_EQ(matrix.at(12 + i), bottomLeft.at(i));
            EXPECT_FLOAT_EQ(matrix.at(12 + i) + matrix.at(i), bottomRight.at(i));
            EXPECT_FLOAT_EQ(matrix.at(12 + i) + matrix.at(4 + i), topLeft.at(i));
        }
        EXPECT_EQ(ReadExternal(name, 8, 4), Pattern(8, 4, transform)) << "the buffer is untouched";
    }
    EXPECT_LT(ANativeWindow_setBuffersTransform(window, 8), 0);
}

TEST_F(SurfaceTexture, ThrowsWhatAndroidThrowsAfterRelease) {
    JNIEnv* env = java::Env();
    Post(window, 4, 4, Pattern(4, 4, 0), 0);
    EXPECT_FALSE(texture->CallBoolean("isReleased"));
    EXPECT_EQ(texture->Call("release"), "");
    EXPECT_TRUE(texture->CallBoolean("isReleased"));
    EXPECT_EQ(texture->Call("updateTexImage"), "java.lang.RuntimeException");
    ANativeWindow_Buffer buffer;
    EXPECT_EQ(ANativeWindow_lock(window, &buffer, nullptr), -ENODEV);

    EXPECT_TRUE(surface->CallBoolean("isValid"));
    HostPlatform_setStrict(1);
    ANativeWindow* strict = ANativeWindow_fromSurface(env, surface->Get());
    EXPECT_NE(strict, window);
    ANativeWindow_release(strict);
    HostPlatform_setStrict(0);
    EXPECT_EQ(surface->Call("release"), "");
    EXPECT_FALSE(surface->CallBoolean("isValid"));
    EXPECT_EQ(ANativeWindow_fromSurface(env, surface->Get()), nullptr);
}

// The renderer drops its references and does not call release().
TEST_F(SurfaceTexture, IsReleasedByTheGarbageCollector) {
    JNIEnv* env = java::Env();
    Post(window, 4, 4, Pattern(4, 4, 0), 0);
    EXPECT_EQ(texture->Call("updateTexImage"), "");
    surface = nullptr;
    texture = nullptr;
    DropLocalReferences();
    jclass system = env->FindClass("java/lang/System");
    jmethodID collect = env->GetStaticMethodID(system, "gc", "()V");
    int result = 0;
    for (int tries = 0; tries < 200 && result == 0; ++tries) {
        env->CallStaticVoidMethod(system, collect);
        EXPECT_EQ(java::TakeException(env), "");
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        ANativeWindow_Buffer buffer;
        result = ANativeWindow_lock(window, &buffer, nullptr);
        ANativeWindow_unlockAndPost(window);
    }
    EXPECT_EQ(result, -ENODEV);
    EXPECT_EQ(ReadExternal(name, 4, 4), Pattern(4, 4, 0)) << "the texture keeps its picture";
}

}  // namespace
