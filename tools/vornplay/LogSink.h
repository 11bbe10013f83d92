#pragma once

/// Whether the renderer's log lines go to stderr (they do not at first).
void ShowLog(bool show);
