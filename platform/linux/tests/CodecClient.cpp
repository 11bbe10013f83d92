#include "CodecClient.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <stdexcept>

namespace {

TestOutput FormatNow(AMediaCodec* codec) {
    TestOutput output{TestOutput::Kind::kFormat};
    AMediaFormat* format = AMediaCodec_getOutputFormat(codec);
    AMediaFormat_getInt32(format, AMEDIAFORMAT_KEY_WIDTH, &output.width);
    AMediaFormat_getInt32(format, AMEDIAFORMAT_KEY_HEIGHT, &output.height);
    AMediaFormat_delete(format);
    return output;
}

}  // namespace

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

CodecClient::CodecClient(const TestStream& stream, ANativeWindow* window, int rotation,
                         const std::vector<uint8_t>& csd)
    : codec_(AMediaCodec_createDecoderByType(stream.MimeType().c_str())) {
    AMediaFormat* format = AMediaFormat_new();
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_WIDTH, stream.width);
    AMediaFormat_setInt32(format, AMEDIAFORMAT_KEY_HEIGHT, stream.height);
    AMediaFormat_setString(format, AMEDIAFORMAT_KEY_MIME, stream.MimeType().c_str());
    AMediaFormat_setInt32(format, "rotation-degrees", rotation);
    if (!csd.empty()) {
        AMediaFormat_setBuffer(format, AMEDIAFORMAT_KEY_CSD_0, csd.data(), csd.size());
    }
    const bool started = AMediaCodec_configure(codec_, format, window, nullptr, 0) == AMEDIA_OK &&
                         AMediaCodec_start(codec_) == AMEDIA_OK;
    AMediaFormat_delete(format);
    if (!started) {
        throw std::runtime_error("the codec does not start");
    }
}

std::vector<TestOutput> CodecClient::Decode(const std::vector<TestUnit>& units) {
    auto outputs = Feed(units);
    const auto rest = Finish();
    outputs.insert(outputs.end(), rest.begin(), rest.end());
    return outputs;
}

std::vector<TestOutput> CodecClient::Feed(const std::vector<TestUnit>& units) {
    std::vector<TestOutput> outputs;
    for (const TestUnit& unit : units) {
        QueueOne(unit, 0, &outputs);
    }
    return outputs;
}

std::vector<TestOutput> CodecClient::Finish() {
    constexpr int64_t kLongUs = 10'000'000;
    std::vector<TestOutput> outputs;
    QueueOne({}, AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM, &outputs);
    while (outputs.empty() || outputs.back().kind != TestOutput::Kind::kEnd) {
        if (!TakeOne(kLongUs, &outputs)) {
            throw std::runtime_error("the stream does not end");
        }
    }
    return outputs;
}

void CodecClient::QueueOne(const TestUnit& unit, uint32_t flags, std::vector<TestOutput>* outputs) {
    constexpr int64_t kShortUs = 1000;
    ssize_t result = AMEDIACODEC_INFO_TRY_AGAIN_LATER;
    while (result == AMEDIACODEC_INFO_TRY_AGAIN_LATER) {
        TakeOne(0, outputs);
        result = QueueUnit(codec_, unit, kShortUs, flags);
    }
    if (result < 0) {
        throw std::runtime_error("no input buffer");
    }
}

bool CodecClient::TakeOne(int64_t timeoutUs, std::vector<TestOutput>* outputs) {
    AMediaCodecBufferInfo info;
    const ssize_t result = AMediaCodec_dequeueOutputBuffer(codec_, &info, timeoutUs);
    if (result == AMEDIACODEC_INFO_OUTPUT_FORMAT_CHANGED) {
        outputs->push_back(FormatNow(codec_));
        return true;
    }
    if (result < 0) {
        return false;
    }
    const auto index = static_cast<size_t>(result);
    const bool end = (info.flags & AMEDIACODEC_BUFFER_FLAG_END_OF_STREAM) != 0;
    TestOutput output{end ? TestOutput::Kind::kEnd : TestOutput::Kind::kPicture};
    output.timeUs = info.presentationTimeUs;
    const uint8_t* planes = AMediaCodec_getOutputBuffer(codec_, index, nullptr);
    output.luma = planes != nullptr ? *planes : 0;
    AMediaCodec_releaseOutputBuffer(codec_, index, info.size != 0);
    outputs->push_back(output);
    return true;
}

std::vector<TestOutput> Pictures(const std::vector<TestOutput>& outputs) {
    std::vector<TestOutput> pictures;
    std::copy_if(
        outputs.begin(), outputs.end(), std::back_inserter(pictures),
        [](const TestOutput& output) { return output.kind == TestOutput::Kind::kPicture; });
    return pictures;
}
