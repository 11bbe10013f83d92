#include "support/FilterLibrary.h"

#include <dlfcn.h>

#include "support/ToolError.h"

namespace {

constexpr char kName[] = "libavfilter.so." AV_STRINGIFY(LIBAVFILTER_VERSION_MAJOR);

template <class Function>
void Find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    if (function == nullptr) {
        throw ToolError(dlerror());
    }
}

FilterLibrary Load() {
    void* library = dlopen(kName, RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr) {
        throw ToolError(dlerror());
    }
    FilterLibrary functions{};
    Find(library, "avfilter_graph_alloc", functions.graphAlloc);
    Find(library, "avfilter_graph_free", functions.graphFree);
    Find(library, "avfilter_graph_parse2", functions.graphParse);
    Find(library, "avfilter_graph_config", functions.graphConfig);
    Find(library, "avfilter_inout_free", functions.inoutFree);
    Find(library, "av_buffersrc_write_frame", functions.writeFrame);
    Find(library, "av_buffersink_get_frame", functions.getFrame);
    Find(library, "av_buffersink_get_time_base", functions.timeBase);
    return functions;
}

}  // namespace

const FilterLibrary& FilterLibrary::Get() {
    static const FilterLibrary functions = Load();
    return functions;
}
