#pragma once

/// \file
/// Media formats: sets of named, typed values. Signatures are those of Android's C ABI.
///
/// One thread at a time may use a format. A getter returns false, and leaves its result untouched,
/// if the format has no value of that name and type.

#include <media/NdkMediaError.h>
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct AMediaFormat AMediaFormat;

AMediaFormat* AMediaFormat_new(void);
media_status_t AMediaFormat_delete(AMediaFormat* format);

/// All names and values as one line. It is valid until the next call or the format's deletion.
const char* AMediaFormat_toString(AMediaFormat* format);

bool AMediaFormat_getInt32(AMediaFormat* format, const char* name, int32_t* out);
bool AMediaFormat_getInt64(AMediaFormat* format, const char* name, int64_t* out);
bool AMediaFormat_getFloat(AMediaFormat* format, const char* name, float* out);
/// The bytes and the text belong to the format. They are valid until the name is set again.
bool AMediaFormat_getBuffer(AMediaFormat* format, const char* name, void** data, size_t* size);
bool AMediaFormat_getString(AMediaFormat* format, const char* name, const char** out);

void AMediaFormat_setInt32(AMediaFormat* format, const char* name, int32_t value);
void AMediaFormat_setInt64(AMediaFormat* format, const char* name, int64_t value);
void AMediaFormat_setFloat(AMediaFormat* format, const char* name, float value);
void AMediaFormat_setBuffer(AMediaFormat* format, const char* name, const void* data, size_t size);
void AMediaFormat_setString(AMediaFormat* format, const char* name, const char* value);

extern const char* AMEDIAFORMAT_KEY_BIT_RATE;
extern const char* AMEDIAFORMAT_KEY_COLOR_FORMAT;
extern const char* AMEDIAFORMAT_KEY_COLOR_RANGE;
extern const char* AMEDIAFORMAT_KEY_COLOR_STANDARD;
extern const char* AMEDIAFORMAT_KEY_CSD_0;
extern const char* AMEDIAFORMAT_KEY_CSD_1;
extern const char* AMEDIAFORMAT_KEY_DURATION;
extern const char* AMEDIAFORMAT_KEY_FRAME_RATE;
extern const char* AMEDIAFORMAT_KEY_HEIGHT;
extern const char* AMEDIAFORMAT_KEY_MAX_INPUT_SIZE;
extern const char* AMEDIAFORMAT_KEY_MIME;
extern const char* AMEDIAFORMAT_KEY_SLICE_HEIGHT;
extern const char* AMEDIAFORMAT_KEY_STRIDE;
extern const char* AMEDIAFORMAT_KEY_WIDTH;

#ifdef __cplusplus
}  // extern "C"
#endif
