/* The interface as a C program sees it: plain names, plain types. */

#include "render/VERenderer.h"

#include <stddef.h>

int main(void) {
    VERendererMode mode = {VE_OUTPUT_PICTURE, VE_MODE_NONE, 16, 16, VE_MASK_RGB, 0, 0};
    void* handle = NULL;
    const int created = VECreateRendererHandle(&handle, 1, &mode, NULL);
    const int refused = VECreateRendererHandleWithFormat(&handle, 1, VE_FORMAT_RGB, NULL, NULL) +
                        VEUpdateRenderer(NULL, NULL, 0, true, NULL) +
                        VEUpdateCompressedData(NULL, NULL, 0) +
                        VEUpdateUserPosition(NULL, 0, 0, 2, 0);
    VEDestroyRenderer(handle);
    return created == 0 && refused == -4 && handle == NULL && sizeof(mode) == 28 &&
                   offsetof(VERendererMode, maskHeight) == 24
               ? 0
               : 1;
}
