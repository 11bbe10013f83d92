#pragma once

#include <media/NdkMediaCodec.h>

#include <chrono>

#include "CallGate.h"

/// A platform decoder that its owner stops and deletes while the decoder thread may be in a call.
class SharedCodec {
public:
    /// \param codec null for a decoder that could not be created.
    explicit SharedCodec(AMediaCodec* codec) : codec(codec) {}
    SharedCodec(const SharedCodec&) = delete;
    SharedCodec& operator=(const SharedCodec&) = delete;

    /// For the owner's calls. \return null without a decoder and after shutDown.
    AMediaCodec* get() const { return codec; }

    /// Calls \p call(codec), unless there is no decoder or it is being shut down.
    /// \thread the decoder thread.
    /// \return what the call gives, or \p otherwise.
    template <class Result, class Call>
    Result use(Result otherwise, Call call) {
        AMediaCodec* handle = codec;
        if (handle == nullptr || !gate.enter()) {
            return otherwise;
        }
        const Result result = call(handle);
        if (gate.leave()) {
            AMediaCodec_delete(handle);
        }
        return result;
    }

    /// Stops the decoder, waits for the decoder thread's call, and deletes the decoder. When the
    /// call takes longer, the decoder thread deletes it after the call. Stop and delete are called
    /// without a decoder, too. Call it once.
    ///
    /// \thread the owner's.
    /// \return whether the decoder is deleted.
    bool shutDown(std::chrono::milliseconds longestWait = kUsualWait);

    /// Lets no use begin until resume, and waits for the one under way.
    /// \thread the owner's.
    void pause(std::chrono::milliseconds longestWait);
    void resume() { gate.open(); }

private:
    static constexpr std::chrono::milliseconds kUsualWait{50};

    std::atomic<AMediaCodec*> codec;
    CallGate gate;
};
