// Destruction of a decoder under a decoder thread in a call: every interleaving of the two threads'
// atomic operations.

#include "Render/OESRenderer/CallGate.h"

#include <gtest/gtest.h>
#include <semaphore.h>

#include <array>
#include <thread>
#include <utility>
#include <vector>

namespace {

/// Lets two threads take turns, in an order of its own choice.
class Turns {
public:
    Turns() {
        for (sem_t& turn : turn_) {
            sem_init(&turn, 0, 0);
        }
        sem_init(&parked_, 0, 0);
    }

    /// The thread's next step begins: wait for the turn.
    void await(size_t thread) { sem_wait(&turn_.at(thread)); }
    void giveBack() { sem_post(&parked_); }
    void end(size_t thread) {
        ended_.at(thread) = true;
        giveBack();
    }

    /// Gives turns until both threads have ended.
    /// \param order which thread goes when both could; grows by zeros.
    void conduct(std::vector<size_t>& order) {
        size_t decision = 0;
        while (!ended_[0] || !ended_[1]) {
            size_t next = ended_[0] ? 1 : 0;
            if (!ended_[0] && !ended_[1]) {
                if (decision == order.size()) {
                    order.push_back(0);
                }
                next = order[decision++];
            }
            sem_post(&turn_.at(next));
            sem_wait(&parked_);
        }
        order.resize(decision);
    }

private:
    std::array<sem_t, 2> turn_;
    sem_t parked_;
    std::array<bool, 2> ended_{};
};

Turns* turns = nullptr;
thread_local size_t self = 0;

void Step() {
    turns->giveBack();
    turns->await(self);
}

template <class T>
class SteppedAtomic {
public:
    explicit SteppedAtomic(T value) : value_(value) {}

    T load() const { return Step(), value_; }
    T fetch_or(T bits) { return Step(), std::exchange(value_, value_ | bits); }
    T fetch_and(T bits) { return Step(), std::exchange(value_, value_ & bits); }
    bool compare_exchange_strong(T& expected, T desired) {
        Step();
        const bool equal = value_ == expected;
        (equal ? value_ : expected) = equal ? desired : value_;
        return equal;
    }

private:
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
            Step();
            EXPECT_EQ(deletions_, 0) << "used after delete";
            if (gate_.leave()) {
                ++deletions_;
            }
        }
    }

    void shutDown() {
        gate_.close();
        closed_ = true;
        Step();  // Stop.
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
            conductor.await(number);
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
