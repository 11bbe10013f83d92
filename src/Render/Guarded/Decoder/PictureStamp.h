#pragma once

#include <cstdint>

/// The time stamp under which a picture travels through the surface texture, in nanoseconds: the
/// presentation time in microseconds, and in the three digits below it the picture's number. The
/// number tells pictures of the same time apart, and those before and after a flush.
namespace picture_stamp {

constexpr int64_t kNumbers = 1000;

/// Presentation times that a stamp can hold: ±292 years.
constexpr int64_t kMostUs = INT64_MAX / kNumbers - 1;

constexpr int64_t Make(int64_t ptsUs, uint64_t number) {
    return ptsUs * kNumbers + static_cast<int64_t>(number % kNumbers);
}

/// The last three digits; also of negative stamps a number from 0 on.
constexpr int64_t Tag(int64_t stamp) {
    return ((stamp % kNumbers) + kNumbers) % kNumbers;
}

constexpr int64_t PtsUs(int64_t stamp) {
    return (stamp - Tag(stamp)) / kNumbers;
}

/// \param newest the highest number in use; fewer than 1000 pictures are on their way.
constexpr uint64_t Number(int64_t stamp, uint64_t newest) {
    const int64_t age =
        (static_cast<int64_t>(newest % kNumbers) - Tag(stamp) + kNumbers) % kNumbers;
    return newest - static_cast<uint64_t>(age);
}

}  // namespace picture_stamp
