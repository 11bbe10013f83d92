#include "window/sound/Speaker.h"

#include <SDL.h>

#include <algorithm>

namespace {

/// How many samples a device takes at a time: about 10 ms.
constexpr int kPeriod = 512;

}  // namespace

Speaker::~Speaker() {
    if (device_ != 0) {
        SDL_CloseAudioDevice(device_);
    }
}

bool Speaker::Open() {
    if (tried_) {
        return device_ != 0;
    }
    tried_ = true;
    // To open a device that is not there would make the system's library complain on stderr.
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0 || SDL_GetNumAudioDevices(0) == 0) {
        return false;
    }
    SDL_AudioSpec wanted{};
    wanted.freq = kRate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = std::tuple_size_v<Sample>;
    wanted.samples = kPeriod;
    wanted.callback = Fill;
    wanted.userdata = this;
    device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    return device_ != 0;
}

void Speaker::Fill(void* speaker, uint8_t* bytes, int size) {
    const size_t count = static_cast<size_t>(size) / sizeof(Sample);
    static_cast<Speaker*>(speaker)->Take(reinterpret_cast<Sample*>(bytes), count);
}

/// Silence follows the last sample.
void Speaker::Take(Sample* samples, size_t count) {
    const size_t taken = std::min(count, samples_.size());
    for (size_t i = 0; i < count; ++i) {
        const Sample sample = i < taken ? samples_[i] : Sample{};
        samples[i] = {sample[0] * volume_, sample[1] * volume_};
    }
    samples_.erase(samples_.begin(), samples_.begin() + static_cast<ptrdiff_t>(taken));
    taken_ += taken;
    takenLast_ = taken;
    asked_ = count;
    askedAt_ = Clock::now();
}

void Speaker::Restart(double seconds) {
    const Lock lock(device_);
    samples_.clear();
    begin_ = seconds;
    taken_ = 0;
    takenLast_ = 0;
    asked_ = 0;
    askedAt_ = Clock::now();
}

void Speaker::Append(const std::vector<Sample>& samples) {
    const Lock lock(device_);
    samples_.insert(samples_.end(), samples.begin(), samples.end());
}

void Speaker::Play(bool on) {
    if (on != plays_) {
        const Lock lock(device_);
        askedAt_ = Clock::now();
    }
    plays_ = on;
    SDL_PauseAudioDevice(device_, on ? 0 : 1);
}

double Speaker::SecondsAhead() const {
    const Lock lock(device_);
    return static_cast<double>(samples_.size()) / kRate;
}

/// The device plays what it took the time before last while it keeps what it took last.
std::optional<double> Speaker::SecondsHeard() const {
    constexpr std::chrono::milliseconds kDead(500);
    const Lock lock(device_);
    const Clock::duration since = Clock::now() - askedAt_;
    if (!plays_ || since > kDead) {
        return std::nullopt;
    }
    const double period = static_cast<double>(asked_) / kRate;
    const double known = static_cast<double>(taken_ - takenLast_) / kRate;
    const double passed = std::min(std::chrono::duration<double>(since).count(), period);
    return begin_ + std::max(0.0, known - period + passed);
}

void Speaker::SetVolume(double volume) {
    const Lock lock(device_);
    volume_ = static_cast<float>(volume);
}
