#include "LeastPath.h"

#include <utility>

void LeastPath::give() {
    pass_.convert(decoder_.next(), pixels_);
    waits_ = true;
}

void LeastPath::prepare(int count) {
    for (int i = 0; i < count; ++i) {
        pass_.convert(decoder_.next(), pixels_);
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
