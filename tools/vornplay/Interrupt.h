#pragma once

/// From now on the first Ctrl-C or request to terminate makes Interrupted() true; the second one
/// ends the program at once.
void CatchInterrupts();

bool Interrupted();
