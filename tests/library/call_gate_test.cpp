// Destruction of a decoder under a decoder thread in a call: every interleaving of the two threads'
// atomic operations.

#include "Render/OESRenderer/CallGate.h"

#include <gtest/gtest.h>

#include <array>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace {

/// Lets two threads take turns, in an order of its own choice.
class Turns {
public:
    /// The thread's next step begins: wait for the turn.
    void await(size_t thread) {
        std::unique_lock<std::mutex> lock(mutex_);
        waiting_.at(thread) = true;
        changed_.notify_all();
        changed_.wait(lock, [&] { return turn_ == thread; });
        turn_ = kNobody;
        waiting_.at(thread) = false;
    }
    void end(size_t thread) {
        const std::lock_guard<std::mutex> lock(mutex_);
        ended_.at(thread) = true;
        changed_.notify_all();
    }

    /// Gives turns until both threads have ended.
    /// \param order which thread goes when both could; grows by zeros.
    void conduct(std::vector<size_t>& order) {
        size_t decision = 0;
        for (;;) {
            std::unique_lock<std::mutex> lock(mutex_);
            changed_.wait(lock, [&] {
                return turn_ == kNobody && (waiting_[0] || ended_[0]) && (waiting_[1] || ended_[1]);
            });
            if (ended_[0] && ended_[1]) {
                order.resize(decision);
                return;
            }
            size_t next = ended_[0] ? 1 : 0;
            if (!ended_[0] && !ended_[1]) {
                if (decision == order.size()) {
                    order.push_back(0);
                }
                next = order[decision++];
            }
            turn_ = next;
            changed_.notify_all();
        }
    }

private:
    static constexpr size_t kNobody = 2;

    std::mutex mutex_;
    std::condition_variable changed_;
    std::array<bool, 2> waiting_{};
    std::array<bool, 2> ended_{};
    size_t turn_ = kNobody;
};

Turns* turns = nullptr;
thread_local size_t self = 0;

template <class T>
class SteppedAtomic {
public:
    explicit SteppedAtomic(T value) : value_(value) {}

    T load() const { return step(), value_; }
    T fetch_or(T bits) { return step(), std::exchange(value_, value_ | bits); }
    T fetch_and(T bits) { return step(), std::exchange(value_, value_ & bits); }
    bool compare_exchange_strong(T& expected, T desired) {
        step();
        const bool equal = value_ == expected;
        (equal ? value_ : expected) = equal ? desired : value_;
        return equal;
    }

private:
    static void step() { turns->await(self); }

    T value_;
};

/// The decoder, its users and what they must not do.
class Destruction {
public:
    void decode() {
        for (int call = 0; call < 3; ++call) {
            if (!gate_.enter()) {
                return;
            }
            EXPECT_FALSE(closed_) << "a call begins after stop";
            turns->await(self);
            EXPECT_EQ(deletions_, 0) << "used after delete";
            if (gate_.leave()) {
                ++deletions_;
            }
        }
    }

    void shutDown() {
        gate_.close();
        closed_ = true;
        turns->await(self);  // Stop.
        for (int look = 0; look < 2 && gate_.inCall(); ++look) {
        }
        if (!gate_.handOver()) {
            ++deletions_;
        }
    }

    int deletions() const { return deletions_; }

private:
    BasicCallGate<SteppedAtomic> gate_;
    bool closed_ = false;
    int deletions_ = 0;
};

/// \return the next order in the tree of orders, or none
bool Advance(std::vector<size_t>& order) {
    while (!order.empty() && order.back() == 1) {
        order.pop_back();
    }
    if (order.empty()) {
        return false;
    }
    order.back() = 1;
    return true;
}

void RunInOrder(std::vector<size_t>& order) {
    Turns conductor;
    turns = &conductor;
    Destruction destruction;
    const auto start = [&](size_t number, void (Destruction::*work)()) {
        return std::thread([&conductor, &destruction, number, work] {
            self = number;
            (destruction.*work)();
            conductor.end(number);
        });
    };
    std::thread decoder = start(0, &Destruction::decode);
    std::thread owner = start(1, &Destruction::shutDown);
    conductor.conduct(order);
    decoder.join();
    owner.join();
    turns = nullptr;
    EXPECT_EQ(destruction.deletions(), 1);
}

TEST(CallGate, EveryInterleavingDeletesOnceAndAfterTheLastCall) {
    std::vector<size_t> order;
    int runs = 0;
    do {
        RunInOrder(order);
        ++runs;
    } while (!HasFailure() && Advance(order));
    EXPECT_GT(runs, 100);
}

}  // namespace
