#include "support/RunTool.h"

#include <exception>
#include <iostream>
#include <new>

#include "support/ToolError.h"

extern "C" {
#include <libavutil/log.h>
}

int RunTool(const char* name, const std::function<int()>& body) {
    av_log_set_level(AV_LOG_QUIET);
    try {
        const int status = body();
        if (!std::cout.flush()) {
            throw ToolError("stdout: cannot be written");
        }
        return status;
    } catch (const std::bad_alloc&) {
        std::cerr << name << ": out of memory\n";
    } catch (const std::exception& error) {
        std::cerr << name << ": " << error.what() << '\n';
    }
    return kExitBadInput;
}
