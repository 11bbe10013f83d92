#pragma once

#include <memory>
#include <thread>

#include "FrameFlow.h"
#include "InputBuffers.h"
#include "OutputBuffers.h"
#include "VideoDecoder.h"

/// One run of a decoder on its own thread, from start or flush to the next flush or stop.
class DecodeSession {
public:
    DecodeSession(std::unique_ptr<VideoDecoder> decoder, const InputBuffers::Settings& input,
                  const PictureFormat& announced, std::shared_ptr<FrameFlow> flow);
    ~DecodeSession();
    DecodeSession(const DecodeSession&) = delete;
    DecodeSession& operator=(const DecodeSession&) = delete;

    /// Ends the thread. Waits for buffers end with an error, and Input() and Output() refuse all
    /// calls. Call it once.
    /// \return the decoder, for the next session.
    std::unique_ptr<VideoDecoder> Stop();

    InputBuffers& Input() { return input_; }
    OutputBuffers& Output() { return output_; }

private:
    void Run();
    void DecodeUnit(const InputUnit& unit);

    std::unique_ptr<VideoDecoder> decoder_;
    InputBuffers input_;
    OutputBuffers output_;
    const std::shared_ptr<FrameFlow> flow_;
    std::thread thread_;
};
