#pragma once

#include <media/NdkMediaCodec.h>

#include <string>
#include <vector>

#include "TestStream.h"

/// A picture that came out of a codec.
struct TestPicture {
    int64_t timeUs = 0;
    int luma = 0;  ///< Of its first pixel, without a window.
};

/// Queues a unit. \return 0, or the error of AMediaCodec_dequeueInputBuffer.
ssize_t QueueUnit(AMediaCodec* codec, const TestUnit& unit, int64_t timeoutUs, uint32_t flags = 0);

/// A started codec, used by one thread.
class CodecClient {
public:
    /// \param rotation in degrees, clockwise
    explicit CodecClient(const TestStream& stream, ANativeWindow* window = nullptr,
                         int rotation = 0);
    ~CodecClient() { AMediaCodec_delete(codec_); }
    CodecClient(const CodecClient&) = delete;
    CodecClient& operator=(const CodecClient&) = delete;

    AMediaCodec* Get() const { return codec_; }

    /// Queues all units, and ends the stream. \return all pictures.
    std::vector<TestPicture> Decode(const std::vector<TestUnit>& units);
    /// Queues all units. \return the pictures that came meanwhile.
    std::vector<TestPicture> Feed(const std::vector<TestUnit>& units);
    /// Ends the stream. \return the remaining pictures.
    std::vector<TestPicture> Finish();

private:
    enum class Result { kNothing, kPicture, kEnd };

    void QueueOne(const TestUnit& unit, uint32_t flags, std::vector<TestPicture>* pictures);
    Result TakeOne(int64_t timeoutUs, std::vector<TestPicture>* pictures);

    AMediaCodec* codec_;
};
