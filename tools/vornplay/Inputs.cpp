#include "Inputs.h"

#include <algorithm>

#include "support/ToolError.h"

namespace {

std::string Text(Size size) {
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

Size UprightSize(const Options& options, const VideoFile& file) {
    return file.Shape(options.autorotate).Upright({file.Codec().width, file.Codec().height});
}

bool AreAlike(const AVCodecParameters& one, const AVCodecParameters& other) {
    return one.codec_id == other.codec_id && one.sample_rate == other.sample_rate &&
           one.ch_layout.nb_channels == other.ch_layout.nb_channels &&
           one.extradata_size == other.extradata_size &&
           std::equal(one.extradata, one.extradata + one.extradata_size, other.extradata);
}

void CheckSize(const Options& options, const VideoFile& first, const VideoFile& next) {
    const Size size = UprightSize(options, first);
    const Size other = UprightSize(options, next);
    if (options.size.width == 0 && (size.width != other.width || size.height != other.height)) {
        throw ToolError(next.Path() + ": its pictures are " + Text(other) + ", not " + Text(size) +
                        " as those of " + first.Path() + "; --size " + Text(size) + " scales them");
    }
}

void CheckAudio(const Options& options, const VideoFile& first, const VideoFile& next) {
    const auto audio = first.Audio();
    const auto others = next.Audio();
    if (options.out.empty() || options.encoding.audio != AudioWay::kCopy) {
        return;
    }
    for (size_t i = 0; i < std::min(audio.size(), others.size()); ++i) {
        if (!AreAlike(*audio[i], *others[i])) {
            throw ToolError(next.Path() + ": its audio is not of the same form as that of " +
                            first.Path() + "; --audio aac joins them");
        }
    }
}

}  // namespace

VideoFile OpenInput(const Options& options, const std::string& path, double startSeconds) {
    VideoFile file(path, startSeconds);
    if (!options.out.empty() && options.encoding.audio != AudioWay::kNone) {
        file.KeepAudio();
    }
    return file;
}

JoinedInputs JoinInputs(const Options& options, const VideoFile& first) {
    JoinedInputs joined{first.Times().Clock(), first.ExpectedFrames()};
    for (size_t i = 1; i < options.inputs.size(); ++i) {
        const VideoFile next(options.inputs[i]);
        CheckSize(options, first, next);
        CheckAudio(options, first, next);
        joined.clock = joined.clock.With(next.Times().Clock());
        const int64_t frames = next.ExpectedFrames();
        joined.expected = joined.expected > 0 && frames > 0 ? joined.expected + frames : 0;
    }
    return joined;
}
