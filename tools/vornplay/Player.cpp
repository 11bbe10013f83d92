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

std::optional<Output> Open(const Options& options, const Stage& stage) {
    if (options.out.empty()) {
        return std::nullopt;
    }
    const FrameSource& source = stage.Source();
    const Existing existing = options.overwrite ? Existing::kReplaced : Existing::kKept;
    return OpenOutput({options.out, existing, stage.FrameSize(), options.backdrop, source.File(),
                       source.Times().Clock(), source.Seconds(), source.IsToneMapped(),
                       options.autorotate, options.encoding});
}

}  // namespace

Player::Player(const Options& options)
    : options_(options),
      stage_(options, VideoFile(options.input, options.startSeconds)),
      output_(Open(options, stage_)),
      limit_(output_.has_value() && output_->limit > 0 ? output_->limit : options.frames),
      expected_(ExpectedFrames()),
      begin_(stage_.Source().Time()) {
    if (output_.has_value()) {
        queue_.emplace(*output_->sink, stage_.FrameSize());
    }
    if (options.viewTo.has_value() && expected_ == 0) {
        throw ToolError(options.input + ": its length is not known; --view-to needs --frames here");
    }
}

int64_t Player::ExpectedFrames() const {
    const VideoFile& file = stage_.Source().File();
    int64_t available = file.ExpectedFrames();
    if (options_.durationSeconds > 0.0) {
        const double rate = av_q2d(file.FrameRate());
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
    if (output_.has_value() && out_ > 0) {
        queue_->Finish();
        output_->sink->Finish(stopped_ || over_ || out_ == limit_);
        Remark(output_->sink->Remark());
    }
    const int status = Report();
    if (output_.has_value() && out_ > 0) {
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
    for (bool more = true; more; more = out_ != limit_ && stage_.Next() && !IsOver()) {
        stopped_ = Interrupted();
        if (stopped_) {
            return;
        }
        DrawFrame();
        progress.Show(out_);
    }
}

bool Player::IsOver() {
    constexpr double kTimeTolerance = 0.001;
    const FrameSource& source = stage_.Source();
    const double seconds = source.Times().Clock().Seconds(source.Time() - begin_);
    over_ = options_.durationSeconds > 0.0 && seconds > options_.durationSeconds - kTimeTolerance;
    return over_;
}

void Player::DrawFrame() {
    SetShot();
    stage_.Draw();
    if (output_.has_value()) {
        stage_.ReadBack(queue_->Next());
        queue_->Push(stage_.Source().Time() - begin_);
    }
    ++out_;
    end_ = stage_.Source().Time() - begin_ + stage_.Source().Times().Clock().frame;
}

void Player::SetShot() {
    if (options_.script.has_value()) {
        stage_.NextShot() =
            ShotAt(options_.script->keyframes,
                   stage_.Source().Times().Clock().Seconds(stage_.Source().Time() - begin_));
    } else if (options_.viewTo.has_value() && expected_ > 1) {
        const double progress = static_cast<double>(out_) / static_cast<double>(expected_ - 1);
        stage_.NextShot().view =
            Between(options_.view.value_or(kFitView), *options_.viewTo, std::min(progress, 1.0));
    }
}

double Player::SecondsDrawn() const {
    return stage_.Source().Times().Clock().Seconds(end_);
}

void Player::ReportStop() const {
    std::cerr << "vornplay: stopped after " << out_;
    if (expected_ > 0) {
        std::cerr << " of " << expected_;
    }
    std::cerr << " frames, at " << std::fixed << std::setprecision(2) << SecondsDrawn() << " s";
    if (output_.has_value()) {
        std::cerr << "; " << options_.out << (out_ > 0 ? " holds them" : " was not written");
    }
    std::cerr << '\n';
}

int Player::Report() const {
    const FrameSource& source = stage_.Source();
    const std::optional<Mask>& mask = stage_.GetMask();
    if (!options_.quiet) {
        ReportRemarks(options_.input, source.Remarks());
    }
    const bool brokenInput = ReportBroken(options_.input, source.Lost(), source.Damaged());
    const bool brokenMask = mask.has_value() && ReportBroken(options_.mask, mask->Reader().Lost(),
                                                             mask->Reader().Damaged());
    if (stopped_) {
        ReportStop();
    }
    if (!options_.quiet) {
        std::cerr << source.Summary(out_) << '\n';
    }
    const int broken = brokenInput || brokenMask ? kExitBroken : kExitDone;
    const int status = stopped_ ? kExitInterrupted : broken;
    if (options_.json) {
        PrintLine(ToJson(Summarize(status)));
    }
    return status;
}

RunSummary Player::Summarize(int exitStatus) const {
    const FrameSource& source = stage_.Source();
    RunSummary summary;
    summary.input = options_.input;
    summary.output = options_.out;
    summary.exitStatus = exitStatus;
    summary.path = source.Name();
    summary.size = stage_.FrameSize();
    summary.frameRate = source.File().FrameRate();
    summary.expected = expected_;
    summary.drawn = out_;
    summary.shown = source.Shown(out_);
    summary.dropped = source.Dropped();
    summary.repaired = source.Times().Repaired();
    summary.lost = source.Lost();
    summary.seconds = SecondsDrawn();
    summary.damaged = source.Damaged();
    summary.elapsedSeconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    summary.millisecondsPerDraw = source.GetRenderer().MillisecondsPerDraw();
    if (output_.has_value()) {
        summary.audio = output_->audio;
    }
    return summary;
}
