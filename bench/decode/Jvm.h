#pragma once

#include <linux_platform/Host.h>

#include <array>
#include <stdexcept>

/// The process's JVM, started by the first call. Throws std::runtime_error.
inline JavaVM* Jvm() {
    static JavaVM* const jvm = [] {
        std::array<char, 256> error{};
        JavaVM* started = HostJava_start(nullptr, error.data(), error.size());
        if (started == nullptr) {
            throw std::runtime_error(error.data());
        }
        return started;
    }();
    return jvm;
}
