#pragma once

#include <utility>

/// Puts a function in place of an entry of the GL table for as long as this object lives.
template <typename Function>
class Replaced {
public:
    Replaced(Function& slot, Function fake) : slot_(slot), real_(std::exchange(slot, fake)) {}
    ~Replaced() { slot_ = real_; }
    Replaced(const Replaced&) = delete;
    Replaced& operator=(const Replaced&) = delete;

private:
    Function& slot_;
    Function real_;
};

template <typename Function, typename Fake>
Replaced(Function&, Fake) -> Replaced<Function>;
