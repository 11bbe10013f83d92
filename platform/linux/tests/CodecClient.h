#pragma once

#include <media/NdkMediaCodec.h>

#include <string>
#include <vector>

#include "TestStream.h"

/// One result of a codec.
struct TestOutput {
    enum class Kind { kFormat, kPicture, kEnd };

    Kind kind;
    int width = 0;   ///< Of a format.
    int height = 0;  ///< Of a format.
    int64_t timeUs = 0;
    int luma = 0;  ///< Of a picture's first pixel, without a window.
};

/// Queues a unit. \return 0, or the error of AMediaCodec_dequeueInputBuffer.
ssize_t QueueUnit(AMediaCodec* codec, const TestUnit& unit, int64_t timeoutUs, uint32_t flags = 0);

/// A started codec, used by one thread.
class CodecClient {
public:
    /// \param csd parameter sets for the format; \param rotation in degrees, clockwise
    explicit CodecClient(const TestStream& stream, ANativeWindow* window = nullptr,
                         int rotation = 0, const std::vector<uint8_t>& csd = {});
    ~CodecClient() { AMediaCodec_delete(codec_); }
    CodecClient(const CodecClient&) = delete;
    CodecClient& operator=(const CodecClient&) = delete;

    AMediaCodec* Get() const { return codec_; }

    /// Queues all units, and ends the stream. \return all results.
    std::vector<TestOutput> Decode(const std::vector<TestUnit>& units);
    /// Queues all units. \return the results that came meanwhile.
    std::vector<TestOutput> Feed(const std::vector<TestUnit>& units);
    /// Ends the stream. \return the remaining results.
    std::vector<TestOutput> Finish();

private:
    void QueueOne(const TestUnit& unit, uint32_t flags, std::vector<TestOutput>* outputs);
    /// \return false on a timeout.
    bool TakeOne(int64_t timeoutUs, std::vector<TestOutput>* outputs);

    AMediaCodec* codec_;
};

/// The pictures among \p outputs.
std::vector<TestOutput> Pictures(const std::vector<TestOutput>& outputs);
