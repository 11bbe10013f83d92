#pragma once

#include <media/NdkMediaCodec.h>

#include <string>
#include <vector>

#include "TestStream.h"

/// What a codec gave, in the order in which it did.
struct TestOutput {
    enum class Kind { kFormat, kPicture, kEnd };

    Kind kind;
    int width = 0;   ///< Of a format.
    int height = 0;  ///< Likewise.
    int64_t timeUs = 0;
    int luma = 0;  ///< Of a picture's first pixel, where there is no window.
};

/// A started codec, as an application uses it from one thread.
class CodecClient {
public:
    struct Setup {
        std::string mimeType = "video/avc";
        int width = 320;
        int height = 240;
        ANativeWindow* window = nullptr;
        std::vector<uint8_t> parameterSets;
    };

    explicit CodecClient(const Setup& setup);
    ~CodecClient() { AMediaCodec_delete(codec_); }
    CodecClient(const CodecClient&) = delete;
    CodecClient& operator=(const CodecClient&) = delete;

    AMediaCodec* Get() const { return codec_; }

    /// Queues all units, and takes what comes meanwhile.
    std::vector<TestOutput> Feed(const std::vector<TestUnit>& units);
    /// Ends the stream, and takes all that is left.
    std::vector<TestOutput> Finish();

private:
    void QueueOne(const TestUnit& unit, uint32_t flags, std::vector<TestOutput>* outputs);
    /// \return false where there was nothing in time.
    bool TakeOne(int64_t timeoutUs, std::vector<TestOutput>* outputs);

    AMediaCodec* codec_;
};

/// The pictures among \p outputs.
std::vector<TestOutput> Pictures(const std::vector<TestOutput>& outputs);
