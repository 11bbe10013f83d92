// The player's scripts: any text gives keyframes in order, or one line that names the file.

#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <string>

#include "Check.h"
#include "Script.h"
#include "support/ToolError.h"

namespace {

void CheckScript(const Script& script) {
    double last = -1.0;
    CHECK(!script.keyframes.empty());
    for (const Keyframe& keyframe : script.keyframes) {
        CHECK(keyframe.seconds > last);
        CHECK(!keyframe.view || std::isfinite(keyframe.view->x + keyframe.view->zoom));
        last = keyframe.seconds;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const int file = memfd_create("script", 0);
    static const std::string path = "/proc/self/fd/" + std::to_string(file);
    CHECK(ftruncate(file, 0) == 0);
    CHECK(pwrite(file, data, size, 0) == static_cast<ssize_t>(size));
    try {
        CheckScript(ReadScript(path, size % 2 == 0));
    } catch (const ToolError& error) {
        const std::string what = error.what();
        CHECK(what.rfind(path + ":", 0) == 0);
        CHECK(what.find('\n') == std::string::npos);
    }
    return 0;
}
