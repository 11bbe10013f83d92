#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/Libav.h"
#include "support/OutputFile.h"

using LibavOptions = std::vector<std::pair<std::string, std::string>>;

/// A file of one or more streams that libavformat writes. It gets its name when it is complete;
/// after a failure there is no file.
class Muxer {
public:
    /// \param target    a path, or "-" for stdout
    /// \param container libavformat's name of it. \throws ToolError
    Muxer(const std::string& target, const char* container,
          Existing existing = Existing::kReplaced);

    /// For messages.
    const std::string& Target() const { return target_; }
    bool IsPipe() const { return !file_.has_value(); }
    /// Whether decoders find their parameters in the header of the file.
    bool HasGlobalHeader() const { return (output_->oformat->flags & AVFMT_GLOBALHEADER) != 0; }
    bool Takes(AVCodecID codec) const;

    /// A stream for the packets of an encoder.
    AVStream& AddEncoded(const AVCodecContext& encoder);
    /// A stream for packets that are copied from another file.
    AVStream& AddCopied(const AVStream& source);

    /// Keeps what is said of the source, such as its language.
    void CopyTags(const AVStream& source, AVStream& stream) const;

    /// Writes the header, after all streams are added.
    void Begin(const LibavOptions& options);
    /// Writes a packet, whose times are in \p timeBase, and leaves it empty.
    void Write(AVPacket& packet, const AVStream& stream, AVRational timeBase);
    /// Completes the file, still without its name.
    void Finish();
    void Commit();

    /// \throws ToolError that the file cannot be written, for a negative result
    void Check(int result) const;

private:
    struct CloseOutput {
        void operator()(AVFormatContext* output) const;
    };

    AVStream& AddStream();

    std::string target_;
    std::optional<PendingFile> file_;  ///< None: stdout.
    std::unique_ptr<AVFormatContext, CloseOutput> output_;
};
