#include "CodecClient.h"

#include <algorithm>
#include <stdexcept>

ssize_t QueueUnit(AMediaCodec* codec, const TestUnit& unit, int64_t timeoutUs, uint32_t flags) {
    const ssize_t result = AMediaCodec_dequeueInputBuffer(codec, timeoutUs);
    if (result < 0 || result == AMEDIACODEC_ERROR_RECLAIMED) {
        return result;
    }
    const auto index = static_cast<size_t>(result);
    std::copy(unit.bytes.begin(), unit.bytes.end(),
              AMediaCodec_getInputBuffer(codec, index, nullptr));
    return AMediaCodec_queueInputBuffer(codec, index, 0, unit.bytes.size(),
                                        static_cast<uint64_t>(unit.timeUs), flags);
}

CodecClient::CodecClient(const TestStream& stream, ANativeWindow* window, int rotation)
    : codec_(AMediaCodec_createDecoderByType(stream.MimeType().c_str())) {
    AMediaFormat* format = AMediaFormat_new();
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_WIDTH, stream.width);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_HEIGHT, stream.height);
    AMediaFormat_setString(format, AMEDIAFORMAT_KEY_MIME, stream.MimeType().c_str());
    AMediaFormat_setInt32(format, "rotation-degrees", rotation);
    const bool started = AMediaCodec_configure(codec_, format, window, nullptr, 0) == AMEDIA_OK &&
                         AMediaCodec_start(codec_) == AMEDIA_OK;
    AMediaFormat_delete(format);
    if (!started) {
        throw std::runtime_error("the codec does not start");
    }
}

std::vector<TestPicture> CodecClient::Decode(const std::vector<TestUnit>& units) {
    auto pictures = Feed(units);
    const auto rest = Finish();
    pictures.insert(pictures.end(), rest.begin(), rest.end());
    return pictures;
}

std::vector<TestPicture> CodecClient::Feed(const std::vector<TestUnit>& units) {
    std::vector<TestPicture> pictures;
    for (const TestUnit& unit : units) {
        QueueOne(unit, 0, &pictures);
    }
    return pictures;
}

std::vector<TestPicture> CodecClient::Finish() {
    constexpr int64_t kLongUs = 10'000'000;
    std::vector<TestPicture> pictures;
    QueueOne({}, AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM, &pictures);
    Result result = Result::kPicture;
    while (result == Result::kPicture) {
        result = TakeOne(kLongUs, &pictures);
    }
    if (result != Result::kEnd) {
        throw std::runtime_error("the stream does not end");
    }
    return pictures;
}

void CodecClient::QueueOne(const TestUnit& unit, uint32_t flags,
                           std::vector<TestPicture>* pictures) {
    constexpr int64_t kShortUs = 1000;
    ssize_t result = AMEDIACODEC_INFO_TRY_AGAIN_LATER;
    while (result == AMEDIACODEC_INFO_TRY_AGAIN_LATER) {
        TakeOne(0, pictures);
        result = QueueUnit(codec_, unit, kShortUs, flags);
    }
    if (result < 0) {
        throw std::runtime_error("no input buffer");
    }
}

CodecClient::Result CodecClient::TakeOne(int64_t timeoutUs, std::vector<TestPicture>* pictures) {
    AMediaCodecBufferInfo info;
    ssize_t result = AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED;
    while (result == AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED) {
        result = AMediaCodec_dequeueOutputBuffer(codec_, &info, timeoutUs);
    }
    if (result < 0) {
        return Result::kNothing;
    }
    const auto index = static_cast<size_t>(result);
    const bool end = (info.flags & AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM) != 0;
    if (!end) {
        const uint8_t* planes = AMediaCodec_getOutputBuffer(codec_, index, nullptr);
        pictures->push_back({info.presentationTimeUs, planes != nullptr ? *planes : 0});
    }
    AMediaCodec_releaseOutputBuffer(codec_, index, info.size != 0);
    return end ? Result::kEnd : Result::kPicture;
}
