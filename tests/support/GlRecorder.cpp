#include "support/GlRecorder.h"

#include <cstring>
#include <initializer_list>
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

CallArgument::CallArgument(const char* text) : text_('"' + std::string(text) + '"') {}

CallArgument::CallArgument(const void* pointer) {
    const auto value = reinterpret_cast<uintptr_t>(pointer);
    text_ = value < 0x10000 ? std::to_string(value) : "address";
}

std::string JoinCall(const char* name, std::initializer_list<CallArgument> arguments) {
    std::string call = name;
    char separator = '(';
    for (const CallArgument& argument : arguments) {
        call += separator + argument.text();
        separator = ',';
    }
    return call + (arguments.size() == 0 ? "()" : ")");
}

GlRecorder::GlRecorder() {
    calls.clear();
#define GLES3_ENTRY(type, name) Hook<GLES3::name>::Install(#name);
#include "gl/GLES3Entries.inc"
}

GlRecorder::~GlRecorder() {
#define GLES3_ENTRY(type, name) Hook<GLES3::name>::Remove();
#include "gl/GLES3Entries.inc"
}

std::vector<std::string> GlRecorder::take() {
    return std::exchange(calls, {});
}
