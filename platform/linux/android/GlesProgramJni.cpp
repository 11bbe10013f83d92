// The native methods of android.opengl.GLES20 for programs.
#include <GLES3/gl3.h>
#include <android_opengl_GLES20.h>

#include <array>
#include <string>

namespace {

std::string Text(JNIEnv* env, jstring text) {
    const char* chars = env->GetStringUTFChars(text, nullptr);
    std::string copy = chars != nullptr ? chars : "";
    env->ReleaseStringUTFChars(text, chars);
    return copy;
}

}  // namespace

extern "C" {

void Java_android_opengl_GLES20_glAttachShader(JNIEnv* /*env*/, jclass /*type*/, jint program,
                                               jint shader) {
    glAttachShader(static_cast<GLuint>(program), static_cast<GLuint>(shader));
}

void Java_android_opengl_GLES20_glCompileShader(JNIEnv* /*env*/, jclass /*type*/, jint shader) {
    glCompileShader(static_cast<GLuint>(shader));
}

jint Java_android_opengl_GLES20_glCreateProgram(JNIEnv* /*env*/, jclass /*type*/) {
    return static_cast<jint>(glCreateProgram());
}

jint Java_android_opengl_GLES20_glCreateShader(JNIEnv* /*env*/, jclass /*type*/, jint kind) {
    return static_cast<jint>(glCreateShader(static_cast<GLenum>(kind)));
}

void Java_android_opengl_GLES20_glDeleteProgram(JNIEnv* /*env*/, jclass /*type*/, jint program) {
    glDeleteProgram(static_cast<GLuint>(program));
}

void Java_android_opengl_GLES20_glDeleteShader(JNIEnv* /*env*/, jclass /*type*/, jint shader) {
    glDeleteShader(static_cast<GLuint>(shader));
}

jstring Java_android_opengl_GLES20_glGetProgramInfoLog(JNIEnv* env, jclass /*type*/, jint program) {
    std::array<char, 512> text = {};
    glGetProgramInfoLog(static_cast<GLuint>(program), static_cast<GLsizei>(text.size()), nullptr,
                        text.data());
    return env->NewStringUTF(text.data());
}

void Java_android_opengl_GLES20_glGetProgramiv(JNIEnv* env, jclass /*type*/, jint program,
                                               jint name, jintArray values, jint offset) {
    GLint value = 0;
    glGetProgramiv(static_cast<GLuint>(program), static_cast<GLenum>(name), &value);
    env->SetIntArrayRegion(values, offset, 1, &value);
}

jint Java_android_opengl_GLES20_glGetUniformLocation(JNIEnv* env, jclass /*type*/, jint program,
                                                     jstring name) {
    return glGetUniformLocation(static_cast<GLuint>(program), Text(env, name).c_str());
}

void Java_android_opengl_GLES20_glLinkProgram(JNIEnv* /*env*/, jclass /*type*/, jint program) {
    glLinkProgram(static_cast<GLuint>(program));
}

void Java_android_opengl_GLES20_glShaderSource(JNIEnv* env, jclass /*type*/, jint shader,
                                               jstring source) {
    const std::string text = Text(env, source);
    const char* const lines = text.c_str();
    glShaderSource(static_cast<GLuint>(shader), 1, &lines, nullptr);
}

void Java_android_opengl_GLES20_glUniform1i(JNIEnv* /*env*/, jclass /*type*/, jint location,
                                            jint x) {
    glUniform1i(location, x);
}

void Java_android_opengl_GLES20_glUniform4f(JNIEnv* /*env*/, jclass /*type*/, jint location,
                                            jfloat x, jfloat y, jfloat z, jfloat w) {
    glUniform4f(location, x, y, z, w);
}

void Java_android_opengl_GLES20_glUseProgram(JNIEnv* /*env*/, jclass /*type*/, jint program) {
    glUseProgram(static_cast<GLuint>(program));
}

}  // extern "C"
