#include "parts/PartCuts.h"

#include <algorithm>

#include "CorrectedReader.h"
#include "support/VideoReader.h"

namespace {

/// Stamps of some containers are rounded to milliseconds.
constexpr double kTimeTolerance = 0.001;

struct CloseParser {
    void operator()(AVCodecParserContext* parser) const { av_parser_close(parser); }
};

/// Whether a packet that the container calls a key frame is a whole picture. Streams that are
/// refreshed slice by slice have other ones, from which decoding takes a while to become right.
bool IsIntra(const VideoFile& file, const AVPacket& packet) {
    const std::unique_ptr<AVCodecParserContext, CloseParser> parser(
        av_parser_init(file.Codec().codec_id));
    const LibavPtr<AVCodecContext> codec(avcodec_alloc_context3(nullptr));
    if (parser == nullptr || avcodec_parameters_to_context(codec.get(), &file.Codec()) < 0) {
        return true;
    }
    parser->flags |= PARSER_FLAG_COMPLETE_FRAMES;
    uint8_t* unit = nullptr;
    int size = 0;
    av_parser_parse2(parser.get(), codec.get(), &unit, &size, packet.data, packet.size, packet.pts,
                     packet.dts, packet.pos);
    return parser->pict_type == AV_PICTURE_TYPE_NONE || parser->pict_type == AV_PICTURE_TYPE_I;
}

bool IsKey(const AVPacket& packet) {
    return (packet.flags & AV_PKT_FLAG_KEY) != 0 && (packet.flags & AV_PKT_FLAG_DISCARD) == 0;
}

/// The time of a frame with a good stamp, in ticks.
int64_t TimeOf(const VideoFile& file, int64_t stamp) {
    return file.Times().Receive(stamp);
}

/// How long the clip is from a time on, in seconds; 0 if it does not say.
double LengthFrom(const VideoFile& file, double begin, const Options& options) {
    const double all = static_cast<double>(file.ExpectedFrames()) / av_q2d(file.FrameRate());
    const double length = std::max(0.0, all - (begin - file.StartSeconds()));
    return options.durationSeconds > 0.0 ? std::min(length, options.durationSeconds) : length;
}

class Cuts {
public:
    explicit Cuts(const Options& options)
        : options_(options),
          reader_(options.input, options.startSeconds),
          begin_(reader_.First().pts),
          beginSeconds_(reader_.Times().Clock().Seconds(begin_)),
          length_(LengthFrom(reader_.File(), beginSeconds_, options)) {}

    /// When the first frame of a part is shown. \param index from 0 to the number of parts
    int64_t At(int index) const {
        if (index <= 0) {
            return begin_;
        }
        const PartNumber& part = *options_.part;
        return index >= part.count || length_ <= 0.0
                   ? PartRange::kEnd
                   : KeyBefore(beginSeconds_ + length_ * index / part.count);
    }

    double ReadFrom(int64_t time) const;
    int64_t Earlier(int64_t time) const;

private:
    int64_t KeyBefore(double seconds) const;
    int64_t FirstKey(double seconds) const;

    const Options& options_;
    VideoReader reader_;
    int64_t begin_;
    double beginSeconds_;
    double length_;
};

/// When the first key frame is shown that comes if reading begins at a time: the last one before
/// it, if the container finds that. The end if there is none.
int64_t Cuts::FirstKey(double seconds) const {
    VideoFile file(options_.input, seconds);
    const AVPacket* packet = file.Next();
    while (packet != nullptr && !(IsKey(*packet) && IsIntra(file, *packet))) {
        packet = file.Next();
    }
    if (packet == nullptr || packet->pts == AV_NOPTS_VALUE) {
        return PartRange::kEnd;
    }
    return TimeOf(file, packet->pts);
}

/// The cut near a time.
int64_t Cuts::KeyBefore(double seconds) const {
    const int64_t key = FirstKey(seconds);
    const bool early = reader_.Times().Clock().Seconds(key - begin_) < length_ - kTimeTolerance;
    return key != PartRange::kEnd && early ? std::max(begin_, key) : PartRange::kEnd;
}

/// Where to read from for the frame of this time. Deinterlacing also looks at the frame before.
double Cuts::ReadFrom(int64_t time) const {
    constexpr double kRounding = 1e-7;
    constexpr int kLongest = 100;
    const FrameClock& clock = reader_.Times().Clock();
    const AVFieldOrder order = reader_.File().Codec().field_order;
    const bool looksBack = order != AV_FIELD_PROGRESSIVE && !options_.keepInterlaced;
    const int64_t first = looksBack ? time - 2 * clock.frame : time;
    const double latest = clock.Seconds(first) + kRounding;
    double seconds = latest;
    // Some containers find later key frames than they were asked for.
    for (int earlier = 1; seconds > options_.startSeconds && FirstKey(seconds) > first;
         earlier *= 2) {
        seconds = earlier > kLongest ? 0.0 : latest - earlier;
    }
    return std::max(options_.startSeconds, seconds);
}

/// How many frames there are from the beginning to a time, by the stamps of their packets.
int64_t Cuts::Earlier(int64_t time) const {
    VideoFile file(options_.input, options_.startSeconds);
    int64_t count = 0;
    for (const AVPacket* packet = file.Next(); packet != nullptr; packet = file.Next()) {
        const int64_t shown = TimeOf(file, packet->pts);
        if (IsKey(*packet) && shown > time) {
            break;  // Whatever follows is shown after the key frame at that time.
        }
        const bool hidden = (packet->flags & AV_PKT_FLAG_DISCARD) != 0;
        count += !hidden && shown >= begin_ && shown < time ? 1 : 0;
    }
    return count;
}

}  // namespace

PartRange FindPart(const Options& options) {
    const Cuts cuts(options);
    PartRange range;
    range.isPart = true;
    range.begin = cuts.At(0);
    range.from = cuts.At(options.part->number - 1);
    range.to = cuts.At(options.part->number);
    range.readSeconds = options.startSeconds;
    if (range.from > range.begin && !range.IsEmpty()) {
        range.readSeconds = cuts.ReadFrom(range.from);
        const bool counts = !options.mask.empty() || options.viewTo.has_value();
        range.earlier = counts ? cuts.Earlier(range.from) : 0;
    }
    return range;
}
