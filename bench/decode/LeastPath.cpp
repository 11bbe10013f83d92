#include "LeastPath.h"

#include <utility>

void LeastPath::give() {
    pass_.convert(decoder_.next(), pixels_);
    waits_ = true;
}

void LeastPath::convertOne(int count) {
    if (converted_ == nullptr) {
        converted_ = &decoder_.next();
    }
    for (int i = 0; i < count; ++i) {
        pass_.convert(*converted_, pixels_);
    }
}

bool LeastPath::show(int /*timeoutUs*/) {
    if (!waits_) {
        return false;
    }
    pass_.draw(pixels_);
    waits_ = false;
    return true;
}
