#pragma once

#include <memory>
#include <optional>

#include "support/VideoFile.h"
#include "window/sound/AudioReader.h"
#include "window/sound/Speaker.h"

/// The sound of a clip. If the clip has none, or there is no device, it does nothing.
class Sound {
public:
    /// \param file the clip's; its first picture is at time 0
    Sound(Speaker& speaker, const VideoFile& file);
    ~Sound() { speaker_.Play(false); }
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;

    bool IsThere() const { return reader_ != nullptr; }
    /// As far as the file says; else 0.
    double EndSeconds() const { return IsThere() ? reader_->EndSeconds() : 0.0; }

    /// \param byReading as AudioReader
    void Seek(double seconds, bool byReading);
    void Play(bool on);
    /// Decodes ahead. Call every 100 ms while it plays.
    void Feed();
    /// The time that is heard now; none if nothing is, and nothing will be.
    std::optional<double> SecondsHeard() const;

private:
    Speaker& speaker_;
    std::unique_ptr<AudioReader> reader_;
    bool drained_ = false;
};
