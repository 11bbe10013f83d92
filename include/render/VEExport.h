#pragma once

/// Marks what the shared library exports. All other symbols are hidden.
#define VE_EXPORT __attribute__((visibility("default")))
