#include "CorrectedReader.h"

#include "support/ToolError.h"

namespace {

constexpr char kDeinterlace[] = "bwdif=mode=send_frame:deint=interlaced";

/// White is at 100 cd/m².
constexpr char kToneMap[] =
    "zscale=transfer=linear:npl=100,format=gbrpf32le,zscale=primaries=bt709,"
    "tonemap=tonemap=hable:desat=0,zscale=transfer=bt709:matrix=bt709:range=tv,format=yuv444p";

/// The filters need to know what the numbers mean.
void TagHdr(AVFrame& frame) {
    if (frame.colorspace == AVCOL_SPC_UNSPECIFIED) {
        frame.colorspace = AVCOL_SPC_BT2020_NCL;
    }
    if (frame.color_primaries == AVCOL_PRI_UNSPECIFIED) {
        frame.color_primaries = AVCOL_PRI_BT2020;
    }
    if (frame.color_range == AVCOL_RANGE_UNSPECIFIED) {
        frame.color_range = AVCOL_RANGE_MPEG;
    }
}

}  // namespace

bool IsHdr(AVColorTransferCharacteristic transfer) {
    return transfer == AVCOL_TRC_SMPTE2084 || transfer == AVCOL_TRC_ARIB_STD_B67;
}

bool IsInterlaced(AVFieldOrder order) {
    return order != AV_FIELD_UNKNOWN && order != AV_FIELD_PROGRESSIVE;
}

void CorrectedReader::Choose(const AVFrame& first) {
    std::string chain;
    const bool fields =
        first.interlaced_frame != 0 || IsInterlaced(reader_.File().Codec().field_order);
    if (fields && !keepInterlaced_) {
        chain = kDeinterlace;
        remarks_.emplace_back(
            "interlaced pictures are deinterlaced; --keep-interlaced leaves them");
    }
    toneMapped_ = IsHdr(first.color_trc);
    if (toneMapped_) {
        chain += (chain.empty() ? "" : ",") + std::string(kToneMap);
        const bool pq = first.color_trc == AVCOL_TRC_SMPTE2084;
        remarks_.emplace_back(std::string(pq ? "PQ" : "HLG") + " is tone-mapped to BT.709");
    }
    if (!chain.empty()) {
        filter_.emplace(chain, first, reader_.Times().Clock().tick);
    }
}

void CorrectedReader::Send(const AVFrame* frame) {
    drained_ = frame == nullptr;
    if (frame == nullptr) {
        filter_->Send(nullptr);
        return;
    }
    av_frame_unref(sent_.get());
    if (av_frame_ref(sent_.get(), frame) < 0) {
        throw ToolError(reader_.File().Path() + ": out of memory");
    }
    if (toneMapped_) {
        TagHdr(*sent_);
    }
    filter_->Send(sent_.get());
}

const AVFrame* CorrectedReader::Next() {
    if (!started_) {
        started_ = true;
        const AVFrame* first = reader_.Next();
        if (first == nullptr) {
            return nullptr;
        }
        Choose(*first);
        if (!filter_.has_value()) {
            return first;
        }
        Send(first);
    }
    if (!filter_.has_value()) {
        return reader_.Next();
    }
    const AVFrame* frame = filter_->Receive();
    while (frame == nullptr && !drained_) {
        Send(reader_.Next());
        frame = filter_->Receive();
    }
    return frame;
}

const AVFrame& CorrectedReader::First() {
    const AVFrame* frame = Next();
    if (frame == nullptr) {
        throw ToolError(reader_.File().NoPicture());
    }
    return *frame;
}
