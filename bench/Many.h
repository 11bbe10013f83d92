#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ContextThread.h"
#include "Interleaved.h"
#include "offscreen/OffscreenContext.h"

/// Several objects of GL: all on one context, or each on a thread with its own.
template <class Member>
class Many {
public:
    using Members = std::vector<Member*>;

    template <class Make>
    Many(size_t count, bool ownContexts, const Make& make)
        : members_(count), threads_(ownContexts ? count : 0) {
        if (threads_.empty()) {
            context_.emplace();
        }
        forEach([&](size_t i) { members_[i] = make(); });
    }
    ~Many() {
        forEach([this](size_t i) { members_[i].reset(); });
    }
    Many(const Many&) = delete;
    Many& operator=(const Many&) = delete;

    /// \param work gets the members of a context: all of them, or one. It runs on the contexts at
    /// the
    ///             same time.
    void run(const std::function<void(const Members&)>& work) {
        if (threads_.empty()) {
            Members all;
            all.reserve(members_.size());
            for (const auto& member : members_) {
                all.push_back(member.get());
            }
            work(all);
        } else {
            forEach([&](size_t i) { work({members_[i].get()}); });
        }
    }

private:
    void forEach(const std::function<void(size_t)>& work) {
        for (size_t i = 0; i < members_.size(); ++i) {
            if (threads_.empty()) {
                work(i);
            } else {
                threads_[i].start([&work, i] { work(i); });
            }
        }
        for (ContextThread& thread : threads_) {
            thread.finish();
        }
    }

    std::optional<OffscreenContext> context_;
    std::vector<std::unique_ptr<Member>> members_;
    std::vector<ContextThread> threads_;
};

/// Such as "4 renderers, own contexts".
std::string LabelOfMany(size_t count, bool ownContexts);

/// 1, 2, 4 and 8 renderers, on one context and on their own.
void AddManyCases(benchmark::internal::Benchmark* many);

/// Pictures a second of each contestant.
/// \param pictures of a round
void ReportMany(benchmark::State& state, const Interleaved& times, size_t pictures,
                const std::vector<std::string>& names);
/// The ratios of pictures a second.
void ReportManyRatio(benchmark::State& state, const Interleaved& times, const std::string& name,
                     size_t work, size_t reference);
