#pragma once

#include <optional>

class VideoFile;

/// What reading all packets of a video says of its times.
struct StampScan {
    bool restart = false;  ///< The time stamps begin again, so one does not name a place.
    double seconds = 0.0;  ///< How long the video lasts.
};

/// Opens the file again for that. Nothing if the kind of file says so itself, or if the file is too
/// large to be read. \throws ToolError
std::optional<StampScan> ScanStamps(const VideoFile& file);
