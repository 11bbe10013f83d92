#include <linux_platform/Host.h>

#include <cstdio>

int main() {
    char error[256] = "";
    const bool started = HostJava_start(nullptr, error, sizeof error) != nullptr;
    std::printf("%s\n", error);
    return started ? 0 : 1;
}
