#include <media/NdkMediaFormat.h>

extern "C" {

const char* AMEDIAFORMAT_KEY_BIT_RATE = "bitrate";
const char* AMEDIAFORMAT_KEY_COLOR_FORMAT = "color-format";
const char* AMEDIAFORMAT_KEY_COLOR_RANGE = "color-range";
const char* AMEDIAFORMAT_KEY_COLOR_STANDARD = "color-standard";
const char* AMEDIAFORMAT_KEY_CSD_0 = "csd-0";
const char* AMEDIAFORMAT_KEY_CSD_1 = "csd-1";
const char* AMEDIAFORMAT_KEY_DURATION = "durationUs";
const char* AMEDIAFORMAT_KEY_FRAME_RATE = "frame-rate";
const char* AMEDIAFORMAT_KEY_HEIGHT = "height";
const char* AMEDIAFORMAT_KEY_MAX_INPUT_SIZE = "max-input-size";
const char* AMEDIAFORMAT_KEY_MIME = "mime";
const char* AMEDIAFORMAT_KEY_SLICE_HEIGHT = "slice-height";
const char* AMEDIAFORMAT_KEY_STRIDE = "stride";
const char* AMEDIAFORMAT_KEY_WIDTH = "width";

}  // extern "C"
