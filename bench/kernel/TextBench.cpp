// The kernel's texts against std::string, at the same edits.

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "Contest.h"
#include "kernel/String.h"
#include "kernel/StringBuffer.h"

namespace {

using OVR::String;
using OVR::StringBuffer;

constexpr int kRounds = 300;
constexpr int kEditsPerRun = 10000;
constexpr char kLine[] = "uniform highp mat4 ModelMatrix;\n";
constexpr char kReplaced[] = "highp ";

/// Two ways to do \p editsPerCall edits per call.
void Texts(benchmark::State& state, const char* label, int editsPerCall,
           const std::function<void()>& ours, const std::function<void()>& standard) {
    state.SetLabel(label);
    const int repeats = kEditsPerRun / editsPerCall;
    const Interleaved times = RunContest(state, {Repeat(repeats, ours), Repeat(repeats, standard)});
    const double nanoseconds = 1e6 / (static_cast<double>(repeats) * editsPerCall);
    state.counters["ours ns"] = nanoseconds * times.medianMilliseconds(0);
    state.counters["std ns"] = nanoseconds * times.medianMilliseconds(1);
    state.counters["ours/std"] = times.medianRatio(0, 1);
}

template <typename Text>
void Copies() {
    static const Text text(kLine);
    for (int i = 0; i < 100; ++i) {
        Text copy(text);
        benchmark::DoNotOptimize(copy);
    }
}

void StringAppends() {
    String text;
    for (int i = 0; i < 100; ++i) {
        text.Append(kLine);
    }
    benchmark::DoNotOptimize(text.ToCStr());
}

void StandardAppends() {
    std::string text;
    for (int i = 0; i < 100; ++i) {
        text.append(kLine);
    }
    benchmark::DoNotOptimize(text.c_str());
}

void StringEdits() {
    String text(kLine);
    for (int i = 0; i < 50; ++i) {
        text.Insert(8, kReplaced);
        text.Remove(8, sizeof(kReplaced) - 1);
    }
    benchmark::DoNotOptimize(text.ToCStr());
}

void StandardEdits() {
    std::string text(kLine);
    for (int i = 0; i < 50; ++i) {
        text.insert(8, kReplaced);
        text.erase(8, sizeof(kReplaced) - 1);
    }
    benchmark::DoNotOptimize(text.c_str());
}

/// As StandardEdits, with positions that count characters, as those of a String do.
void StandardCharEdits() {
    const auto byteOf = [](std::string_view text, size_t position) {
        const auto startsChar = [](char byte) {
            return (static_cast<uint8_t>(byte) & 0xC0) != 0x80;
        };
        size_t index = 0;
        for (size_t seen = 0; index < text.size(); ++index) {
            if (startsChar(text[index]) && seen++ == position) {
                break;
            }
        }
        return index;
    };
    std::string text(kLine);
    for (int i = 0; i < 50; ++i) {
        text.insert(byteOf(text, 8), kReplaced);
        const size_t start = byteOf(text, 8);
        const std::string_view rest = std::string_view(text).substr(start);
        text.erase(start, byteOf(rest, sizeof(kReplaced) - 1));
    }
    benchmark::DoNotOptimize(text.c_str());
}

void BufferAppends() {
    StringBuffer text;
    text.Reserve(1000 * sizeof(kLine));
    for (int i = 0; i < 1000; ++i) {
        text.Append(kLine);
    }
    benchmark::DoNotOptimize(text.ToCStr());
}

void ReservedAppends() {
    std::string text;
    text.reserve(1000 * sizeof(kLine));
    for (int i = 0; i < 1000; ++i) {
        text.append(kLine);
    }
    benchmark::DoNotOptimize(text.c_str());
}

void BufferChars() {
    StringBuffer text;
    text.Reserve(1000);
    for (int i = 0; i < 1000; ++i) {
        text.AppendChar('a' + i % 26);
    }
    benchmark::DoNotOptimize(text.ToCStr());
}

void ReservedChars() {
    std::string text;
    text.reserve(1000);
    for (int i = 0; i < 1000; ++i) {
        text.push_back(static_cast<char>('a' + i % 26));
    }
    benchmark::DoNotOptimize(text.c_str());
}

void BufferGrows() {
    StringBuffer text;
    for (int i = 0; i < 1000; ++i) {
        text.Append(kLine);
    }
    benchmark::DoNotOptimize(text.ToCStr());
}

void StandardGrows() {
    std::string text;
    for (int i = 0; i < 1000; ++i) {
        text.append(kLine);
    }
    benchmark::DoNotOptimize(text.c_str());
}

void BufferFormats() {
    StringBuffer text;
    text.Reserve(20000);
    for (int i = 0; i < 1000; ++i) {
        text.AppendFormat("Texture%d\n", i);
    }
    benchmark::DoNotOptimize(text.ToCStr());
}

void ReservedFormats() {
    std::string text;
    text.reserve(20000);
    for (int i = 0; i < 1000; ++i) {
        char piece[64];
        const int length = std::snprintf(piece, sizeof(piece), "Texture%d\n", i);
        text.append(piece, static_cast<size_t>(length));
    }
    benchmark::DoNotOptimize(text.c_str());
}

#define TEXTS(id, label, edits, ours, standard)                \
    BENCHMARK_CAPTURE(Texts, id, label, edits, ours, standard) \
        ->Iterations(kRounds)                                  \
        ->UseManualTime()                                      \
        ->Unit(benchmark::kMicrosecond)

TEXTS(copy, "String, copy", 100, Copies<String>, Copies<std::string>);
TEXTS(append, "String, append", 100, StringAppends, StandardAppends);
TEXTS(edit, "String, insert and remove", 100, StringEdits, StandardCharEdits);
TEXTS(byteEdit, "String, insert and remove, by bytes in std::string", 100, StringEdits,
      StandardEdits);
TEXTS(buffer, "StringBuffer, append", 1000, BufferAppends, ReservedAppends);
TEXTS(chars, "StringBuffer, append a character", 1000, BufferChars, ReservedChars);
TEXTS(grow, "StringBuffer, append unreserved", 1000, BufferGrows, StandardGrows);
TEXTS(format, "StringBuffer, format", 1000, BufferFormats, ReservedFormats);

}  // namespace
