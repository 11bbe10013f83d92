#pragma once

#include <cstdint>
#include <limits>

/// Which of N equal parts, from 1 on.
struct PartNumber {
    int number = 1;
    int count = 1;
};

/// The frames that a run draws of a clip: all of them, or those of one part. Times are in ticks of
/// the clip's FrameClock, from the beginning of the file.
struct PartRange {
    static constexpr int64_t kEnd = std::numeric_limits<int64_t>::max();

    bool IsEmpty() const { return from >= to; }
    /// Whether it has every frame of the run.
    bool IsAll() const { return from <= begin && to == kEnd; }

    bool isPart = false;
    int64_t begin = 0;  ///< The first frame of all parts. What moves over time begins there.
    int64_t from = std::numeric_limits<int64_t>::min();  ///< The first frame of this part.
    int64_t to = kEnd;         ///< The first frame of the next part that has one.
    double readSeconds = 0.0;  ///< Where to begin to read: at or before the first frame.
    int64_t earlier = 0;       ///< Frames in the parts before, if a mask or --view-to needs it.
};
