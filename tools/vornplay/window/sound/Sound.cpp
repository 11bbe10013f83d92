#include "window/sound/Sound.h"

namespace {

std::unique_ptr<AudioReader> Open(Speaker& speaker, const VideoFile& file) {
    std::unique_ptr<AudioReader> reader = AudioReader::Open(file, -file.SecondsOf(0));
    return reader != nullptr && speaker.Open() ? std::move(reader) : nullptr;
}

}  // namespace

Sound::Sound(Speaker& speaker, const VideoFile& file)
    : speaker_(speaker), reader_(::Open(speaker, file)) {}

void Sound::Seek(double seconds, bool byReading) {
    if (IsThere()) {
        reader_->Seek(seconds, byReading);
        speaker_.Restart(seconds);
        drained_ = false;
        Feed();
    }
}

void Sound::Play(bool on) {
    if (IsThere()) {
        speaker_.Play(on);
    }
}

void Sound::Feed() {
    constexpr double kAhead = 0.5;
    while (IsThere() && !drained_ && speaker_.SecondsAhead() < kAhead) {
        const std::vector<Sample> samples = reader_->Next();
        drained_ = samples.empty();
        speaker_.Append(samples);
    }
}

std::optional<double> Sound::SecondsHeard() const {
    const bool over = !IsThere() || (drained_ && speaker_.SecondsAhead() <= 0.0);
    return over ? std::nullopt : speaker_.SecondsHeard();
}
