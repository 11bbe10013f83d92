#pragma once

#include <SDL_audio.h>

#include <array>
#include <chrono>
#include <deque>
#include <optional>
#include <vector>

/// Left and right, from -1 to 1.
using Sample = std::array<float, 2>;

/// Plays samples on the default audio device, and knows which one is heard. Without a device it
/// does nothing.
class Speaker {
public:
    static constexpr int kRate = 48000;

    Speaker() = default;
    ~Speaker();
    Speaker(const Speaker&) = delete;
    Speaker& operator=(const Speaker&) = delete;

    /// Opens the device, unless that was done. \return whether there is one
    bool Open();

    /// Forgets all samples. \param seconds the time of the next one
    void Restart(double seconds);
    void Append(const std::vector<Sample>& samples);
    void Play(bool on);

    /// For how long the samples last.
    double SecondsAhead() const;
    /// The time of the sample that is heard now; none if no device plays, or if it stopped.
    std::optional<double> SecondsHeard() const;

    /// From 0 to 1.
    void SetVolume(double volume);

private:
    using Clock = std::chrono::steady_clock;

    /// Keeps the device from taking samples.
    class Lock {
    public:
        explicit Lock(SDL_AudioDeviceID device) : device_(device) { SDL_LockAudioDevice(device_); }
        ~Lock() { SDL_UnlockAudioDevice(device_); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        SDL_AudioDeviceID device_;
    };

    static void Fill(void* speaker, uint8_t* bytes, int size);
    void Take(Sample* samples, size_t count);

    SDL_AudioDeviceID device_ = 0;
    bool tried_ = false;
    bool plays_ = false;
    // Shared with the device's thread.
    std::deque<Sample> samples_;
    double begin_ = 0.0;    ///< The time of the first sample.
    size_t taken_ = 0;      ///< Samples that the device took.
    size_t takenLast_ = 0;  ///< Of these, when it asked last.
    size_t asked_ = 0;      ///< Samples that it asked for last.
    Clock::time_point askedAt_;
    float volume_ = 1.0F;
};
