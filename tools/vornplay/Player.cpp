#include "Player.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>

#include "Interrupt.h"
#include "Progress.h"
#include "support/RunTool.h"
#include "support/ToolError.h"

namespace {

/// \param input the clip from its start, \param begin when the output begins in it, in seconds
std::optional<Output> Open(const Options& options, const Stage& stage, const FrameClock& clock,
                           const VideoFile& input, double begin) {
    if (options.out.empty()) {
        return std::nullopt;
    }
    const FrameSource& source = stage.Source();
    const Existing existing = options.overwrite ? Existing::kReplaced : Existing::kKept;
    return OpenOutput({options.out, options.format, existing, stage.FrameSize(), options.backdrop,
                       input, clock, begin, source.IsToneMapped(), options.autorotate,
                       options.encoding, options.part.has_value()});
}

std::optional<VideoFile> WholeFor(const Options& options, const PartRange& range) {
    return range.isPart
               ? std::optional(OpenInput(options, options.inputs.front(), options.startSeconds))
               : std::nullopt;
}

}  // namespace

Player::Player(const Options& options, const PartRange& range)
    : Player(options, range,
             OpenInput(options, options.inputs.front(),
                       range.isPart ? range.readSeconds : options.startSeconds)) {}

Player::Player(const Options& options, const PartRange& range, VideoFile file)
    : options_(options),
      current_(options),
      range_(range),
      whole_(WholeFor(options, range)),
      joined_(JoinInputs(options, whole_.has_value() ? *whole_ : file)) {
    stage_.emplace(current_, std::move(file), range_);
    const int64_t begin = range_.isPart ? range_.begin : stage_->Source().Time();
    output_ = Open(options_, *stage_, joined_.clock, Whole(),
                   stage_->Source().Times().Clock().Seconds(begin));
    limit_ = output_.has_value() && output_->limit > 0 ? output_->limit : options.frames;
    inAll_ = Limited(joined_.expected);
    expected_ = Expected();
    shift_ = -Rescaled(begin);
    if (output_.has_value()) {
        queue_.emplace(*output_->sink, stage_->FrameSize());
    }
    if (options.viewTo.has_value() && inAll_ == 0) {
        throw ToolError(options.input + ": its length is not known; --view-to needs --frames here");
    }
}

const VideoFile& Player::Whole() const {
    return whole_.has_value() ? *whole_ : stage_->Source().File();
}

int64_t Player::Expected() const {
    const int64_t frame = stage_->Source().Times().Clock().frame;
    const int64_t end = range_.to != PartRange::kEnd ? range_.to : range_.begin + inAll_ * frame;
    return range_.isPart && inAll_ > 0 ? std::max<int64_t>(0, (end - range_.from) / frame) : inAll_;
}

/// Parts that do not begin with the file cannot know what was repaired before.
bool Player::IsWronglyCut() const {
    return range_.isPart && !range_.IsAll() && stage_->Source().Times().Repaired() > 0;
}

/// How many of these frames will be drawn, as far as that is known.
int64_t Player::Limited(int64_t available) const {
    if (options_.durationSeconds > 0.0) {
        const double rate = av_q2d(stage_->Source().File().FrameRate());
        available = std::min<int64_t>(available, std::llround(options_.durationSeconds * rate));
    }
    if (limit_ == 0 || available == 0) {
        return std::max(limit_, available);
    }
    return std::min(limit_, available);
}

int Player::Play() {
    ReportAudio();
    DrawAll();
    if (IsWronglyCut()) {
        std::cerr << "vornplay: " << options_.input
                  << ": its time stamps are missing or step back, so that it cannot be cut; leave "
                     "out --part\n";
        return kExitUncuttable;
    }
    if (output_.has_value() && out_ > 0) {
        queue_->Finish();
        output_->sink->Finish(stopped_ || over_ || out_ == limit_);
        Remark(output_->sink->Remark());
    }
    const int status = Report();
    if (output_.has_value() && Keeps()) {
        output_->sink->Commit();
    }
    return status;
}

void Player::Remark(const std::string& remark) const {
    if (!remark.empty() && !options_.quiet) {
        std::cerr << "vornplay: " << options_.out << ": " << remark << '\n';
    }
}

void Player::ReportAudio() const {
    if (!output_.has_value() || options_.quiet) {
        return;
    }
    for (const std::string& codec : output_->audio.leftOut) {
        std::cerr << "vornplay: " << options_.out << " does not take " << codec
                  << "; this audio is left out\n";
    }
}

void Player::DrawAll() {
    Progress progress(options_.quiet, expected_);
    for (bool more = !IsOver(); more; more = out_ != limit_ && NextFrame() && !IsOver()) {
        stopped_ = Interrupted();
        if (stopped_) {
            return;
        }
        DrawFrame();
        progress.Show(out_);
    }
}

/// Takes the next frame of this input, or the first one of the next.
bool Player::NextFrame() {
    if (stage_->Next()) {
        return true;
    }
    if (played_ == options_.inputs.size()) {
        return false;
    }
    OpenNext();
    return true;
}

void Player::OpenNext() {
    ReportInput();
    current_.input = options_.inputs[played_++];
    current_.startSeconds = -SecondsDrawn();  // The mask goes on.
    VideoFile file = OpenInput(current_, current_.input, 0.0);
    if (output_.has_value()) {
        queue_->Finish();
        output_->sink->Join(file, end_);
        queue_.emplace(*output_->sink, stage_->FrameSize());
    }
    const Shot shot = stage_->NextShot();
    stage_.reset();  // First: platforms have few decoders.
    stage_.emplace(current_, std::move(file));
    stage_->NextShot() = shot;
    shift_ = end_;
}

bool Player::IsOver() {
    constexpr double kTimeTolerance = 0.001;
    const bool enough = options_.durationSeconds > 0.0 &&
                        joined_.clock.Seconds(Time()) > options_.durationSeconds - kTimeTolerance;
    const int64_t time = stage_->Source().Time();
    over_ = enough || time >= range_.to || time < range_.from;
    return over_;
}

/// A time of the input's clock on that of the output.
int64_t Player::Rescaled(int64_t ticks) const {
    return av_rescale_q(ticks, stage_->Source().Times().Clock().tick, joined_.clock.tick);
}

/// When the frame that was taken last is shown.
int64_t Player::Time() const {
    const int64_t time = Rescaled(stage_->Source().Time()) + shift_;
    return out_ > 0 ? std::max(time, time_ + 1) : time;
}

void Player::DrawFrame() {
    time_ = Time();
    SetShot();
    stage_->Draw();
    if (output_.has_value()) {
        stage_->ReadBack(queue_->Next());
        queue_->Push(time_);
    }
    ++out_;
    end_ = time_ + std::max<int64_t>(1, Rescaled(stage_->Source().Times().Clock().frame));
}

void Player::SetShot() {
    if (options_.script.has_value()) {
        stage_->NextShot() = ShotAt(options_.script->keyframes, joined_.clock.Seconds(time_));
    } else if (options_.viewTo.has_value() && inAll_ > 1) {
        const double progress =
            static_cast<double>(range_.earlier + out_) / static_cast<double>(inAll_ - 1);
        stage_->NextShot().view =
            Between(options_.view.value_or(kFitView), *options_.viewTo, std::min(progress, 1.0));
    }
}

double Player::SecondsDrawn() const {
    return joined_.clock.Seconds(end_);
}

void Player::ReportStop() const {
    std::cerr << "vornplay: stopped after " << out_;
    if (expected_ > 0) {
        std::cerr << " of " << expected_;
    }
    std::cerr << " frames, at " << std::fixed << std::setprecision(2) << SecondsDrawn() << " s";
    if (output_.has_value()) {
        std::cerr << "; " << options_.out << (Keeps() ? " holds them" : " was not written");
    }
    std::cerr << '\n';
}

/// Says what became of the input that was played last, and adds it to the summary.
void Player::ReportInput() {
    const FrameSource& source = stage_->Source();
    const std::optional<Mask>& mask = stage_->GetMask();
    const int64_t drawn = out_ - outBefore_;
    if (!options_.quiet) {
        ReportRemarks(current_.input, source.Remarks());
    }
    broken_ |= ReportBroken(current_.input, source.Lost(), source.Damaged());
    broken_ |= mask.has_value() &&
               ReportBroken(options_.mask, mask->Reader().Lost(), mask->Reader().Damaged());
    if (stopped_) {
        ReportStop();
    }
    if (!options_.quiet) {
        std::cerr << (options_.inputs.size() > 1 ? current_.input + ": " : "")
                  << source.Summary(drawn) << '\n';
    }
    summary_.path = source.Name();
    summary_.shown += source.Shown(drawn);
    summary_.dropped += source.Dropped();
    summary_.repaired += source.Times().Repaired();
    summary_.lost += source.Lost();
    summary_.damaged += source.Damaged();
    const double milliseconds = source.GetRenderer().MillisecondsPerDraw();
    summary_.millisecondsPerDraw += (milliseconds - summary_.millisecondsPerDraw) *
                                    static_cast<double>(drawn) /
                                    static_cast<double>(std::max<int64_t>(1, out_));
    outBefore_ = out_;
}

/// \return an ExitStatus
int Player::Report() {
    ReportInput();
    const int status = stopped_ ? kExitInterrupted : broken_ ? kExitBroken : kExitDone;
    summary_.inputs = options_.inputs;
    summary_.output = options_.out;
    summary_.exitStatus = status;
    summary_.size = stage_->FrameSize();
    summary_.frameRate = stage_->Source().File().FrameRate();
    summary_.expected = expected_;
    summary_.drawn = out_;
    summary_.seconds = SecondsDrawn();
    summary_.elapsedSeconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    if (output_.has_value()) {
        summary_.audio = output_->audio;
    }
    if (options_.json) {
        PrintLine(ToJson(summary_));
    }
    return status;
}
