#include <dlfcn.h>
#include <linux_platform/Host.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace {

using CreateVm = jint (*)(JavaVM** vm, void** env, void* arguments);

constexpr const char* kVmLibrary = "/lib/server/libjvm.so";

std::string Or(const char* given, const std::string& fallback) {
    return given != nullptr ? given : fallback;
}

/// libjvm stays loaded: a JVM cannot be unloaded.
CreateVm LoadLibrary(const std::string& javaHome) {
    const std::string path = javaHome + kVmLibrary;
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* function = library != nullptr ? dlsym(library, "JNI_CreateJavaVM") : nullptr;
    if (function == nullptr) {
        throw std::runtime_error("no JVM in " + javaHome);
    }
    return reinterpret_cast<CreateVm>(function);
}

bool HasVm(const std::string& javaHome) {
    return access((javaHome + kVmLibrary).c_str(), R_OK) == 0;
}

/// That of the build if it still exists, or else the system's.
std::string DefaultJavaHome() {
    constexpr const char* kSystemJavaHome = "/usr/lib/jvm/default-java";
    return HasVm(JAVA_HOME) ? JAVA_HOME : kSystemJavaHome;
}

/// The directory of this library, which also contains the rest of the platform.
std::string PlatformDirectory() {
    Dl_info info = {};
    dladdr(reinterpret_cast<const void*>(&PlatformDirectory), &info);
    return std::filesystem::canonical(info.dli_fname).parent_path();
}

/// The JVM does not report missing entries of its class path.
void CheckReadable(const std::string& classPath) {
    for (size_t begin = 0; begin < classPath.size();) {
        const size_t end = std::min(classPath.find(':', begin), classPath.size());
        const std::string entry = classPath.substr(begin, end - begin);
        if (access(entry.c_str(), R_OK) != 0) {
            throw std::runtime_error("cannot read " + entry);
        }
        begin = end + 1;
    }
}

/// As Android does before it starts an application. Otherwise the first decoder waits for it.
void LoadClasses(JNIEnv& env) {
    for (const char* name : {"android/graphics/SurfaceTexture", "android/view/Surface"}) {
        env.FindClass(name);
        env.ExceptionClear();  // A class path without it is an error of its user.
    }
}

JavaVM* Start(const HostJavaOptions& options) {
    const std::string javaHome = Or(options.javaHome, Or(getenv("JAVA_HOME"), DefaultJavaHome()));
    const std::string platform = PlatformDirectory();
    const std::string jar = Or(options.classPath, platform + "/android.jar");
    CheckReadable(jar);
    const CreateVm create = LoadLibrary(javaHome);

    std::string classPath = "-Djava.class.path=" + jar;
    std::string libraryPath = "-Djava.library.path=" + Or(options.libraryPath, platform);
    std::string signals = "-Xrs";                      // Leave signals to the program.
    std::string collector = "-XX:+UseG1GC";            // Only it maps the archived heap of JDK 17.
    std::string heap = "-Xms8m";                       // The default is part of the machine's size.
    std::string compiler = "-XX:TieredStopAtLevel=1";  // The quick one: few calls a picture.
    std::string check = "-Xcheck:jni";
    std::array<JavaVMOption, 7> list = {{{classPath.data(), nullptr},
                                         {libraryPath.data(), nullptr},
                                         {signals.data(), nullptr},
                                         {collector.data(), nullptr},
                                         {heap.data(), nullptr},
                                         {compiler.data(), nullptr},
                                         {check.data(), nullptr}}};
    const jint count = static_cast<jint>(list.size()) - (options.checkJni != 0 ? 0 : 1);
    JavaVMInitArgs arguments = {JNI_VERSION_10, count, list.data(), JNI_FALSE};
    JavaVM* vm = nullptr;
    JNIEnv* env = nullptr;
    const jint status = create(&vm, reinterpret_cast<void**>(&env), &arguments);
    if (status != JNI_OK) {
        throw std::runtime_error("the JVM does not start, error " + std::to_string(status));
    }
    LoadClasses(*env);
    return vm;
}

}  // namespace

extern "C" JavaVM* HostJava_start(const HostJavaOptions* options, char* error, size_t errorSize) {
    try {
        return Start(options != nullptr ? *options : HostJavaOptions{});
    } catch (const std::exception& exception) {
        if (error != nullptr && errorSize > 0) {
            std::strncpy(error, exception.what(), errorSize - 1);
            error[errorSize - 1] = '\0';
        }
        return nullptr;
    }
}
