// The native methods of org.vornrenderer.NativeRenderer, whose callers have checked the arguments.

#include <EGL/egl.h>
#include <jni.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "JavaException.h"
#include "TightRows.h"
#include "render/VERenderer.h"

namespace {

constexpr char kClassName[] = "org/vornrenderer/NativeRenderer";
constexpr jint kJniVersion = JNI_VERSION_1_6;

/// A renderer and what is kept for its next draw.
struct Peer {
    Peer() = default;
    ~Peer() { VEDestroyRenderer(handle); }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    void* handle = nullptr;
    int stickerTexture = -1;
    VEStickerList stickers;
    std::vector<jint> positions;  ///< As Java gave them; kept for its memory.
};

Peer& AsPeer(jlong renderer) {
    return *reinterpret_cast<Peer*>(static_cast<intptr_t>(renderer));
}

jlong AsLong(Peer* peer) {
    return static_cast<jlong>(reinterpret_cast<intptr_t>(peer));
}

/// The address of a position in a direct buffer; null for no buffer.
char* Address(JNIEnv* env, jobject buffer, jint position) {
    if (buffer == nullptr) {
        return nullptr;
    }
    return static_cast<char*>(env->GetDirectBufferAddress(buffer)) + position;
}

/// Throws if there is no context or if it has no textures of this size.
bool CheckGl(JNIEnv* env, const VERendererMode& mode) {
    if (eglGetCurrentContext() == EGL_NO_CONTEXT) {
        ThrowIllegalState(env, "no GL context is current on this thread");
        return false;
    }
    GLint limit = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &limit);
    if (std::max({mode.textureWidth, mode.textureHeight, mode.maskWidth, mode.maskHeight}) >
        limit) {
        const std::string message = "this GL's textures end at " + std::to_string(limit);
        ThrowIllegalArgument(env, message.c_str());
        return false;
    }
    return true;
}

/// Destroys the renderer again if a Java exception is pending. Of JNI, destruction only deletes
/// references, which is allowed while an exception is pending.
jlong CreatePeer(JNIEnv* env, jint texture, jint format, VERendererMode& mode) {
    JavaVM* jvm = nullptr;
    env->GetJavaVM(&jvm);
    auto peer = std::make_unique<Peer>();
    VECreateRendererHandleWithFormat(&peer->handle, texture, format, &mode, jvm);
    if (env->ExceptionCheck() != JNI_FALSE) {
        return 0;
    }
    return AsLong(peer.release());
}

jlong Create(JNIEnv* env, jclass /*type*/, jint texture, jint format, jint modeType, jint width,
             jint height, jint maskFormat, jint maskWidth, jint maskHeight) {
    const int32_t output = maskWidth > 0 ? VE_OUTPUT_MASKED : VE_OUTPUT_PICTURE;
    VERendererMode mode = {output, modeType, width, height, maskFormat, maskWidth, maskHeight};
    jlong renderer = 0;
    if (CheckGl(env, mode)) {
        WithJavaExceptions(env, [&] { renderer = CreatePeer(env, texture, format, mode); });
    }
    return renderer;
}

void Draw(JNIEnv* env, jclass /*type*/, jlong renderer, jobject frame, jint framePosition,
          jobject mask, jint maskPosition, jboolean mirrored) {
    void* pixels = Address(env, frame, framePosition);
    void* maskPixels = Address(env, mask, maskPosition);
    const bool asGiven = mirrored == JNI_FALSE;
    Peer& peer = AsPeer(renderer);
    const TightRows rows;
    WithJavaExceptions(env, [&] {
        VEUpdateRendererWithSticker(peer.handle, pixels, 0, asGiven, maskPixels,
                                    peer.stickerTexture, peer.stickers);
    });
}

void SetStickers(JNIEnv* env, jclass /*type*/, jlong renderer, jint texture, jintArray positions) {
    Peer& peer = AsPeer(renderer);
    const jsize count = env->GetArrayLength(positions);
    WithJavaExceptions(env, [&] {
        peer.positions.resize(static_cast<size_t>(count));
        env->GetIntArrayRegion(positions, 0, count, peer.positions.data());
        peer.stickers.resize(peer.positions.size() / 2);
        for (size_t i = 0; i < peer.stickers.size(); ++i) {
            peer.stickers[i] = {peer.positions[2 * i], peer.positions[2 * i + 1]};
        }
        peer.stickerTexture = texture;
    });
}

void SetView(JNIEnv* /*env*/, jclass /*type*/, jlong renderer, jfloat x, jfloat zoom) {
    VEUpdateUserPosition(AsPeer(renderer).handle, x, 0, zoom, 0);
}

void QueueUnit(JNIEnv* env, jclass /*type*/, jlong renderer, jobject unit, jint position,
               jint size) {
    VEUpdateCompressedData(AsPeer(renderer).handle, Address(env, unit, position), size);
}

void Destroy(JNIEnv* /*env*/, jclass /*type*/, jlong renderer) {
    delete &AsPeer(renderer);
}

/// Members of JNINativeMethod are const in Android's jni.h and not in the JDK's.
template <typename Function>
JNINativeMethod Method(const char* name, const char* signature, Function* function) {
    return {const_cast<char*>(name), const_cast<char*>(signature),
            reinterpret_cast<void*>(function)};
}

bool RegisterMethods(JNIEnv* env) {
    const std::array methods = {
        Method("create", "(IIIIIIII)J", Create),
        Method("draw", "(JLjava/nio/ByteBuffer;ILjava/nio/ByteBuffer;IZ)V", Draw),
        Method("setStickers", "(JI[I)V", SetStickers),
        Method("setView", "(JFF)V", SetView),
        Method("queueUnit", "(JLjava/nio/ByteBuffer;II)V", QueueUnit),
        Method("destroy", "(J)V", Destroy),
    };
    jclass type = env->FindClass(kClassName);
    return type != nullptr &&
           env->RegisterNatives(type, methods.data(), static_cast<jint>(methods.size())) == JNI_OK;
}

}  // namespace

extern "C" JNIEXPORT jint JNICALL JNI_OnLoad(JavaVM* jvm, void* /*reserved*/) {
    void* env = nullptr;
    if (jvm->GetEnv(&env, kJniVersion) != JNI_OK ||
        !RegisterMethods(static_cast<JNIEnv*>(env))) {
        return JNI_ERR;
    }
    return kJniVersion;
}
