#include "support/GlRecorder.h"

#include <cstring>
#include <utility>

namespace {

std::vector<std::string> calls;

template <auto& Slot, typename Function = std::remove_reference_t<decltype(Slot)>>
struct Hook;

template <auto& Slot, typename Result, typename... Args>
struct Hook<Slot, Result (*)(Args...)> {
    static inline Result (*real)(Args...) = nullptr;
    static inline const char* name = nullptr;

    static Result Record(Args... args) {
        if (std::strcmp(name, "glGetError") != 0) {
            calls.push_back(Call(name, args...));
        }
        return real(args...);
    }

    static void Install(const char* glName) {
        name = glName;
        real = std::exchange(Slot, Record);
    }

    static void Remove() { Slot = real; }
};

}  // namespace

GlRecorder::GlRecorder() {
    calls.clear();
#define GLES3_ENTRY(name) Hook<GLES3::name>::Install(#name);
#include "gl/GLES3Entries.inc"
}

GlRecorder::~GlRecorder() {
#define GLES3_ENTRY(name) Hook<GLES3::name>::Remove();
#include "gl/GLES3Entries.inc"
}

std::vector<std::string> GlRecorder::take() {
    return std::exchange(calls, {});
}
