#include "Many.h"

std::string LabelOfMany(size_t count, bool ownContexts) {
    return std::to_string(count) + (count == 1 ? " renderer" : " renderers") +
           (ownContexts ? ", own contexts" : ", one context");
}

void AddManyCases(benchmark::internal::Benchmark* many) {
    many->ArgNames({"renderers", "own"})
        ->ArgsProduct({{1, 2, 4, 8}, {0, 1}})
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void ReportMany(benchmark::State& state, const Interleaved& times, size_t pictures,
                const std::vector<std::string>& names) {
    for (size_t work = 0; work < names.size(); ++work) {
        state.counters[names[work] + "/s"] =
            1000 * static_cast<double>(pictures) / times.medianMilliseconds(work);
    }
}

void ReportManyRatio(benchmark::State& state, const Interleaved& times, const std::string& name,
                     size_t work, size_t reference) {
    state.counters[name] = 1 / times.medianRatio(work, reference);
    state.counters[name + " CPU"] = 1 / times.medianProcessorRatio(work, reference);
}
