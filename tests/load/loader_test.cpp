// The loader against GL libraries with gaps. It loads once per process, so each case runs in a
// child process.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "gl/GLES3.h"

namespace {

/// Names that the fake eglGetProcAddress does not know, and those it was asked for.
std::vector<std::string> missing;
std::vector<std::string> asked;

void Found() {}

int CountResolved() {
    int resolved = 0;
#define GLES3_ENTRY(type, name) resolved += GLES3::name != nullptr ? 1 : 0;
#include "gl/GLES3Entries.inc"
    return resolved;
}

}  // namespace

extern "C" {

auto eglGetProcAddress(const char* name) -> void (*)() {
    asked.emplace_back(name);
    for (const std::string& gap : missing) {
        if (gap == name) {
            return nullptr;
        }
    }
    return Found;
}

/// A decoy that RTLD_DEFAULT would find first.
void glActiveTexture(GLenum /*unit*/) {}

}  // extern "C"

namespace {

#define EXPECT_IN_CHILD(condition) \
    EXPECT_EXIT(_exit((condition) ? 0 : 1), testing::ExitedWithCode(0), "")

TEST(LoaderDeathTest, ResolvesAll247InOrderAndOnce) {
    const auto load = [] {
        const bool first = GLES3::LoadGLFunctions();
        const size_t lookups = asked.size();
        const bool second = GLES3::LoadGLFunctions();
        return first && second && lookups == 247 && asked.size() == 247 &&
               asked.front() == "glActiveTexture" && asked[141] == "glViewport" &&
               asked[142] == "glReadBuffer" && asked[245] == "glGetInternalformativ" &&
               asked.back() == "glBindVertexArrayOES" && CountResolved() == 247;
    };
    EXPECT_IN_CHILD(load());
}

TEST(LoaderDeathTest, StopsForGoodAtTheFirstMissingEntry) {
    const auto load = [] {
        missing = {"glReadBuffer"};
        GLES3::glReadBuffer = reinterpret_cast<decltype(GLES3::glReadBuffer)>(Found);
        const bool first = GLES3::LoadGLFunctions();
        missing.clear();
        const bool second = GLES3::LoadGLFunctions();
        // Stored before it is tested: the slot is null again.
        return !first && !second && asked.size() == 143 && CountResolved() == 142 &&
               GLES3::glReadBuffer == nullptr && GLES3::glViewport != nullptr;
    };
    EXPECT_IN_CHILD(load());
}

TEST(LoaderDeathTest, LooksBehindItselfForWhatEglDoesNotKnow) {
    const auto load = [] {
        missing = {"glActiveTexture", "glBindVertexArrayOES"};
        const bool loaded = GLES3::LoadGLFunctions();
        return loaded &&
               reinterpret_cast<void*>(GLES3::glActiveTexture) ==
                   dlsym(RTLD_NEXT, "glActiveTexture") &&
               GLES3::glActiveTexture != &glActiveTexture;
    };
    EXPECT_IN_CHILD(load());
}

}  // namespace
