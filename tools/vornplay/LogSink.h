#pragma once

/// Sets whether the renderer's log goes to stderr. At first it goes nowhere.
void ShowLog(bool show);
