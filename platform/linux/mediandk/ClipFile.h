#pragma once

extern "C" {
#include <libavformat/avformat.h>
}

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Av.h"

/// A file with tracks, and the unit of the selected track that is read next. H.264 units have start
/// codes, whatever the file has.
class ClipFile {
public:
    /// Width, height, clockwise rotation in degrees, frame rate, duration in µs.
    struct VideoFormat {
        int64_t width, height, rotation, frameRate, durationUs;
    };

    /// \return the reason of a failure; empty for none.
    std::string Open(const std::string& address);

    int TrackCount() const;
    std::string MimeType(int track) const;
    std::optional<VideoFormat> Format(int track) const;
    /// Sequence parameter sets for index 0, picture parameter sets for 1; empty if there are none.
    std::vector<uint8_t> ParameterSets(int track, int index) const;

    void Select(int track);
    void Seek(int64_t timeUs);
    /// \return whether there is another unit.
    bool Advance();
    /// \return -1 after the last unit.
    int64_t TimeUs() const;
    /// \return null after the last unit.
    const std::vector<uint8_t>* Unit() const { return atEnd_ ? nullptr : &unit_; }

private:
    struct Close {
        void operator()(AVFormatContext* file) const { avformat_close_input(&file); }
    };
    const AVStream& Stream(int track) const { return *file_->streams[track]; }
    void StoreUnit();

    std::unique_ptr<AVFormatContext, Close> file_;
    av::Packet packet_{av_packet_alloc()};
    std::vector<uint8_t> unit_;
    int selected_ = -1;
    bool atEnd_ = true;
};
